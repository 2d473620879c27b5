#include "ControlFixture.h"

#include <moxui/controls/UI_Checkbox.h>
#include <moxui/controls/UI_DisclosureTriangleButton.h>
#include <moxui/controls/UI_RadioButton.h>
#include <moxui/skins/SkinSet.h>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using testing::ChangeLog;
using testing::RunningLook;
using ui::KeyboardCode;

class Checkbox : public testing::ControlTest<UI_Checkbox> {};

TEST_F(Checkbox, TurnsAtAClickAnywhereInIt) {
  UI_Checkbox& box = Put({10, 10, 120, 24});
  box.SetLabelText("Snap");
  ChangeLog const log(box);
  mStage.Click({100, 20});
  EXPECT_TRUE(box.IsChecked());
  mStage.Click({14, 20});
  EXPECT_FALSE(box.IsChecked());
  EXPECT_EQ(log.changes, 2);
}

TEST_F(Checkbox, SetCheckedIsSilent) {
  UI_Checkbox& box = Put({10, 10, 16, 16});
  ChangeLog const log(box);
  box.SetChecked(true);
  EXPECT_TRUE(box.IsChecked());
  EXPECT_EQ(log.changes, 0);
}

TEST_F(Checkbox, UnknownTurnsOnAndIsKnown) {
  UI_Checkbox& box = Put({10, 10, 16, 16});
  box.SetValueUnknown();
  EXPECT_EQ(box.UI_GetAccessibleValue(), "");
  mStage.Click(Centre());
  EXPECT_TRUE(box.IsChecked());
  EXPECT_FALSE(box.IsValueUnknown());
  EXPECT_EQ(box.UI_GetAccessibleValue(), "1");
}

TEST_F(Checkbox, TurnsAtSpace) {
  UI_Checkbox& box = Put({10, 10, 16, 16});
  box.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  mStage.Key(KeyboardCode::kSpace);
  EXPECT_TRUE(box.IsChecked());
}

TEST_F(Checkbox, DefaultSizeIsThatOfTheLook) {
  EXPECT_FLOAT_EQ(UI_Checkbox::GetDefaultCheckSize(ComponentSize::kDefault, 0), 16.0f);
  EXPECT_FLOAT_EQ(UI_Checkbox::GetDefaultCheckSize(ComponentSize::kMedium, 0), 16.0f);
  RunningLook const classic(false);
  EXPECT_FLOAT_EQ(UI_Checkbox::GetDefaultCheckSize(), 14.0f);
}

TEST_F(Checkbox, WithoutALabelIsTheBoxAlone) {
  UI_Checkbox& box = Put({10, 10, 26, 26});
  EXPECT_EQ(box.GetBoxRect(), RectT<float>(5, 5, 16, 16));
  EXPECT_EQ(box.UI_GetRecommendedSizeFromDefaultSupplier(), ExtentT<float>(16, 16));
  box.SetTextLabel(u"Snap");
  EXPECT_EQ(box.GetBoxRect(), RectT<float>(0, 5, 16, 16));
  EXPECT_GT(box.UI_GetRecommendedSizeFromDefaultSupplier().width, 30.0f);
}

TEST_F(Checkbox, TellsAssistiveSoftwareItsLabelAndState) {
  UI_Checkbox& box = Put({10, 10, 120, 24});
  box.SetLabelText("Snap");
  EXPECT_EQ(box.UI_GetAccessibleRole(), ui::AccessibleRole::kCheckBox);
  EXPECT_EQ(box.UI_GetAccessibleName(), "Snap");
  EXPECT_EQ(box.UI_GetAccessibleValue(), "0");
}

class RadioButton : public ::testing::Test {
 protected:
  RadioButton() {
    for (int i = 0; i < 3; ++i) {
      auto const radio = MakeIntrusive<UI_RadioButton>();
      radio->UI_SetLocalRectF({10, 10 + 30.0f * static_cast<float>(i), 100, 24});
      mStage.GetRootView().ChildPushBack(radio);
      mGroup.push_back(radio);
      mLogs.push_back(std::make_unique<ChangeLog>(*radio));
    }
  }
  void ClickOn(std::size_t index) { mStage.Click(mStage.CenterOf(*mGroup[index])); }
  std::vector<bool> Values() const {
    std::vector<bool> values;
    for (auto const& radio : mGroup) {
      values.push_back(radio->GetValue());
    }
    return values;
  }
  int Changes() const {
    int changes = 0;
    for (auto const& log : mLogs) {
      changes += log->changes;
    }
    return changes;
  }

