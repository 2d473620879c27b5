#include "ModalRun.h"

#include <moxui/platform/Application.h>
#include <moxui/skins/Theme.h>
#include <moxui/ui/NodeTree.h>

#include <utility>

namespace moxui::dialogs {

ModalRun::ModalRun(moxcore::utility::IntrusivePtr<ui::UI_Node> root) : mRoot(std::move(root)) {}
ModalRun::~ModalRun() {
  CloseWindow();
}

int ModalRun::Run(platform::ModalRequest request, ModalWindow const& modalWindow, int closeAnswer) {
  CloseWindow();
  mAnswer.reset();
  request.content = mRoot.Get();
  if (auto const answer = platform::AskModalResponder(request)) {
    return mAnswer.value_or(*answer);
  }
  platform::Application* const application = platform::Application::Get();
  if (application == nullptr) {
    return closeAnswer;
  }
  mWindow = application->CreateWindow({.title = request.title,
                                       .size = modalWindow.size,
                                       .background = ui::GetColor(ui::ThemeColorID::kTabBackground),
                                       .parent = modalWindow.parent.GetWindow(),
                                       .isDialog = true,
                                       .isResizable = modalWindow.isResizable});
  if (modalWindow.isResizable) {
    mWindow->SetMinimumSize(modalWindow.minimumSize);
  }
  mWindow->GetTree().SetRoot(mRoot);
  if (request.opened) {
    request.opened();
  }
  return mWindow->RunModal(closeAnswer);
}

void ModalRun::CloseWindow() {
  if (mWindow) {
    mWindow->GetTree().SetRoot(nullptr);
    mWindow.reset();
  }
}

void ModalRun::End(int answer) {
  if (mAnswer) {
    return;
  }
  mAnswer = answer;
  if (mWindow) {
    mWindow->EndModal(answer);
  }
}

}  // namespace moxui::dialogs
