#include "ModalRun.h"

#include <moxui/dialogs/OS_Dialog.h>

#include <utility>

namespace moxui::dialogs {

OS_Dialog::OS_Dialog(moxcore::Utf16String title, WindowVariant const& parent,
                     moxcore::utility::IntrusivePtr<ui::UI_Node> root, ExtentT<float> size)
    : mTitle(std::move(title)),
      mParent(parent),
      mRoot(std::move(root)),
      mRun(std::make_unique<ModalRun>(mRoot)) {
  SetSize(size);
}

OS_Dialog::~OS_Dialog() = default;

void OS_Dialog::SetSize(ExtentT<float> size) {
  if (auto* const window = mRun->GetWindow()) {
    window->SetSize(size);  // which sizes the content
    return;
  }
  mRoot->UI_SetLocalRectF({0, 0, size.width, size.height});
}

void OS_Dialog::SetMinimumSize(ExtentT<float> size) {
  mMinimumSize = size;
  if (auto* const window = mRun->GetWindow()) {
    window->SetMinimumSize(size);
  }
}

RectT<float> OS_Dialog::GetLocalRectF() const {
  return mRoot->UI_GetLocalRectF(ui::RectSpace::kOwn);
}

int OS_Dialog::Run(int closeAnswer, std::function<void()> opened) {
  platform::ModalRequest request;
  request.kind = platform::ModalKind::kDialog;
  request.title = mTitle;
  request.opened = std::move(opened);
  return mRun->Run(
      std::move(request),
      {.parent = mParent, .size = GetLocalRectF().Extent(), .minimumSize = mMinimumSize, .isResizable = true},
      closeAnswer);
}

bool OS_Dialog::IsRunning() const {
  return mRun->IsRunning();
}

void OS_Dialog::CloseWindow() {
  mRun->CloseWindow();
}

void OS_Dialog::EndRun(int answer) {
  mRun->End(answer);
}

}  // namespace moxui::dialogs
