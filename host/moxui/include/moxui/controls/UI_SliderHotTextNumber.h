#pragma once

#include <moxui/controls/UI_HotTextNumber.h>
#include <moxui/controls/UI_Slider.h>
#include <moxui/controls/UI_StaticText.h>

namespace moxui::controls {

/// A slider with a hot number at its end: two ways to one value. The slider runs through the extent; the
/// number goes beyond it where a client gives it a wider range, and the thumb then stands at the slider's
/// end. A drag of the thumb gives values as the number shows them, rounded to its decimal places; arrow keys
/// on the slider move by the number's increment.
///
/// Listeners hear of both as of one control: a drag and each key send interactive phases, and once a settled
/// change; a typed entry sends a settled change.
class UI_SliderHotTextNumber : public UI_InteractiveControlView {
 public:
  UI_SliderHotTextNumber();
  ~UI_SliderHotTextNumber() override;
  /// Joins slider and number and shows them; nothing is shown before. Once is enough.
  void Init();

  moxcore::utility::IntrusivePtr<UI_Slider> GetSlider() const;
  moxcore::utility::IntrusivePtr<UI_HotTextNumber> GetHotTextNumber() const;

  // Value: that of the number. Setters are silent and make it known, whichever of the three they belong to.
  void SetValue(double value);
  double GetValue() const;
  void SetValueUnknown() override;
  /// The slider's ends, and the number's range until a client sets another one there. What isn't finite is
  /// ignored, as a pair.
  void SetExtent(double minimum, double maximum);

  // Appearance
  /// The ends as small texts below the slider; on at first.
  void ShowExtentLabels(bool show);
  /// On at first; off, the slider takes the whole width.
  void SetHotTextVisibility(bool visible);
  /// Whether the number stays where a client puts it, off at first; else it stands at the control's far end,
  /// as wide as the longest number of its range.
  void SetAllowHotTextManualPlacement(bool allow);
  /// Whether the thumb stays at the slider's end while the value is beyond the extent, as at first, rather
  /// than being hidden.
  void ShowSliderThumbOutsideBounds(bool show);
  /// The slider's corner from which lines begin, from that of the control; (0, 0) at first.
  void SetSliderLocation(PointT<float> location);
  /// The slider's height; that of a control of the look at first, and below 0.
  void SetSliderThickness(float thickness);

  ExtentT<float> UI_GetRecommendedSize(scriber::Scriber* scriber) const override;
  void UI_SizeChanged(RectT<float> const& rect) override;
  void UI_SkinSetUpdated() override;
  void UI_LayoutChildren() override;
  bool UI_DoPreKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override;
  ui::AccessibleRole UI_GetAccessibleRole() const override;

 private:
  class SharedSlider;
  class SharedNumber;

  void SliderChanged();
  void NumberChanged();
  void PartChanging(UI_InteractiveControlChangedMessage& message);
  void PartChanged(UI_ControlChangedMessage& message);
  void TakeBack();
  void UpdateThumb();
  void UpdateLabels();
  float GetThickness() const;
  float GetNumberWidth() const;
  void Arrange();
  RectT<float> Mirrored(RectT<float> rect) const;

  moxcore::utility::IntrusivePtr<SharedSlider> mSlider;
  moxcore::utility::IntrusivePtr<SharedNumber> mNumber;
  moxcore::utility::IntrusivePtr<UI_StaticText> mLowLabel;
  moxcore::utility::IntrusivePtr<UI_StaticText> mHighLabel;
  PointT<float> mSliderLocation;
  float mSliderThickness = -1.0f;
  double mValueAtBegin = 0.0;
  bool mWasUnknownAtBegin = false;
  bool mShowsLabels = true;
  bool mShowsNumber = true;
  bool mAllowsManualPlacement = false;
  bool mShowsThumbOutside = true;
  bool mIsSharing = false;
  bool mIsSettling = false;  ///< a finish or cancel was told, and the part's settled change comes next
};

}  // namespace moxui::controls
