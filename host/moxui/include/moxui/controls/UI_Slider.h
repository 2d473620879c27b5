#pragma once

#include <moxui/controls/ControlTypes.h>
#include <moxui/controls/FocusVisibility.h>
#include <moxui/controls/UI_Button.h>
#include <moxui/controls/UI_InteractiveControlView.h>

#include <optional>
#include <utility>

namespace moxui::ui {
class InputCapture;
}

namespace moxui::controls {

class PressCapture;

/// Plain: a track and a thumb. Ticked: with marks along it. Bare: draws nothing itself; a subclass does.
enum class SliderStyle { kPlain = 0, kTicked = 1, kBare = 2 };

/// A value between two ends, set by dragging a thumb along a track. A press on the track jumps there and
/// drags on; Escape and a lost capture bring back the value of the press. Arrow keys move by a step (Shift:
/// ten times, command: a tenth), Page Up and Page Down by a page, Home and End to the ends. The value may be
/// a span, low to high, as that of several things; the thumb stands at its low end.
///
/// Each gesture and each key sends interactive phases, and once a settled change.
template <typename T>
class UI_SliderT : public UI_InteractiveControlView {
 public:
  explicit UI_SliderT(SliderStyle style = SliderStyle::kPlain,
                      Orientation orientation = Orientation::kHorizontal);
  ~UI_SliderT() override;

  // Value. Setters are silent, clamp to the limits and make the value known.
  // Values that aren't finite are ignored, as a pair if one of two isn't.
  /// 0 and 1 at first.
  void SetLimits(T minimum, T maximum);
  T GetMinimum() const { return mMinimum; }
  T GetMaximum() const { return mMaximum; }
  void SetValue(T value) { SetValueRange(value, value); }
  T GetValue() const { return mLow; }
  void SetValueRange(T low, T high);
  std::pair<T, T> GetValueRange() const { return {mLow, mHigh}; }

  /// What an arrow key moves; a hundredth of the span between the limits at first.
  void SetStepSize(T step) { mStep = step; }
  /// What Page Up and Page Down move; a tenth of the span at first.
  void SetPageSize(T page) { mPage = page; }

  // Thumb
  /// Whether the thumb is a child (InstallSliderThumb) rather than drawn by the slider.
  void SetIsCustomThumb(bool isCustom);
  /// The button is shown as a child and follows the value. It should leave pointer events to the slider.
  /// Where it isn't a custom thumb, the slider draws its own beneath while the button is shown.
  void InstallSliderThumb(moxcore::utility::IntrusivePtr<UI_Button> thumb);
  UI_Button* GetSliderThumb() const { return mThumb.Get(); }
  void SetThumbSize(float width, float height);
  ExtentT<float> GetThumbSize() const;
  /// Whether the ends of the track are the values' ends, rather than half a thumb inside of them.
  void SetDrawTrackUseFullWidth(bool fullWidth);
  /// Whether `capture`, which may be null, is this slider's drag.
  bool IsSliderThumbCaptured(ui::InputCapture const* capture) const;

  /// Geometry, in own coordinates: painting, hit testing and dragging all use it.
  class LayoutParameters {
   public:
    LayoutParameters(RectT<float> rect, RectT<float> track, RectT<float> thumb)
        : mRect(rect), mTrack(track), mThumb(thumb) {}
    /// The slider's own rectangle.
    RectT<float> const& GetRectF() const { return mRect; }
    /// From the thumb's centre at one end to that at the other, along the axis.
    RectT<float> const& GetTrackRect() const { return mTrack; }
    RectT<float> const& GetThumbRect() const { return mThumb; }

   private:
    RectT<float> mRect;
    RectT<float> mTrack;
    RectT<float> mThumb;
  };
  struct DrawParameters : LayoutParameters {
    using LayoutParameters::LayoutParameters;
  };
  DrawParameters GetDrawParameters() const;

  void UI_Draw(scriber::Scriber* scriber) const override;
  PaddingT<float> UI_GetDrawOverhang() const override;
  ExtentT<float> UI_GetRecommendedSize(scriber::Scriber* scriber) const override;
  void UI_SizeChanged(RectT<float> const& rect) override;
  void UI_SkinSetUpdated() override;
  bool UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) override;
  bool UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override;
  void UI_FocusChanged(ui::FocusChangeReason reason) override;
  bool UI_InvalidateOnMouseOverChange(bool over) override;
  ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;
  std::optional<ui::AccessibleRange> UI_GetAccessibleRange() const override;
  bool UI_SetAccessibleValue(double value) override;

 protected:
  /// The value is another one, or is known where it wasn't, whoever has set it.
  virtual void ValueStored() {}

 private:
  double Fraction() const;
  double FractionOf(T value) const;
  T ValueAt(double fraction) const;
  double FractionAt(PointT<float> point) const;
  double PlainStep() const;
  T StepOf(ui::KeyboardEvent const& event) const;
  void PlaceThumb();
  /// Where the parts lie has changed, though not the value.
  void LayoutChanged();
  void BeginDrag(PointT<float> point, ui::MouseEvent const& event);
  void ContinueDrag(ui::MouseEvent const& event);
  void CancelDrag();
  void StoreByUser(T low, T high);
  /// A change by the user that is settled at once.
  void ChangeAtOnce(T value);

  T mMinimum = 0;
  T mMaximum = 1;
  T mLow = 0;
  T mHigh = 0;
  T mStep = 0;
  T mPage = 0;
  SliderStyle mStyle;
  Orientation mOrientation;
  ExtentT<float> mThumbSize;
  moxcore::utility::IntrusivePtr<UI_Button> mThumb;
  moxcore::utility::IntrusivePtr<PressCapture> mCapture;
  std::pair<T, T> mValueAtPress;
  float mGrabOffset = 0.0f;
  FocusVisibility mFocusVisibility;
  bool mIsCustomThumb = false;
  bool mTrackUsesFullWidth = false;
  bool mWasUnknownAtPress = false;
};

using UI_Slider = UI_SliderT<double>;

extern template class UI_SliderT<double>;

}  // namespace moxui::controls