  RunningLook mLook{true};
  testing::Stage mStage{ExtentT<float>(200, 200)};
  std::vector<IntrusivePtr<UI_RadioButton>> mGroup;
  std::vector<std::unique_ptr<ChangeLog>> mLogs;
};

TEST_F(RadioButton, PutsItsSiblingsOutSilently) {
  ClickOn(0);
  ClickOn(2);
  EXPECT_EQ(Values(), (std::vector{false, false, true}));
  EXPECT_EQ(mLogs[0]->changes, 1);
  EXPECT_EQ(mLogs[2]->changes, 1);
  EXPECT_EQ(Changes(), 2);
}

TEST_F(RadioButton, ChoosingWhatIsChosenIsNoChange) {
  ClickOn(1);
  ClickOn(1);
  EXPECT_EQ(Changes(), 1);
  EXPECT_TRUE(mGroup[1]->GetValue());
}

TEST_F(RadioButton, LeavesOthersAloneUnderAnotherParent) {
  auto const other = MakeIntrusive<ui::UI_SubView>();
  auto const cousin = MakeIntrusive<UI_RadioButton>();
  other->ChildPushBack(cousin);
  mStage.GetRootView().ChildPushBack(other);
  cousin->SetValue(true);
  ClickOn(0);
  EXPECT_TRUE(cousin->GetValue());
}

TEST_F(RadioButton, SetValueIsSilentAndExcludesNobody) {
  mGroup[0]->SetValue(true);
  mGroup[1]->SetValue(true);
  EXPECT_EQ(Values(), (std::vector{true, true, false}));
  EXPECT_EQ(Changes(), 0);
}

TEST_F(RadioButton, ArrowsChooseAmongSiblingsRoundTheEnds) {
  ClickOn(0);
  mStage.Key(KeyboardCode::kDown);
  EXPECT_EQ(Values(), (std::vector{false, true, false}));
  EXPECT_TRUE(mGroup[1]->UI_HasKeyboardFocus());
  mStage.Key(KeyboardCode::kLeft);
  mStage.Key(KeyboardCode::kUp);
  EXPECT_EQ(Values(), (std::vector{false, false, true}));
  mGroup[0]->SetDisabled(true);
  mStage.Key(KeyboardCode::kRight);
  EXPECT_EQ(Values(), (std::vector{false, true, false}));
}

TEST_F(RadioButton, DefaultSizeIsThatOfTheLook) {
  EXPECT_FLOAT_EQ(UI_RadioButton::GetDefaultButtonSize(), 16.0f);
  RunningLook const classic(false);
  EXPECT_FLOAT_EQ(UI_RadioButton::GetDefaultButtonSize(), 14.0f);
}

TEST_F(RadioButton, TellsAssistiveSoftwareWhatItIs) {
  mGroup[0]->SetLabelText("Drop-Frame");
  EXPECT_EQ(mGroup[0]->UI_GetAccessibleRole(), ui::AccessibleRole::kRadioButton);
  EXPECT_EQ(mGroup[0]->UI_GetAccessibleName(), "Drop-Frame");
}

class DisclosureTriangle : public testing::ControlTest<UI_DisclosureTriangleButton> {};

TEST_F(DisclosureTriangle, TurnsAndNotifiesAtAClick) {
  UI_DisclosureTriangleButton& triangle = Put({10, 10, 16, 16});
  ChangeLog const log(triangle);
  EXPECT_EQ(static_cast<int>(triangle.GetValue()), 0);
  mStage.Click(Centre());
  EXPECT_EQ(static_cast<int>(triangle.GetValue()), 1);
  EXPECT_EQ(log.changes, 1);
}

TEST_F(DisclosureTriangle, ExpandsAtRightAndCollapsesAtLeft) {
  UI_DisclosureTriangleButton& triangle = Put({10, 10, 16, 16});
  ChangeLog const log(triangle);
  triangle.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  mStage.Key(KeyboardCode::kRight);
  mStage.Key(KeyboardCode::kRight);
  EXPECT_TRUE(triangle.GetValue());
  EXPECT_EQ(log.changes, 1);
  mStage.Key(KeyboardCode::kLeft);
  EXPECT_FALSE(triangle.GetValue());
  EXPECT_EQ(log.changes, 2);
}

TEST_F(DisclosureTriangle, SetValueIsSilent) {
  UI_DisclosureTriangleButton& triangle = Put({10, 10, 16, 16});
  ChangeLog const log(triangle);
  triangle.SetValue(true);
  EXPECT_EQ(log.changes, 0);
}

}  // namespace
}  // namespace moxui::controls
