// What a timecode field draws, and in which colours.
#include "OpenTimecodeControl.h"

#include <moxui/controls/OS_EditText.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/ThemeColors.h>
#include <moxui/testing/FailingSupplier.h>
#include <moxui/testing/RecordingSupplier.h>
#include <moxui/ui/UI_NodeManager.h>

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <string>

namespace timecode_tests {
namespace {

namespace utilities = moxui::skins::utilities;
using moxui::ColorRGBA;
using moxui::testing::RecordedCall;
using moxui::testing::RecordingSupplier;
using moxui::ui::ThemeID;
using ::testing::ElementsAre;

class DrawnField : public OneField {
 protected:
  std::vector<RecordedCall> Draw(std::string_view operation) {
    auto const surface = supplier.NewOffscreenSurface(200, 100, 1);
    supplier.Clear();
    moxmediaui::Scriber scriber(&supplier, surface.Get());
    field->UI_Draw(&scriber);
    return supplier.GetCalls(operation);
  }
  /// An image of a size, as a symbol.
  moxmediaui::ImageP Image(int width, int height) {
    mPixels.assign(static_cast<std::size_t>(4 * width * height), 0x7F);
    return supplier.NewImage(width, height, 4 * width, moxui::scriber::PixelFormat::kBGRX32, mPixels.data(),
                             {});
  }
  PointT<float> SymbolPoint() {
    auto const calls = Draw("DrawImage");
    EXPECT_EQ(calls.size(), 1u);
    return calls.empty() ? PointT<float>() : calls.front().point;
  }

  RecordingSupplier supplier;

