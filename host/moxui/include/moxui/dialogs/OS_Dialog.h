#pragma once

#include <moxcore/string/String.h>
#include <moxcore/utility/RefCountedObjectWithWeakPtr.h>
#include <moxui/dialogs/WindowVariant.h>
#include <moxui/geometry/ExtentT.h>
#include <moxui/geometry/RectT.h>
#include <moxui/ui/UI_Node.h>

#include <functional>
#include <memory>

namespace moxui::dialogs {

class ModalRun;

/// A window that opens over another one and is waited for. It exists on the desktop only while it runs; its
/// content, made before, keeps its state from run to run. The parent may end before the dialog, which then
/// opens over none. Sizes are those of the content.
class OS_Dialog : public moxcore::utility::RefCountedObjectWithWeakPtr {
 public:
  OS_Dialog(moxcore::Utf16String title, WindowVariant const& parent,
            moxcore::utility::IntrusivePtr<ui::UI_Node> root, ExtentT<float> size);
  ~OS_Dialog() override;

  moxcore::Utf16String const& GetTitle() const { return mTitle; }
  void SetSize(ExtentT<float> size);
  /// The size that the user can't go below; none at first.
  void SetMinimumSize(ExtentT<float> size);
  ExtentT<float> GetMinimumSize() const { return mMinimumSize; }
  /// (0, 0, width, height) of the content.
  RectT<float> GetLocalRectF() const;

 protected:
  bool IsRunning() const;
  /// Opens the window and waits for EndRun, or for the user to close it, which gives `closeAnswer`; `opened`
  /// is called once the content is in its window. Gives `closeAnswer` where there is no desktop, or while it
  /// is running already. The window stays, hidden, until CloseWindow.
  int Run(int closeAnswer, std::function<void()> opened);
  void CloseWindow();
  /// The first answer of a run stands. Nothing happens without one.
  void EndRun(int answer);

 private:
  moxcore::Utf16String mTitle;
  WindowVariant mParent;
  moxcore::utility::IntrusivePtr<ui::UI_Node> mRoot;
  ExtentT<float> mMinimumSize;
  std::unique_ptr<ModalRun> mRun;
};

}  // namespace moxui::dialogs
