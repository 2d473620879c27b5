#pragma once

#include <moxcore/string/String.h>
#include <moxui/dialogs/DialogButton.h>
#include <moxui/scriber/ScriberTypes.h>

#include <cstddef>

namespace moxui::ui {
class UI_Node;
}

namespace moxui::dialogs {

/// Asks for a line of text and waits: a field preset to `text`, with a prompt above it and two buttons below,
/// which Enter and Escape mean. True when it was accepted, with the field's contents in `text`; else, and
/// without a desktop, `text` stays as it is. The supplier and the parent may be null.
///
/// `selectsText` has the whole text selected at first, to be typed over. With `readOnly` it can
/// only be read and copied. Texts have from `minLength` to `maxLength` UTF-16 units; 0 stands for no bound.
bool SimpleInputBox(scriber::SupplierInterface const* supplier, moxcore::Utf16String const& title,
                    moxcore::Utf16String const& prompt, moxcore::Utf16String& text, bool selectsText,
                    ui::UI_Node* parent, bool readOnly, std::size_t minLength, std::size_t maxLength,
                    unsigned acceptButton = DialogButton::kOk, unsigned cancelButton = DialogButton::kCancel);

}  // namespace moxui::dialogs
