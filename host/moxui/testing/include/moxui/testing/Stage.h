#pragma once

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/platform/PaintTarget.h>
#include <moxui/ui/DragData.h>
#include <moxui/ui/KeyboardCode.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/NodeTreeHost.h>
#include <moxui/ui/UI_SubView.h>

#include <memory>
#include <string>
#include <string_view>

namespace moxui::ui {
class UI_SubView;
}

namespace moxui::testing {

/// A node tree without a window, driven as a user would drive it. Points are logical pixels in the tree; time
/// stands still until AdvanceTime. A stage is active at first, and paints nothing by itself: TakePicture and
/// PaintFrame do.
class Stage : public ui::NodeTreeHost {
 public:
  explicit Stage(ExtentT<float> size = {400, 300});
  /// A stage that shows `root` in its own extent.
  explicit Stage(moxcore::utility::IntrusivePtr<ui::UI_Node> root);
  ~Stage() override;

  ui::NodeTree& GetTree() { return *mTree; }
  ui::UI_Node* GetRoot() const { return mTree->GetRoot(); }
  /// The view that a stage of a size has as its root.
  ui::UI_SubView& GetRootView() const;

  // The pointer. Each goes where it says first, as a hand would; buttons and modifiers stay as they are set.
  /// Modifiers of all that follows.
  void SetModKeys(ui::ModKeys modKeys) { mModKeys = modKeys; }
  /// Mouse (at first), finger or pen.
  void SetPointerSubType(ui::PointerSubType subType) { mSubType = subType; }
  bool Move(PointT<float> point);
  bool Press(PointT<float> point, ui::MouseButton button = ui::MouseButton::kLeft);
  bool Release(PointT<float> point, ui::MouseButton button = ui::MouseButton::kLeft);
  void Click(PointT<float> point, ui::MouseButton button = ui::MouseButton::kLeft);
  void DoubleClick(PointT<float> point, ui::MouseButton button = ui::MouseButton::kLeft);
  /// Press, so many moves on the straight way, release.
  void Drag(PointT<float> from, PointT<float> to, int moves = 4,
            ui::MouseButton button = ui::MouseButton::kLeft);
  bool Wheel(PointT<float> point, PointT<float> distance);
  void Leave();
  /// The hand goes so far from where the pointer is; the pointer stops at the screen's edge.
  bool MoveBy(PointT<float> distance);
  /// Where the pointer is.
  bool ReleaseHere(ui::MouseButton button = ui::MouseButton::kLeft);
  /// As after a loop of the platform that swallowed the releases: no button is down any more.
  void ForgetButtons() { mButtons = {}; }
  /// The middle of a node, in the tree's coordinates.
  PointT<float> CenterOf(ui::UI_Node const& node) const;

  // The keyboard
  /// Down and up; true when a node took the down.
  bool Key(ui::KeyboardCode code, ui::ModKeys modKeys = {});
  /// Each character as a key of its own.
  void Type(std::u16string_view text);
  bool Tab(bool backward = false);

  // Drag and drop from outside: enter and over, then drop (or leave); gives the effect.
  int DragOver(PointT<float> point, ui::TransferData const& data, int proposedEffect);
  int Drop(PointT<float> point, ui::TransferData const& data, int proposedEffect);
  void DragAway(ui::TransferData const& data);

  // The window's part
  void Deactivate() { mTree->SetActive(false); }
  void Activate() { mTree->SetActive(true); }
  void SetScale(float scale);
  void SetOrigin(PointT<float> origin) { mOrigin = origin; }
  /// The part of the desktop that the pointer is in, with edges that stop it; none at first.
  void SetScreen(RectT<float> const& screen) { mScreen = screen; }
  /// Whether the program can put the pointer elsewhere; at first it can.
  void SetCanPlacePointer(bool can) { mCanPlacePointer = can; }

  /// Lets time pass: timers and tool tips fire in order, at their times. Advances moxcore's clock too.
  void AdvanceTime(double milliseconds);
  bool FrameRequested() const { return mFrameRequested; }
  int FrameRequestCount() const { return mFrameRequestCount; }
  std::string const& GetShownToolTip() const { return mToolTip; }
  PointT<float> GetToolTipPosition() const { return mToolTipPosition; }
  int CursorResetCount() const { return mCursorResetCount; }

  // Pictures
  void SetBackground(ColorRGBA const& colour) { mBackground = colour; }
  /// Lays out and paints what waits, on the stage's own picture, as a window does.
  void PaintFrame();
  /// Lays out and paints everything anew at a scale.
  platform::Pixels TakePicture(float scale = 1);
  /// The picture that PaintFrame has been painting on.
  platform::Pixels GetFramePixels();

  // ui::NodeTreeHost
  void RequestFrame() override;
  void PaintNow() override { PaintFrame(); }
  void RequestWakeUp(double time) override { mWakeUp = time; }
  double GetTime() const override { return mTime; }
  PointT<float> GetOrigin() const override { return mOrigin; }
  float GetScale() const override { return mScale; }
  PointT<float> GetPointerPosition() const override { return mPointer + mOrigin; }
  void SetPointerPosition(PointT<float> position) override;
  RectT<float> GetPointerBounds() const override { return mScreen; }
  ui::ModKeys GetModKeys() const override { return mModKeys; }
  ui::MouseButtons GetMouseButtons() const override { return mButtons; }
  void ResetCursor() override { ++mCursorResetCount; }
  void ShowToolTip(std::string_view text, PointT<float> position) override;

 private:
  /// Moxcore's clock while the stage lives: stands with the stage's.
  class Clock;
  bool Send(ui::PointerAction action, PointT<float> point, ui::MouseButton button, PointT<float> wheel = {});

  double mTime = 1000;
  double mWakeUp = -1;
  float mScale = 1;
  PointT<float> mOrigin;
  RectT<float> mScreen;
  bool mCanPlacePointer = true;
  PointT<float> mPointer;
  ui::ModKeys mModKeys;
  ui::MouseButtons mButtons;
  ui::PointerSubType mSubType = ui::PointerSubType::kMouse;
  ColorRGBA mBackground{0, 0, 0, 1};
  bool mFrameRequested = false;
  int mFrameRequestCount = 0;
  int mCursorResetCount = 0;
  std::string mToolTip;
  PointT<float> mToolTipPosition;
  std::unique_ptr<platform::PaintTarget> mTarget;
  std::unique_ptr<Clock> mClock;
  std::unique_ptr<ui::NodeTree> mTree;
};

}  // namespace moxui::testing
