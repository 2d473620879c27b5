#pragma once

#include <moxcore/string/String.h>
#include <moxui/dialogs/DialogButton.h>
#include <moxui/dialogs/WindowVariant.h>
#include <moxui/scriber/ScriberTypes.h>

#include <functional>

namespace moxui::dialogs::messagebox {

enum class MessageIcon { kNone = 0, kNote = 1, kQuestion = 2, kStop = 3 };

/// Asks or tells something and waits. `buttons` is a sum of DialogButton; Enter means `defaultButton`, Escape
/// and closing the box mean the cancel button: Cancel, else No, else the only one. Gives the button pressed.
/// The supplier may be null. Without a desktop the answer is the cancel button's.
///
/// `answered`, unless it is empty, hears the button too, once the box has closed and before this returns.
/// `cancelButton` stands for another button that Escape and closing mean, and `textWidth` for another width
/// of the text, in logical pixels; 0 for the usual ones.
unsigned Messagebox(scriber::SupplierInterface const* supplier, moxcore::Utf16String const& title,
                    moxcore::Utf16String const& text, unsigned buttons, unsigned defaultButton,
                    MessageIcon icon, WindowVariant const& window,
                    std::function<void(unsigned button)> const& answered = {}, unsigned cancelButton = 0,
                    float textWidth = 0.0f);

/// Tells that something failed; one button, OK.
void ShowStop(scriber::SupplierInterface const* supplier, moxcore::Utf16String const& title,
              moxcore::Utf16String const& text, WindowVariant const& window);

}  // namespace moxui::dialogs::messagebox