 private:
  std::vector<std::uint8_t> mPixels;
};

TEST_F(DrawnField, SetsItsTextOnTheBaseline) {
  auto const texts = Draw("DrawText");
  ASSERT_EQ(texts.size(), 1u);
  EXPECT_EQ(texts[0].text, "00:01:00:00|Open Sans|");
  EXPECT_EQ(texts[0].point, PointT<float>(2, 17));  // 2 from the left, 7 above the bottom
  EXPECT_EQ(texts[0].mode, 0);
  EXPECT_EQ(texts[0].colour, utilities::GetInteractiveControlColor());
}

TEST_F(DrawnField, UsesTheToolkitsFontAtTwelvePointsWhateverTheTextSize) {
  field->SetTextSize(TextSize::kLargeBold, 30.0f);
  auto const fonts = Draw("NewFont");
  ASSERT_EQ(fonts.size(), 1u);
  EXPECT_EQ(fonts[0].number, 12.0f);
}

TEST_F(DrawnField, DrawsAsInterfaceContent) {
  auto const modes = Draw("SetDrawingMode");
  ASSERT_EQ(modes.size(), 1u);
  EXPECT_EQ(modes[0].mode, 1);
}

TEST_F(DrawnField, DrawsTheTextOfTheEditRatherThanTheValues) {
  field->SetTimecodeString(u"typed", true);
  EXPECT_THAT(Draw("DrawText").at(0).text, ::testing::StartsWith("typed|"));
}

TEST_F(DrawnField, LeavesTheTextToAnEditThatIsShown) {
  field->SetSymbol(Image(10, 10), true);
  field->GetTextControl()->UI_SetLocalRectF({0, 0, 100, 24});
  field->GetTextControl()->UI_Show();
  auto const texts = Draw("DrawText");
  ASSERT_EQ(texts.size(), 1u);
  EXPECT_NE(texts[0].point, PointT<float>(2, 17));
  EXPECT_NE(texts[0].colour, utilities::GetInteractiveControlColor());
  EXPECT_EQ(Draw("DrawImage").size(), 1u);
}

// An owner's colours are for an owner's own text.
TEST_F(DrawnField, DrawsInTheInteractiveColourWhateverColoursItIsGiven) {
  field->SetTime(kNoTime, false);
  field->SetCustomTextColor({1, 0, 0, 1}, false);
  field->UseCustomTextColor(true);
  field->SetUseInvalidColor(true, {0, 1, 0, 1}, false);
  field->SetAsFixed(true);
  EXPECT_EQ(Draw("DrawText").at(0).colour, utilities::GetInteractiveControlColor());
}

TEST_F(DrawnField, IsDimWhenDisabled) {
  field->UI_SetDisabled();
  EXPECT_EQ(Draw("DrawText").at(0).colour, utilities::GetDefaultTextDisabledColor());
}

TEST_F(DrawnField, ASupplierWithoutPathsIsNoMatter) {
  moxui::testing::FailingSupplier failing(supplier);
  auto const surface = failing.NewOffscreenSurface(200, 100, 1);
  moxmediaui::Scriber scriber(&failing, surface.Get());
  failing.Refuse(moxui::testing::Refusal::kPath);
  EXPECT_NO_THROW(field->UI_Draw(&scriber));
  failing.Refuse(moxui::testing::Refusal::kFont);
  EXPECT_ANY_THROW(field->UI_Draw(&scriber));
  failing.Allow(moxui::testing::Refusal::kFont);
  failing.Refuse(moxui::testing::Refusal::kBrush);
  EXPECT_ANY_THROW(field->UI_Draw(&scriber));
}

TEST_F(DrawnField, KeepsNothingOfASupplier) {
  field->SetSymbol(Image(10, 10), true);
  int const before = supplier.GetLiveObjectCount();
  Draw("DrawText");
  EXPECT_EQ(supplier.GetLiveObjectCount(), before);
}

// Symbol

struct SymbolCase {
  char const* name;
  bool onLeft;
  int horizontal;
  int vertical;
  int width;
  int height;
  PointT<float> drawn;
  RectT<float> edit;  ///< of one that was 80 by 20
};

class SymbolPlace : public DrawnField, public ::testing::WithParamInterface<SymbolCase> {};

TEST_P(SymbolPlace, IsBesideTheField) {
  SymbolCase const& place = GetParam();
  field->GetTextControl()->UI_SetLocalRectF({5, 3, 80, 20});
  field->SetHorizontalSymbolOffset(place.horizontal);
  field->SetVerticalSymbolOffset(place.vertical);
  field->SetSymbol(Image(place.width, place.height), place.onLeft);
  EXPECT_EQ(SymbolPoint(), place.drawn);
  EXPECT_EQ(field->GetTextControl()->UI_GetLocalRectF(true), place.edit);
}

// The field is 100 by 24.
INSTANTIATE_TEST_SUITE_P(
    Symbols, SymbolPlace,
    ::testing::Values(
        SymbolCase{"Left", true, 0, 0, 16, 16, {-50, 4}, {19, 0, 61, 20}},
        SymbolCase{"LeftAndOn", true, 4, 0, 16, 16, {-46, 4}, {23, 0, 57, 20}},
        SymbolCase{"LeftAndBack", true, -4, 0, 16, 16, {-50, 4}, {20, 0, 60, 20}},
        SymbolCase{"OddAndLeft", true, -4, 0, 15, 15, {-50, 5}, {18, 0, 62, 20}},
        SymbolCase{"Right", false, 0, 0, 16, 16, {100, 4}, {0, 0, 61, 20}},
        SymbolCase{"RightAndOn", false, 4, 0, 16, 16, {112, 4}, {0, 0, 57, 20}},
        SymbolCase{"RightAndBack", false, -4, 0, 16, 16, {100, 4}, {0, 0, 60, 20}},
        SymbolCase{"OddAndRight", false, 4, 0, 15, 15, {111, 5}, {0, 0, 58, 20}},
        SymbolCase{"Lower", true, 0, 3, 16, 16, {-50, 7}, {19, 0, 61, 20}},
        SymbolCase{"Higher", true, 0, -20, 16, 16, {-50, -16}, {19, 0, 61, 20}},
        SymbolCase{"OnePixelWideCountsAsOneByOne", true, 0, 0, 1, 40, {-50, 12}, {4, 0, 76, 20}},
        SymbolCase{"OnePixelHighCountsAsOneByOne", false, -1, 0, 40, 1, {100, 12}, {0, 0, 80, 20}}),
    [](auto const& test) { return test.param.name; });

TEST_F(DrawnField, PlacesASymbolOnWholePixels) {
  field->UI_SetLocalRectF({20.5f, 40.5f, 101.0f, 23.5f});
  field->SetSymbol(Image(16, 16), true);
  EXPECT_EQ(SymbolPoint(), PointT<float>(-50, 3));
  field->SetSymbol(Image(16, 16), false);
  EXPECT_EQ(SymbolPoint(), PointT<float>(101, 3));
}

TEST_F(DrawnField, DrawsASymbolOpaqueInItsOwnSize) {
  field->SetSymbol(Image(12, 10), true);
  auto const calls = Draw("DrawImage");
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].number, 1.0f);
  EXPECT_EQ(calls[0].image.width, 12);
  EXPECT_EQ(calls[0].image.height, 10);
}

