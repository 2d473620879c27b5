#include "MessageBoxView.h"

#include <moxui/dialogs/MessageBox.h>
#include <moxui/platform/Application.h>
#include <moxui/platform/ModalResponder.h>
#include <moxui/skins/Theme.h>
#include <moxui/ui/NodeTree.h>

#include <memory>

namespace moxui::dialogs::messagebox {
namespace {

using moxcore::utility::MakeIntrusive;

unsigned RunBox(platform::Application& application, MessageBoxContent const& content,
                WindowVariant const& parent) {
  std::unique_ptr<platform::Window> window;
  auto const view = MakeIntrusive<MessageBoxView>(
      content, [&window](unsigned answer) { window->EndModal(static_cast<int>(answer)); });
  window = application.CreateWindow({.title = content.title,
                                     .size = view->GetPreferredExtent(),
                                     .background = ui::GetColor(ui::ThemeColorID::kTabBackground),
                                     .parent = parent.GetWindow(),
                                     .isDialog = true,
                                     .isResizable = false});
  window->GetTree().SetRoot(view);
  view->FocusDefaultButton();
  int const answer = window->RunModal(static_cast<int>(GetCancelAnswer(content.buttons)));
  window->GetTree().SetRoot(nullptr);
  return static_cast<unsigned>(answer);
}

}  // namespace

unsigned Messagebox(scriber::SupplierInterface const*, moxcore::Utf16String const& title,
                    moxcore::Utf16String const& text, unsigned buttons, unsigned defaultButton,
                    MessageIcon icon, WindowVariant const& window) {
  platform::ModalRequest request;
  request.kind = platform::ModalKind::kMessageBox;
  request.title = title;
  request.text = text;
  request.buttons = buttons;
  request.defaultAnswer = static_cast<int>(defaultButton);
  if (auto const answer = platform::AskModalResponder(request)) {
    return static_cast<unsigned>(*answer);
  }
  platform::Application* const application = platform::Application::Get();
  if (application == nullptr) {
    return GetCancelAnswer(buttons);
  }
  return RunBox(
      *application,
      {.title = title, .text = text, .buttons = buttons, .defaultButton = defaultButton, .icon = icon},
      window);
}

void ShowStop(scriber::SupplierInterface const* supplier, moxcore::Utf16String const& title,
              moxcore::Utf16String const& text, WindowVariant const& window) {
  Messagebox(supplier, title, text, DialogButton::kOk, DialogButton::kOk, MessageIcon::kStop, window);
}

}  // namespace moxui::dialogs::messagebox
