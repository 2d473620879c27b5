#include "RunningLook.h"

#include <moxui/controls/UI_OutlineBox.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/testing/Stage.h>

#include <gtest/gtest.h>

#include <cstddef>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;

class OutlineBox : public ::testing::Test {
 protected:
  OutlineBox() {
    mBox->UI_SetLocalRectF({10, 10, 60, 40});
    mBox->SetCornerRadius(0.0f);
    mStage.GetRootView().ChildPushBack(mBox);
    mStage.SetBackground(kGround);
  }
  ColorRGBA At(int x, int y) {
    platform::Pixels const picture = mStage.TakePicture();
    auto const* const bytes =
        &picture.bytes[4 * (static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                            static_cast<std::size_t>(x))];
    auto const channel = [bytes](int i) { return static_cast<float>(bytes[i]) / 255.0f; };
    return {channel(2), channel(1), channel(0), 1.0f};
  }
  static void ExpectNear(ColorRGBA const& a, ColorRGBA const& b) {
    EXPECT_NEAR(a.red, b.red, 0.005f);
    EXPECT_NEAR(a.green, b.green, 0.005f);
    EXPECT_NEAR(a.blue, b.blue, 0.005f);
  }

  static constexpr ColorRGBA kGround{0, 0, 0, 1};
  testing::RunningLook mLook{true};
  testing::Stage mStage{ExtentT<float>(100, 80)};
  IntrusivePtr<UI_OutlineBox> mBox = MakeIntrusive<UI_OutlineBox>();
};

TEST_F(OutlineBox, FramesItsRectangleAndNothingElse) {
  ExpectNear(At(10, 10), ui::GetColor(ui::ThemeColorID::kTableEdgeLine));
  ExpectNear(At(69, 49), ui::GetColor(ui::ThemeColorID::kTableEdgeLine));
  ExpectNear(At(11, 11), kGround);
  ExpectNear(At(9, 10), kGround);
  ExpectNear(At(70, 49), kGround);
}

TEST_F(OutlineBox, HasASecondLineInsideTheFirst) {
  mBox->SetStrokeSize1(2.0f);
  mBox->SetStrokeSize2(1.0f);
  ExpectNear(At(11, 30), ui::GetColor(ui::ThemeColorID::kTableEdgeLine));
  ExpectNear(At(12, 30), ui::GetColor(ui::ThemeColorID::kTableGridLine));
  ExpectNear(At(13, 30), kGround);
}

TEST_F(OutlineBox, FillsItselfOrShowsNothingWhenToldSo) {
  mBox->SetChromeType(ChromeType::kFilled);
  ExpectNear(At(40, 30), ui::GetColor(ui::ThemeColorID::kTabBackground));
  mBox->SetChromeType(ChromeType::kNone);
  ExpectNear(At(10, 10), kGround);
  ExpectNear(At(40, 30), kGround);
}

TEST_F(OutlineBox, RepaintsOnlyForAChange) {
  mStage.PaintFrame();
  mBox->SetStrokeSize1(1.0f);
  mBox->SetChromeType(ChromeType::kOutline);
  mBox->SetCornerRadius(0.0f);
  EXPECT_FALSE(mStage.GetTree().NeedsFrame());
  mBox->SetStrokeSize1(3.0f);
  EXPECT_TRUE(mStage.GetTree().NeedsFrame());
}

TEST_F(OutlineBox, LetsItsChildrenBeUsed) {
  auto const button = MakeIntrusive<UI_TextButton>(u"x");
  button->UI_SetLocalRectF({5, 5, 40, 24});
  mBox->ChildPushBack(button);
  EXPECT_EQ(mStage.GetTree().FindNode({30, 25}), button.Get());
}

}  // namespace
}  // namespace moxui::controls