TEST_F(DrawnField, ANullSymbolLeavesTheEditAsItIs) {
  field->GetTextControl()->UI_SetLocalRectF({0, 0, 80, 20});
  field->SetSymbol(Image(16, 16), true);
  field->SetSymbol(nullptr, false);
  EXPECT_TRUE(Draw("DrawImage").empty());
  EXPECT_EQ(field->GetTextControl()->UI_GetLocalRectF(true), RectT<float>(19, 0, 61, 20));
  EXPECT_EQ(field->GetTextInset(), 19);
}

// Clients rely on it: each symbol on the right adds the offset once more.
TEST_F(DrawnField, AddsTheOffsetUpOnTheRight) {
  field->SetHorizontalSymbolOffset(5);
  EXPECT_EQ(field->GetTextInset(), 5);
  field->SetSymbol(Image(16, 16), false);
  EXPECT_EQ(field->GetTextInset(), 10);
  field->SetSymbol(Image(16, 16), false);
  EXPECT_EQ(field->GetTextInset(), 15);
  field->SetSymbol(Image(16, 16), true);
  EXPECT_EQ(field->GetTextInset(), 24);
  field->SetSymbol(Image(16, 16), true);
  EXPECT_EQ(field->GetTextInset(), 24);
  field->SetHorizontalSymbolOffset(-2);
  EXPECT_EQ(field->GetTextInset(), 17);
}

TEST_F(DrawnField, AnOffsetLeavesTheEditsRectangle) {
  field->GetTextControl()->UI_SetLocalRectF({0, 0, 80, 20});
  field->SetSymbol(Image(16, 16), true);
  field->SetHorizontalSymbolOffset(7);
  EXPECT_EQ(field->GetTextControl()->UI_GetLocalRectF(true), RectT<float>(19, 0, 61, 20));
}

TEST_F(DrawnField, OffsetsOfAnySizeAreHeldToTheirRange) {
  for (int const offset : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    field->SetHorizontalSymbolOffset(offset);
    field->SetVerticalSymbolOffset(offset);
    field->SetSymbol(Image(16, 16), false);
    field->SetSymbol(Image(16, 16), false);
    field->SetSymbol(Image(16, 16), true);
    EXPECT_NO_THROW(Draw("DrawImage"));
    auto const overhang = field->UI_GetDrawOverhang();
    EXPECT_TRUE(std::isfinite(overhang.left) && std::isfinite(overhang.top));
  }
}

// A symbol lies outside of the field: what is repainted reaches that far.
TEST_F(DrawnField, ReachesAsFarAsItsSymbol) {
  field->SetSymbol(Image(16, 40), true);
  auto const left = field->UI_GetDrawOverhang();
  EXPECT_EQ(left.left, 50.0f);
  EXPECT_EQ(left.top, 8.0f);
  EXPECT_EQ(left.bottom, 8.0f);
  field->SetSymbol(Image(16, 16), false);
  EXPECT_EQ(field->UI_GetDrawOverhang().right, 16.0f);
}

// Text size

struct TextSizeCase {
  TextSize size;
  float points;
  float height;
  char const* style;
};

class EditFont : public DrawnField, public ::testing::WithParamInterface<TextSizeCase> {};

TEST_P(EditFont, IsThatOfTheTextSize) {
  field->SetTextSize(GetParam().size, GetParam().points);
  field->GetTextControl()->UI_SetLocalRectF({0, 0, 100, 24});
  field->GetTextControl()->UI_Show();
  auto& manager = *moxui::ui::UI_NodeManager::Get(false);
  auto const* const before = manager.GetDefaultDrawSupplier();
  manager.SetDefaultDrawSupplier(&supplier);
  auto const texts = Draw("DrawText");
  manager.SetDefaultDrawSupplier(before);
  ASSERT_EQ(texts.size(), 1u);
  EXPECT_EQ(texts[0].number, GetParam().height);
  EXPECT_EQ(texts[0].text, "00:01:00:00|" + std::string(moxui::controls::OS_EditText::GetDefaultFontName()) +
                               "|" + GetParam().style);
}

