#pragma once

#include <moxcore/string/String.h>
#include <moxui/dialogs/DialogButton.h>
#include <moxui/dialogs/WindowVariant.h>
#include <moxui/scriber/ScriberTypes.h>

namespace moxui::dialogs::messagebox {

enum class MessageIcon { kNone = 0, kNote = 1, kQuestion = 2, kStop = 3 };

/// Asks or tells something and waits. `buttons` is a sum of DialogButton; Enter means `defaultButton`, Escape
/// and closing the box mean the cancel button: Cancel, else No, else the only one. Gives the button pressed.
/// The supplier may be null. Without a desktop the answer is the cancel button's.
unsigned Messagebox(scriber::SupplierInterface const* supplier, moxcore::Utf16String const& title,
                    moxcore::Utf16String const& text, unsigned buttons, unsigned defaultButton,
                    MessageIcon icon, WindowVariant const& window);

/// Tells that something failed; one button, OK.
void ShowStop(scriber::SupplierInterface const* supplier, moxcore::Utf16String const& title,
              moxcore::Utf16String const& text, WindowVariant const& window);

}  // namespace moxui::dialogs::messagebox
