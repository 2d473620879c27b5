#include "ModalRun.h"

#include <moxui/dialogs/InputBoxView.h>
#include <moxui/dialogs/SimpleInputBox.h>

namespace moxui::dialogs {

bool SimpleInputBox(scriber::SupplierInterface const*, moxcore::Utf16String const& title,
                    moxcore::Utf16String const& prompt, moxcore::Utf16String& text, bool selectsText,
                    ui::UI_Node* parent, bool readOnly, std::size_t minLength, std::size_t maxLength,
                    unsigned acceptButton, unsigned cancelButton) {
  ModalRun* running = nullptr;
  auto const view = moxcore::utility::MakeIntrusive<InputBoxView>(
      InputBoxContent{.title = title,
                      .prompt = prompt,
                      .text = text,
                      .selectsText = selectsText,
                      .readOnly = readOnly,
                      .minLength = minLength,
                      .maxLength = maxLength,
                      .acceptButton = acceptButton,
                      .cancelButton = cancelButton},
      [&running](unsigned answer) { running->End(static_cast<int>(answer)); });
  ModalRun run(view);
  running = &run;
  moxcore::Utf16String edited = text;
  platform::ModalRequest request;
  request.kind = platform::ModalKind::kInputBox;
  request.title = title;
  request.text = prompt;
  request.buttons = acceptButton | cancelButton;
  request.defaultAnswer = static_cast<int>(acceptButton);
  request.editedText = &edited;
  request.opened = [&view] { view->FocusText(); };
  int const answer = run.Run(std::move(request), {.parent = parent, .size = view->GetPreferredExtent()},
                             static_cast<int>(cancelButton));
  if (answer != static_cast<int>(acceptButton)) {
    return false;
  }
  // A responder that didn't drive the box has changed the text itself.
  text = run.WasEnded() ? view->GetText() : edited;
  return true;
}

}  // namespace moxui::dialogs
