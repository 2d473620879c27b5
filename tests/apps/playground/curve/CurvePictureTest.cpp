#include "curve/CurveView.h"
#include "program/AppearanceState.h"
#include "shell/Painting.h"

#include <moxui/testing/ComparePicture.h>
#include <moxui/testing/Stage.h>

#include <gtest/gtest.h>

#include <string>

namespace playground {
namespace {

using moxui::platform::Pixels;
using moxui::testing::ComparePicture;
using moxui::testing::GoldenPath;

// A curve with a point that has the focus, and the pointer on the curve, where a press would add another.
Pixels TakeCurve(ThemeChoice theme, CurvePoint second, float scale) {
  Appearance appearance;
  appearance.theme = theme;
  ApplyAppearance(appearance);
  CurveSession session;
  session.Change([&](CurvePlace& place) {
    place = {ToneCurve({{0, 0}, second, {192, 216}, {255, 255}}), 1};
  });
  auto const view = moxcore::utility::MakeIntrusive<CurveView>(session, [] {});
  view->UI_SetLocalRectF({0.0f, 0.0f, 204.0f, 220.0f});
  moxui::testing::Stage stage(view);
  stage.SetBackground(ThemeColor(moxui::ui::ThemeColorID::kGray1));
  view->PointNode(1).UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
  stage.Move(view->Plot().PlaceOf({128, session.Curve().At(128)}));
  Pixels picture = stage.TakePicture(scale);
  ApplyAppearance({});
  return picture;
}

constexpr CurvePoint kSecond{64, 40};

std::string PictureName(ThemeChoice theme, float scale) {
  return "playground/curve_" + std::string(ThemeName(theme)) + (scale == 1.0f ? ".png" : "@2x.png");
}

class CurvePicture : public testing::TestWithParam<ThemeChoice> {};

TEST_P(CurvePicture, IsTheOneThatWasAgreedOn) {
  for (float const scale : {1.0f, 2.0f}) {
    EXPECT_EQ(
        ComparePicture(TakeCurve(GetParam(), kSecond, scale), GoldenPath(PictureName(GetParam(), scale))),
        "");
  }
}

// The comparison must notice a point a level away.
TEST_P(CurvePicture, IsAnotherOneForAnotherPoint) {
  Pixels golden;
  ASSERT_TRUE(
      moxui::platform::LoadPNG(moxcore::Utf8String(GoldenPath(PictureName(GetParam(), 1.0f))), golden));
  auto const difference =
      moxui::testing::FindDifference(TakeCurve(GetParam(), {kSecond.x, kSecond.y + 1}, 1.0f), golden);
  EXPECT_FALSE(difference.sizesDiffer);
  EXPECT_GT(difference.differingPixels, 0);
}

INSTANTIATE_TEST_SUITE_P(Themes, CurvePicture,
                         testing::Values(ThemeChoice::kDark, ThemeChoice::kLight, ThemeChoice::kHighContrast),
                         [](auto const& one) {
                           switch (one.param) {
                             case ThemeChoice::kDark:
                               return "Dark";
                             case ThemeChoice::kLight:
                               return "Light";
                             default:
                               return "HighContrast";
                           }
                         });

}  // namespace
}  // namespace playground
