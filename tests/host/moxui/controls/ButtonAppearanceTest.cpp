// What buttons and popups look like by what archives say of them.
#include "ControlFixture.h"

#include <moxui/controls/UI_Popup.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/Design.h>
#include <moxui/testing/RecordingSupplier.h>

namespace moxui::controls {
namespace {

using skins::design::ButtonProperty;
using skins::design::GetButtonColor;
using ui::ThemeColorID;

constexpr RectT<float> kRect(20, 20, 80, 24);

class ButtonAppearance : public testing::ControlTest<UI_TextButton> {
 protected:
  static ColorRGBA FillOf(UI_Button const& button) {
    return GetButtonColor(button.GetDrawParameters(), ButtonProperty::kFill);
  }
  static ColorRGBA LabelOf(UI_Button const& button) {
    return GetButtonColor(button.GetDrawParameters(), ButtonProperty::kLabel);
  }
  bool NeedsFrameAfter(auto const& change) {
    mStage.PaintFrame();
    change();
    return mStage.GetTree().NeedsFrame();
  }
};

TEST_F(ButtonAppearance, OfTheOneThatCommitsIsThePrimaryOneAsTheDefaultAlone) {
  UI_TextButton& button = Put(kRect, u"OK");
  button.SetCommitAppearance(true);
  EXPECT_EQ(button.GetDrawParameters().Components().GetVariant(), ButtonVariant::kSecondary);
  EXPECT_NE(FillOf(button), ui::GetColor(ThemeColorID::kInteractive));
  EXPECT_FALSE(button.UI_GetAccessibleState().isDefault);
  button.SetDefaultAppearance(true);
  EXPECT_EQ(FillOf(button), ui::GetColor(ThemeColorID::kInteractive));
  EXPECT_TRUE(button.UI_GetAccessibleState().isDefault);
}

TEST_F(ButtonAppearance, OfANegativeOneIsItsOwnEvenWhereItCommits) {
  UI_TextButton& button = Put(kRect, u"Delete");
  button.SetVariant(ButtonVariant::kNegative);
  button.SetCommitAppearance(true);
  EXPECT_EQ(FillOf(button), ui::GetColor(ThemeColorID::kNegative));
  EXPECT_EQ(LabelOf(button), ui::GetColor(ThemeColorID::kOnNegative));
  mStage.Move(Centre());
  EXPECT_EQ(FillOf(button), ui::GetColor(ThemeColorID::kNegativeHover));
  button.SetDownState(true);
  EXPECT_EQ(FillOf(button), ui::GetColor(ThemeColorID::kNegativePressed));
  button.SetDisabled(true);
  EXPECT_EQ(FillOf(button), ui::GetColor(ThemeColorID::kButtonFillDisabled));
}

TEST_F(ButtonAppearance, OfAnEmphasizedOneIsInteractiveWhileItIsOn) {
  UI_TextButton& button = Put(kRect, u"Loop");
  button.SetEmphasized(true);
  EXPECT_EQ(FillOf(button), ui::GetColor(ThemeColorID::kButtonFill));
  button.SetValue(true);
  EXPECT_EQ(FillOf(button), ui::GetColor(ThemeColorID::kInteractive));
}

TEST_F(ButtonAppearance, OfAQuietOneHasNoGroundAndALabelToSuit) {
  UI_TextButton& button = Put(kRect, u"Delete");
  button.SetVariant(ButtonVariant::kNegative);
  button.SetQuiet(true);
  EXPECT_FALSE(button.GetDrawParameters().ShowsContainer());
  EXPECT_EQ(LabelOf(button), ui::GetColor(ThemeColorID::kButtonText));
  mStage.Move(Centre());
  EXPECT_TRUE(button.GetDrawParameters().ShowsContainer());
  EXPECT_EQ(LabelOf(button), ui::GetColor(ThemeColorID::kOnNegative));
}

TEST_F(ButtonAppearance, SizesChangeTheRecommendedHeight) {
  UI_TextButton& button = Put(kRect, u"OK");
  auto const height = [&] { return button.UI_GetRecommendedSizeFromDefaultSupplier().height; };
  EXPECT_FLOAT_EQ(height(), 24.0f);
  button.SetComponentSize(ComponentSize::kSmall);
  EXPECT_FLOAT_EQ(height(), 20.0f);
  button.SetComponentSize(ComponentSize::kLarge);
  EXPECT_FLOAT_EQ(height(), 32.0f);
}

TEST_F(ButtonAppearance, ACompactOneHasHalfTheMarginsBesideItsLabel) {
  UI_TextButton& button = Put(kRect, u"OK");
  ExtentT<float> const regular = button.UI_GetRecommendedSizeFromDefaultSupplier();
  button.SetDensity(ComponentDensity::kCompact);
  EXPECT_EQ(button.UI_GetRecommendedSizeFromDefaultSupplier(),
            ExtentT<float>(regular.width - 12.0f, regular.height));
}

TEST_F(ButtonAppearance, OffsetsAndStrokesCanBeSetOneByOne) {
  UI_TextButton& button = Put(kRect, u"OK");
  button.SetContentOffsetX(2.0f);
  button.SetContentOffsetY(-1.0f);
  EXPECT_EQ(button.GetDrawParameters().GetOffset(), PointT<float>(2, -1));
  button.SetDownOffsetX(1.0f);
  button.SetDownOffsetY(3.0f);
  button.SetDownState(true);
  EXPECT_EQ(button.GetDrawParameters().GetOffset(), PointT<float>(3, 2));
  button.SetStrokeSize1(4.0f);
  button.SetStrokeSize2(3.0f);
  EXPECT_FLOAT_EQ(button.GetDrawParameters().GetStrokeSize(), 3.0f);
  button.SetDefaultAppearance(true);
  EXPECT_FLOAT_EQ(button.GetDrawParameters().GetStrokeSize(), 4.0f);
}

TEST_F(ButtonAppearance, IsRepaintedForAChangeAndForNothingElse) {
  UI_TextButton& button = Put(kRect, u"OK");
  for (bool const isChange : {true, false}) {
    EXPECT_EQ(NeedsFrameAfter([&] { button.SetQuiet(true); }), isChange);
    EXPECT_EQ(NeedsFrameAfter([&] { button.SetEmphasized(true); }), isChange);
    EXPECT_EQ(NeedsFrameAfter([&] { button.SetShowHoldIcon(true); }), isChange);
    EXPECT_EQ(NeedsFrameAfter([&] { button.SetVariant(ButtonVariant::kSecondary); }), isChange);
    EXPECT_EQ(NeedsFrameAfter([&] { button.SetComponentSize(ComponentSize::kLarge); }), isChange);
    EXPECT_EQ(NeedsFrameAfter([&] { button.SetCommitAppearance(true); }), isChange);
  }
}

class PopupAppearance : public testing::ControlTest<UI_Popup> {};

TEST_F(PopupAppearance, OfAQuietOneHasABoxOnlyUnderThePointer) {
  UI_Popup& popup = Put({20, 20, 100, 24});
  auto const fills = [&] {
    testing::RecordingSupplier supplier;
    scriber::SurfaceP const surface = supplier.NewOffscreenSurface(200, 40, 1.0f);
    scriber::Scriber scriber(&supplier, surface.Get());
    popup.UI_Draw(&scriber);
    return supplier.GetCalls("FillPath").size() + supplier.GetCalls("FillRect").size();
  };
  EXPECT_EQ(fills(), 1u);
  popup.SetPopupVariantType(PopupVariant::kQuiet);
  EXPECT_EQ(fills(), 0u);
  mStage.Move(Centre());
  EXPECT_EQ(fills(), 1u);
  mStage.Leave();
  popup.SetPopupVariantType(PopupVariant::kStandard);
  popup.SetQuiet(true);
  EXPECT_EQ(fills(), 0u);
}

}  // namespace
}  // namespace moxui::controls
