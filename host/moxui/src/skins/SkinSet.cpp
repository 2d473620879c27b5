#include <moxui/skins/Look.h>
#include <moxui/skins/SkinSet.h>

#include <array>
#include <cstddef>

namespace moxui::skins {
namespace {

struct NumberOfLooks {
  SkinNumber number;
  float classic;
  float v7;
};

constexpr std::array<NumberOfLooks, static_cast<std::size_t>(SkinNumber::kCount)> kNumbers = {{
    {SkinNumber::kControlHeight, 20.0f, 24.0f},
    {SkinNumber::kCornerRadius, 2.0f, 4.0f},
    {SkinNumber::kCheckSize, 14.0f, 16.0f},
    {SkinNumber::kRadioSize, 14.0f, 16.0f},
    {SkinNumber::kTextEditHeight, 20.0f, 24.0f},
    {SkinNumber::kPopupHeight, 19.0f, 24.0f},
    {SkinNumber::kTextInset, 6.0f, 8.0f},
    {SkinNumber::kTreeRowHeight, 20.0f, 28.0f},
    {SkinNumber::kTreeHeaderHeight, 20.0f, 24.0f},
    {SkinNumber::kCellPadding, 0.0f, 8.0f},
    {SkinNumber::kCellTextLeftInset, 6.0f, 8.0f},
    {SkinNumber::kCellTextFontSize, 11.0f, 12.0f},
    {SkinNumber::kScrollBarThickness, 12.0f, 12.0f},
    {SkinNumber::kSliderThumbSize, 11.0f, 14.0f},
}};

}  // namespace

SkinSet const& SkinSet::Get() {
  return Get(IsRunningV7OrBeyond());
}

SkinSet const& SkinSet::Get(bool v7OrBeyond) {
  static constexpr SkinSet kClassic(false);
  static constexpr SkinSet kV7(true);
  return v7OrBeyond ? kV7 : kClassic;
}

float SkinSet::GetNumber(SkinNumber number) const {
  for (NumberOfLooks const& entry : kNumbers) {
    if (entry.number == number) {
      return mIsV7 ? entry.v7 : entry.classic;
    }
  }
  return 0.0f;
}

}  // namespace moxui::skins
