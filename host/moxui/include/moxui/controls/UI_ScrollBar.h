#pragma once

#include <moxui/controls/ControlTypes.h>
#include <moxui/controls/UI_InteractiveControlView.h>

#include <optional>

namespace moxui::controls {

/// A bar whose thumb shows which part of something longer is seen. Dragging the thumb sends interactive
/// phases; a press beside it moves by what is seen, again and again while held, up to the pointer. Lengths
/// are logical pixels along the bar.
class UI_ScrollBar : public UI_InteractiveControlView {
 public:
  explicit UI_ScrollBar(Orientation orientation);
  ~UI_ScrollBar() override;

  /// How wide a bar is, by the running look.
  static float GetThickness();

  // Silent, clamped; what isn't a number is 0.
  void SetLengths(float content, float viewed);
  void SetOffset(float offset);
  float GetOffset() const { return mOffset; }
  float GetMaximumOffset() const;
  /// Whether there is more than is seen.
  bool IsNeeded() const { return GetMaximumOffset() > 0.0f; }

  /// In own coordinates; empty when there is nothing to scroll.
  RectT<float> GetThumbRect() const;

  void UI_Draw(scriber::Scriber* scriber) const override;
  ExtentT<float> UI_GetRecommendedSize(scriber::Scriber* scriber) const override;
  bool UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) override;
  bool UI_DoTimerNotify(int id) override;
  bool UI_InvalidateOnMouseOverChange(bool over) override;
  ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;
  std::optional<ui::AccessibleRange> UI_GetAccessibleRange() const override;
  bool UI_SetAccessibleValue(double value) override;

 private:
  float Length() const;
  float ThumbLength() const;
  float Along(PointT<float> point) const;
  void StoreByUser(float offset);
  void Press(ui::MouseEvent const& event);
  void PointerMoved(ui::MouseEvent const& event);
  void PressEnded(bool cancelled);
  void PageTowardsPointer();

  Orientation mOrientation;
  float mContent = 0.0f;
  float mViewed = 0.0f;
  float mOffset = 0.0f;
  float mOffsetAtPress = 0.0f;
  float mGrab = 0.0f;
  float mPointer = 0.0f;
  int mRepeatTimer;
  bool mDragsThumb = false;
  bool mIsRepeating = false;
};

}  // namespace moxui::controls
