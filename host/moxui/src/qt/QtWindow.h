#pragma once

#include <moxui/platform/Window.h>
#include <moxui/scriber/ScriberTypes.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/NodeTreeHost.h>

#include <QEventLoop>
#include <QImage>
#include <QTimer>
#include <memory>
#include <optional>

namespace moxui::qt {

class QtApplication;
class WindowWidget;

/// A window over a QWidget: hands its input to the tree, and keeps the painted picture, of which only what is
/// damaged is painted anew.
class QtWindow final : public platform::Window, public ui::NodeTreeHost {
 public:
  QtWindow(QtApplication& application, platform::WindowOptions const& options);
  /// A handler of the window may end it.
  ~QtWindow() override;

  WindowWidget& GetWidget() { return *mWidget; }
  QImage const& GetPicture() const { return mPicture; }
  ui::NodeTree* FindTree() const { return mTree.get(); }

  // For the widget
  QtApplication& GetApplication() const { return mApplication; }
  void Resized();
  /// True when the window may close.
  bool CloseRequested();

  // platform::Window
  ui::NodeTree& GetTree() override { return *mTree; }
  void Show() override;
  void Hide() override;
  bool IsShown() const override;
  void SetTitle(moxcore::Utf16String const& title) override;
  void SetSize(ExtentT<float> size) override;
  void SetMinimumSize(ExtentT<float> size) override;
  void SetCloseFunction(CloseFunction function) override { mCloseFunction = std::move(function); }
  int RunModal(int closeAnswer) override;
  void EndModal(int answer) override;
  void SetBackground(ColorRGBA const& colour) override;
  void SetIcon(scriber::ImageInterface const& icon) override;
  void SetPosition(PointT<float> position) override;
  PointT<float> GetPosition() const override;
  void Activate() override;
  bool IsActive() const override;
  bool IsMaximized() const override;
  void SetMaximized(bool maximized) override;
  void SetZoom(float zoom) override;
  void* GetNativeHandle() const override;

  // ui::NodeTreeHost
  void RequestFrame() override;
  void PaintNow() override;
  void RequestWakeUp(double time) override;
  double GetTime() const override;
  PointT<float> GetOrigin() const override;
  float GetZoom() const override { return mZoom; }
  float GetScale() const override;
  PointT<float> GetPointerPosition() const override;
  void SetPointerPosition(PointT<float> position) override;
  RectT<float> GetPointerBounds() const override;
  ui::ModKeys GetModKeys() const override;
  ui::MouseButtons GetMouseButtons() const override;
  ui::ClickLimits GetClickLimits() const override;
  void ResetCursor() override;
  void ShowToolTip(std::string_view text, PointT<float> position) override;
  void FocusMoved() override;
  void ResetTextInput() override;
  void AccessibleChanged(ui::UI_Node& node, ui::AccessibleChange change) override;

 private:
  /// Lays out and paints the damage; gives what has changed on the widget.
  QRegion PaintFrame();
  void FitPicture();
  void FillBackground(RectT<float> const& rect);

  /// What outlives a window that a handler ends.
  struct Life {
    bool hasEnded = false;
    std::optional<int> answer;  ///< of the modal run
  };

  QtApplication& mApplication;
  std::shared_ptr<Life> mLife = std::make_shared<Life>();
  ColorRGBA mBackground;
  float mZoom = 1;
  CloseFunction mCloseFunction;
  QImage mPicture;
  scriber::SurfaceP mSurface;
  QTimer mFrameTimer;
  QTimer mWakeUpTimer;
  QEventLoop* mModalLoop = nullptr;
  int mModalCloseAnswer = 0;
  std::unique_ptr<WindowWidget> mWidget;
  std::unique_ptr<ui::NodeTree> mTree;
};

}  // namespace moxui::qt
