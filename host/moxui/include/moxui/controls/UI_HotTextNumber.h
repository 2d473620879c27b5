#pragma once

#include <moxui/controls/NumberFormat.h>
#include <moxui/controls/ScrubMotion.h>
#include <moxui/controls/UI_HotText.h>

#include <limits>
#include <optional>

namespace moxui::controls {

/// A number as hot text: dragged to move it by an increment for each pixel to the right or upward, clicked to
/// be typed, stepped by arrow keys. With Shift it moves by the shift increment, with command by that of
/// command. While it is dragged the pointer is hidden, and comes back to where it was pressed.
///
/// The value lies in a range and is kept in full: places round what is shown only. A drag and each key send
/// interactive phases, and once a settled change; a typed entry sends a settled change. A text that can't be
/// read leaves the value as it was, one beyond the range gives the nearest end.
class UI_HotTextNumber : public UI_HotText {
 public:
  UI_HotTextNumber();
  ~UI_HotTextNumber() override;

  // Value. Setters are silent, hold to the range and make the value known; what isn't finite is ignored.
  void SetValue(double value);
  double GetValue() const { return mValue; }
  /// The range is all that a double holds at first. Of crossed ends the one set last counts.
  void SetMinValue(double minimum);
  double GetMinValue() const { return mRange.minimum; }
  void SetMaxValue(double maximum);
  double GetMaxValue() const { return mRange.maximum; }

  // Steps of a pixel or an arrow key: 1, 10 and 0.1 at first.
  void SetIncrement(double increment);
  double GetIncrement() const { return mIncrement; }
  void SetShiftIncrement(double increment);
  double GetShiftIncrement() const { return mShiftIncrement; }
  void SetCmdIncrement(double increment);
  double GetCmdIncrement() const { return mCmdIncrement; }

  // How it is shown; see NumberFormat.
  void SetDecimalPlaces(int places);
  int GetDecimalPlaces() const { return mFormat.decimalPlaces; }
  void SetFormatAlwaysSign(bool on);
  void SetFormatLeadingSpaces(bool on);
  void SetFormatNoLocalization(bool on);
  void SetFormatNoTrailingZeros(bool on);
  void SetFormatNormal(bool on);
  void SetFormatPadSign(bool on);
  void SetFormatUseSeparator(bool on);
  NumberFormat const& GetFormat() const { return mFormat; }

  /// As if typed, but silently.
  void SetText(moxcore::Utf16String const& text) override;
  moxcore::Utf16String GetText() const override;

  ui::AccessibleRole UI_GetAccessibleRole() const override;
  std::optional<ui::AccessibleRange> UI_GetAccessibleRange() const override;
  bool UI_SetAccessibleValue(double value) override;

 protected:
  moxcore::Utf16String GetTextToEdit() const override;
  bool TakeTypedText(moxcore::Utf16String const& text) override;
  bool OpensEditFor(ui::KeyboardEvent const& event) const override;
  bool CanDrag() const override { return true; }
  void BeginDrag(ui::MouseEvent const& event) override;
  void DragTo(ui::MouseEvent const& event) override;
  bool EndDrag(bool cancelled) override;
  bool DoValueKey(ui::KeyboardEvent const& event) override;

 private:
  template <typename T>
  void StoreFormat(T NumberFormat::*field, T value);
  double Held(double value) const;
  bool Store(double value);
  void StoreByUser(double value);
  /// A change by the user that is settled at once.
  void ChangeAtOnce(double value);
  double IncrementFor(ui::ModKeys modKeys) const;
  void ShowPointer(bool show);

  double mValue = 0.0;
  NumberRange mRange{.minimum = std::numeric_limits<double>::lowest(),
                     .maximum = std::numeric_limits<double>::max()};
  double mIncrement = 1.0;
  double mShiftIncrement = 10.0;
  double mCmdIncrement = 0.1;
  NumberFormat mFormat;
  ScrubMotion mMotion;
  double mValueAtPress = 0.0;
  PointT<float> mPressPlace;  ///< on the desktop
  bool mWasUnknownAtPress = false;
  bool mPointerIsHidden = false;
};

}  // namespace moxui::controls
