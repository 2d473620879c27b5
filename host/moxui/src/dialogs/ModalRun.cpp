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

namespace {

class RunningMark {
 public:
  explicit RunningMark(std::shared_ptr<bool> isRunning) : mIsRunning(std::move(isRunning)) {
    *mIsRunning = true;
  }
  ~RunningMark() { *mIsRunning = false; }
  RunningMark(RunningMark const&) = delete;
  RunningMark& operator=(RunningMark const&) = delete;

 private:
  std::shared_ptr<bool> mIsRunning;
};

}  // namespace

int ModalRun::Run(platform::ModalRequest request, ModalWindow const& modalWindow, int closeAnswer) {
  if (IsRunning()) {
    return closeAnswer;
  }
  RunningMark const mark(mIsRunning);
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
  // Handlers that opening called may have answered already, and no loop would end for that again.
  if (mAnswer || !mWindow) {
    return mAnswer.value_or(closeAnswer);
  }
  // From here on a handler may end this, too.
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
