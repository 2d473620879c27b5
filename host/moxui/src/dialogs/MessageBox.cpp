#include "ModalRun.h"

#include <moxui/dialogs/MessageBox.h>
#include <moxui/dialogs/MessageBoxView.h>

namespace moxui::dialogs::messagebox {

unsigned Messagebox(scriber::SupplierInterface const*, moxcore::Utf16String const& title,
                    moxcore::Utf16String const& text, unsigned buttons, unsigned defaultButton,
                    MessageIcon icon, WindowVariant const& window,
                    std::function<void(unsigned)> const& answered, unsigned cancelButton, float textWidth) {
  unsigned const cancel = cancelButton != 0 ? cancelButton : GetCancelAnswer(buttons);
  ModalRun* running = nullptr;
  auto const view = moxcore::utility::MakeIntrusive<MessageBoxView>(
      MessageBoxContent{.title = title,
                        .text = text,
                        .buttons = buttons,
                        .defaultButton = defaultButton,
                        .cancelButton = cancel,
                        .icon = icon,
                        .textWidth = textWidth},
      [&running](unsigned answer) { running->End(static_cast<int>(answer)); });
  ModalRun run(view);
  running = &run;
  platform::ModalRequest request;
  request.kind = platform::ModalKind::kMessageBox;
  request.title = title;
  request.text = text;
  request.buttons = buttons;
  request.defaultAnswer = static_cast<int>(defaultButton);
  request.opened = [&view] { view->FocusDefaultButton(); };
  auto const answer = static_cast<unsigned>(run.Run(
      std::move(request), {.parent = window, .size = view->GetPreferredExtent()}, static_cast<int>(cancel)));
  if (answered) {
    answered(answer);
  }
  return answer;
}

void ShowStop(scriber::SupplierInterface const* supplier, moxcore::Utf16String const& title,
              moxcore::Utf16String const& text, WindowVariant const& window) {
  Messagebox(supplier, title, text, DialogButton::kOk, DialogButton::kOk, MessageIcon::kStop, window);
}

}  // namespace moxui::dialogs::messagebox