INSTANTIATE_TEST_SUITE_P(TextSizes, EditFont,
                         ::testing::Values(TextSizeCase{TextSize::kToolkit, 0.0f, 12.0f, ""},
                                           TextSizeCase{TextSize::kLarge, 0.0f, 15.0f, ""},
                                           TextSizeCase{TextSize::kLargeBold, 0.0f, 15.0f, "Bold"},
                                           TextSizeCase{TextSize::kToolkit, 20.0f, 20.0f, ""},
                                           TextSizeCase{TextSize::kLargeBold, 9.5f, 9.5f, "Bold"},
                                           TextSizeCase{TextSize(3), 0.0f, 15.0f, ""}));

// Colours

TEST_F(DrawnField, TextColourFollowsStateAndSettings) {
  ColorRGBA const custom{1, 0.5f, 0, 1};
  ColorRGBA const invalid{1, 0, 1, 0.5f};
  EXPECT_EQ(field->GetTextColor(), utilities::GetInteractiveControlColor());
  field->SetCustomTextColor(custom, false);
  EXPECT_EQ(field->GetTextColor(), utilities::GetInteractiveControlColor());
  field->UseCustomTextColor(true);
  EXPECT_EQ(field->GetTextColor(), custom);

  field->SetAsFixed(true);
  EXPECT_EQ(field->GetTextColor(), utilities::GetDefaultTextColor());
  field->SetUseTextColorForFixed(true, false);
  EXPECT_EQ(field->GetTextColor(), custom);

  field->SetUseInvalidColor(true, invalid, false);
  EXPECT_EQ(field->GetTextColor(), custom);
  field->SetTime(kNoTime, false);
  EXPECT_EQ(field->GetTextColor(), invalid);  // though the text is that of time zero
  EXPECT_EQ(field->ShownText(), u"00:00:00:00");
  field->SetUseInvalidColor(false, invalid, false);
  EXPECT_EQ(field->GetTextColor(), custom);
  EXPECT_EQ(field->GetInvalidColor(), invalid);
}

TEST_F(DrawnField, AFixedFieldIsInTheLooksTextColour) {
  field->SetAsFixed(true);
  for (ThemeID const theme : {ThemeID::kDark, ThemeID::kLight, ThemeID::kHighContrast}) {
    RunningLook const classic(false, theme);
    EXPECT_EQ(field->GetTextColor(), moxui::ui::Theme::Get().GetColor(moxui::ui::ThemeColorID::kDefaultText));
    RunningLook const v7(true, theme);
    EXPECT_EQ(field->GetTextColor(), utilities::GetDefaultTextColor());
  }
}

TEST_F(DrawnField, ADisabledFieldIsInFaintWhiteOrBlack) {
  field->SetUseInvalidColor(true, {1, 0, 1, 1}, false);
  field->SetTime(kNoTime, false);
  field->UI_SetDisabled();
  EXPECT_EQ(field->GetTextColor(), (ColorRGBA{1, 1, 1, 0.3f}));
  RunningLook const light(true, ThemeID::kLight);
  EXPECT_EQ(field->GetTextColor(), (ColorRGBA{0, 0, 0, 0.3f}));
}

TEST_F(DrawnField, ColourSettersInvalidateWhenAsked) {
  EXPECT_FALSE(Invalidates([&] {
    field->SetCustomTextColor({1, 1, 1, 1}, false);
    field->SetUseInvalidColor(true, {1, 1, 1, 1}, false);
    field->SetUseTextColorForFixed(true, false);
    field->SetTextAlignment(moxmediaui::TextAlignment::kRight, false);
  }));
  EXPECT_TRUE(Invalidates([&] { field->SetCustomTextColor({1, 1, 1, 1}, true); }));
  EXPECT_TRUE(Invalidates([&] { field->SetUseInvalidColor(true, {1, 1, 1, 1}, true); }));
  EXPECT_TRUE(Invalidates([&] { field->SetTextAlignment(moxmediaui::TextAlignment::kRight, true); }));
  EXPECT_FALSE(Invalidates([&] { field->SetUseTextColorForFixed(true, true); }));
  field->SetAsFixed(true);
  EXPECT_TRUE(Invalidates([&] { field->SetUseTextColorForFixed(true, true); }));
}

}  // namespace
}  // namespace timecode_tests
