#pragma once

#include <string_view>

namespace moxui::skins {

/// Sizes of stock controls that depend on the look, in logical pixels.
enum class SkinNumber {
  kControlHeight = 0,
  kCornerRadius,
  kCheckSize,
  kRadioSize,
  kTextEditHeight,
  kPopupHeight,
  kTextInset,  ///< from the edge of a box to the text in it
  kTreeRowHeight,
  kTreeHeaderHeight,
  kCellPadding,
  kCellTextLeftInset,
  kCellTextFontSize,
  kScrollBarThickness,
  kSliderThumbSize,
  kCount
};

/// One look of the stock controls: its sizes, and which of the painters' two ways applies. Constant data that
/// lives as long as the process.
class SkinSet {
 public:
  explicit constexpr SkinSet(bool isV7) : mIsV7(isV7) {}

  /// The set of the running look.
  static SkinSet const& Get();
  static SkinSet const& Get(bool v7OrBeyond);

  bool IsV7OrBeyond() const { return mIsV7; }
  std::string_view GetName() const { return mIsV7 ? "V7" : "Classic"; }
  float GetNumber(SkinNumber number) const;

 private:
  bool mIsV7;
};

}  // namespace moxui::skins
