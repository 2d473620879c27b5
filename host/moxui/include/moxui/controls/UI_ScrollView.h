#pragma once

#include <moxcore/messaging/Connection.h>
#include <moxcore/messaging/Message.h>
#include <moxui/controls/ControlListeners.h>
#include <moxui/controls/FocusVisibility.h>
#include <moxui/controls/UI_ScrollBar.h>
#include <moxui/ui/UI_SubView.h>

#include <optional>

namespace moxui::controls {

/// Bits of a scroll view's style. Bars show when they are needed.
namespace ScrollViewStyle {
inline constexpr unsigned kHorizontalBar = 4;
inline constexpr unsigned kVerticalBar = 8;
/// The content is as wide as what is seen: no sideways scrolling.
inline constexpr unsigned kFitContentWidth = 256;
}  // namespace ScrollViewStyle

class UI_ScrollView;

/// What is seen of a scroll view's content has changed.
class UI_ScrolledMessage : public moxcore::messaging::Message {
 public:
  explicit UI_ScrolledMessage(UI_ScrollView& scrollView) : mScrollView(scrollView) {}
  UI_ScrollView& GetScrollView() const { return mScrollView; }

 private:
  UI_ScrollView& mScrollView;
};

/// A window onto a larger view, moved by bars, wheel and keys, for which it takes the focus if nobody inside
/// does. The content view, which is clipped, holds the
/// given view as its child; what can be seen is the content view's extent. That extent is the one handed to
/// SetContentRect, else as large as the children of the content view.
class UI_ScrollView : public ui::UI_SubView {
 public:
  UI_ScrollView(moxcore::utility::IntrusivePtr<ui::UI_Node> content, unsigned style);
  ~UI_ScrollView() override;

  moxcore::utility::IntrusivePtr<ui::UI_SubView> const& GetContentView() const { return mContentView; }

  /// The scroll view's own rectangle, in its parent's coordinates.
  void SetViewRect(RectT<float> const& rect);
  /// The extent of the content; the position is the scroll view's matter.
  void SetContentRect(RectT<float> const& rect);
  /// Works out bars and offsets anew, after content has changed.
  void Update();

  /// What is seen, in the content view's coordinates.
  RectT<float> GetViewedRect() const;
  /// Held to what can be seen; what isn't a number is 0.
  void ScrollTo(PointT<float> offset);
  /// Moves no further than needed, or with `alignTop` until the rectangle's top is at the top, if the content
  /// reaches so far. The rectangle is in the content view's coordinates.
  void ScrollIntoView(RectT<float> const& rect, bool alignTop);

  /// What is scrolled, for assistive software.
  void SetAccessibleName(moxcore::Utf8String name);

  /// Null when the style has none. A bar that isn't needed is hidden.
  UI_ScrollBar* GetScrollBarX() const { return mBarX.Get(); }
  UI_ScrollBar* GetScrollBarY() const { return mBarY.Get(); }
  /// Hears UI_ScrolledMessage after each change of what is seen.
  moxcore::messaging::Connection NotifyWhenScrolled(MessageHandler function);

  void UI_SizeChanged(RectT<float> const& rect) override;
  bool UI_DoPointerEvent(ui::UI_Node* node, ui::PointerEvent const& event) override;
  bool UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override;
  /// While there is more than is seen and nothing inside takes the focus: keys scroll it then.
  bool UI_WantsKeyboardFocus() const override;
  void UI_FocusChanged(ui::FocusChangeReason reason) override;
  bool UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) override;
  void UI_Draw(scriber::Scriber* scriber) const override;
  ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;
  void UI_RevealDescendant(ui::UI_Node const& node) override;
  void UI_LayoutChildren() override;
  void UI_SkinSetUpdated() override;

 protected:
  /// What is seen has changed.
  virtual void Scrolled();

 private:
  ExtentT<float> ContentExtent(float viewedWidth) const;
  RectT<float> ViewedArea() const;
  void BarMoved(moxcore::messaging::Message* message);

  moxcore::utility::IntrusivePtr<ui::UI_SubView> mClipView;
  moxcore::utility::IntrusivePtr<ui::UI_SubView> mContentView;
  moxcore::utility::IntrusivePtr<UI_ScrollBar> mBarX;
  moxcore::utility::IntrusivePtr<UI_ScrollBar> mBarY;
  std::optional<ExtentT<float>> mGivenExtent;
  PointT<float> mOffset;
  unsigned mStyle;
  ControlListeners mScrollListeners;
  FocusVisibility mFocusVisibility;
  moxcore::Utf8String mAccessibleName;
};

}  // namespace moxui::controls
