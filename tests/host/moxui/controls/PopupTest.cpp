#include "ControlFixture.h"

#include <moxui/controls/UI_Popup.h>

#include <functional>
#include <memory>

namespace moxui::controls {
namespace {

using testing::ChangeLog;
using testing::ModalAnswers;
using testing::RunningLook;
using ui::KeyboardCode;

class Popup : public testing::ControlTest<UI_Popup> {
 protected:
  UI_Popup& PutWithItems() {
    UI_Popup& popup = Put({10, 10, 130, 24});
    popup.AddItem(u"Mono");
    popup.AddSeparator();
    popup.AddItem(u"Stereo");
    popup.AddItem(u"5.1");
    return popup;
  }
  ModalAnswers mAnswers;
};

TEST_F(Popup, StartsWithoutItemsAndValue) {
  UI_Popup& popup = Put({10, 10, 130, 24}, PopupType::kList, PopupVariant::kStandard, ComponentSize::kMedium);
  EXPECT_EQ(popup.GetValue(), -1);
  EXPECT_TRUE(popup.GetItems().empty());
  EXPECT_EQ(popup.GetShownText(), u"");
}

TEST_F(Popup, AddItemGivesThePositionSeparatorsCounted) {
  UI_Popup& popup = Put({10, 10, 130, 24});
  EXPECT_EQ(popup.AddItem(u"Mono", -1), 0);
  EXPECT_EQ(popup.AddSeparator(), 1);
  EXPECT_EQ(popup.AddItem(u"Custom...", -1), 2);
  EXPECT_EQ(popup.GetItems().size() - 1, 2u);
}

TEST_F(Popup, AnEmptyTextIsABlankItemWhenAddedAndADividerInAList) {
  UI_Popup& popup = Put({10, 10, 130, 24});
  popup.AddItem(u"", -1);
  EXPECT_FALSE(popup.GetItems()[0].isSeparator);
  popup.SetItems({{.text = u"1"}, {.text = u""}, {.text = u"Left"}});
  EXPECT_TRUE(popup.GetItems()[1].isSeparator);
  EXPECT_FALSE(popup.GetItems()[2].isSeparator);
}

TEST_F(Popup, SettersAreSilent) {
  UI_Popup& popup = PutWithItems();
  ChangeLog const log(popup);
  popup.SetValue(2);
  popup.SetValueString(u"Mine", true, true);
  popup.SetItems({});
  popup.DeleteAllItems();
  EXPECT_EQ(log.changes, 0);
}

TEST_F(Popup, StoresAnyNumberAndShowsABlankOutsideTheList) {
  UI_Popup& popup = PutWithItems();
  popup.SetValue(2);
  EXPECT_EQ(popup.GetShownText(), u"Stereo");
  popup.SetValue(77);
  EXPECT_EQ(popup.GetValue(), 77);
  EXPECT_EQ(popup.GetShownText(), u"");
  popup.SetValue(-1);
  EXPECT_EQ(popup.GetShownText(), u"");
}

TEST_F(Popup, NoItemLeavesTheValueUnknownAndOthersMakeItKnown) {
  UI_Popup& popup = PutWithItems();
  popup.SetValueUnknown();
  popup.SetValue(-1);
  EXPECT_TRUE(popup.IsValueUnknown());
  EXPECT_EQ(popup.GetValue(), -1);
  popup.SetValue(0);
  EXPECT_FALSE(popup.IsValueUnknown());
}

TEST_F(Popup, AValueStringShowsATextAndChoosesNothing) {
  UI_Popup& popup = PutWithItems();
  ChangeLog const log(popup);
  popup.SetValue(0);
  popup.SetValueUnknown();
  popup.SetValueString(u"Mono *", true, true);
  EXPECT_EQ(popup.GetShownText(), u"Mono *");
  EXPECT_EQ(popup.GetValue(), -1);
  EXPECT_FALSE(popup.IsValueUnknown());
  mAnswers.Expect(1);
  mStage.Click(Centre());
  EXPECT_EQ(popup.GetValue(), 0);
  EXPECT_EQ(popup.GetShownText(), u"Mono");
  EXPECT_EQ(log.changes, 1);
}

TEST_F(Popup, AValueStringMayLeaveTheItemAndThePicture) {
  UI_Popup& popup = PutWithItems();
  popup.SetValue(2);
  mStage.PaintFrame();
  popup.SetValueString(u"Stereo *", false, false);
  EXPECT_FALSE(mStage.FrameRequested());
  EXPECT_EQ(popup.GetShownText(), u"Stereo *");
  EXPECT_EQ(popup.GetValue(), 2);
  popup.SetValueString(u"Stereo **", false, true);
  EXPECT_TRUE(mStage.FrameRequested());
  ChangeLog const log(popup);
  mAnswers.Expect(3);
  mStage.Click(Centre());
  EXPECT_EQ(log.changes, 1);  // another text is shown now
  EXPECT_EQ(popup.GetShownText(), u"Stereo");
}

TEST_F(Popup, AnItemMayGoBetweenOthers) {
  UI_Popup& popup = PutWithItems();
  EXPECT_EQ(popup.AddItem(u"Dual Mono", 1), 1);
  EXPECT_EQ(popup.GetItems()[1].text, u"Dual Mono");
  EXPECT_TRUE(popup.GetItems()[2].isSeparator);
  EXPECT_EQ(popup.AddItem(u"Last", 77), 5);
}

TEST_F(Popup, DeletingAllItemsTakesTheValue) {
  UI_Popup& popup = PutWithItems();
  popup.SetValue(2);
  popup.DeleteAllItems();
  EXPECT_EQ(popup.GetValue(), -1);
}

TEST_F(Popup, AClickOpensTheMenuOfItsItems) {
  UI_Popup& popup = PutWithItems();
  popup.SetValue(2);
  popup.SetItemCheckStyle(ItemCheckStyle::kCurrent);
  popup.EnableItem(3, false);
  mStage.Click(Centre());
  ASSERT_EQ(mAnswers.GetRecords().size(), 1u);
  auto const& items = mAnswers.GetRecords()[0].menuItems;
  ASSERT_EQ(items.size(), 4u);
  EXPECT_EQ(items[0].text, u"Mono");
  EXPECT_FALSE(items[0].isChecked);
  EXPECT_EQ(items[1].id, 0);
  EXPECT_TRUE(items[2].isChecked);
  EXPECT_FALSE(items[3].isEnabled);
}

TEST_F(Popup, MarksNothingWithoutACheckStyleOrACurrentItem) {
  UI_Popup& popup = PutWithItems();
  popup.SetValue(2);
  mStage.Click(Centre());
  popup.SetItemCheckStyle(ItemCheckStyle::kCurrent);
  popup.SetValue(77);
  mStage.Click(Centre());
  ASSERT_EQ(mAnswers.GetRecords().size(), 2u);
  for (auto const& record : mAnswers.GetRecords()) {
    for (auto const& item : record.menuItems) {
      EXPECT_FALSE(item.isChecked);
    }
  }
}

TEST_F(Popup, NotifiesAfterTheValueIsStoredAndTheMenuClosed) {
  UI_Popup& popup = PutWithItems();
  std::vector<std::int64_t> heard;
  bool wasDown = true;
  popup.NotifyWhenChanged(ChangeLog::Listener([&](auto&) {
    heard.push_back(popup.GetValue());
    wasDown = popup.IsDown();
  }));
  mAnswers.Expect(4);
  mStage.Click(Centre());
  EXPECT_EQ(heard, std::vector<std::int64_t>{3});
  EXPECT_FALSE(wasDown);
}

TEST_F(Popup, ChoosingTheCurrentItemIsNoChangeUnlessAlwaysNotified) {
  UI_Popup& popup = PutWithItems();
  popup.SetValue(2);
  ChangeLog const log(popup);
  mAnswers.Expect(3);
  mStage.Click(Centre());
  EXPECT_EQ(log.changes, 0);
  popup.SetAlwaysNotify(true);
  mAnswers.Expect(3);
  mStage.Click(Centre());
  EXPECT_EQ(log.changes, 1);
}

TEST_F(Popup, ChoosingTheCurrentItemOfAnUnknownValueIsAChange) {
  UI_Popup& popup = PutWithItems();
  popup.SetValue(2);
  popup.SetValueUnknown();
  ChangeLog const log(popup);
  mAnswers.Expect(3);
  mStage.Click(Centre());
  EXPECT_EQ(log.changes, 1);
  EXPECT_FALSE(popup.IsValueUnknown());
}

TEST_F(Popup, ADismissedMenuChangesNothing) {
  UI_Popup& popup = PutWithItems();
  popup.SetValue(2);
  ChangeLog const log(popup);
  mAnswers.Expect(0);
  mStage.Click(Centre());
  EXPECT_EQ(popup.GetValue(), 2);
  EXPECT_EQ(log.changes, 0);
}

TEST_F(Popup, MayBeRefilledWhileItNotifies) {
  UI_Popup& popup = PutWithItems();
  popup.NotifyWhenChanged(ChangeLog::Listener([&](auto&) {
    popup.DeleteAllItems();
    popup.AddItem(u"New");
    popup.SetValue(0);
  }));
  mAnswers.Expect(3);
  mStage.Click(Centre());
  EXPECT_EQ(popup.GetShownText(), u"New");
}

TEST_F(Popup, SpaceEnterAndDownOpenTheMenu) {
  UI_Popup& popup = PutWithItems();
  popup.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  for (KeyboardCode const code :
       {KeyboardCode::kSpace, KeyboardCode::kReturn, KeyboardCode::kDown, KeyboardCode::kUp}) {
    EXPECT_TRUE(mStage.Key(code));
  }
  EXPECT_EQ(mAnswers.GetRecords().size(), 4u);
}

TEST_F(Popup, LeftAndRightStepOverWhatCannotBeChosen) {
  UI_Popup& popup = PutWithItems();
  ChangeLog const log(popup);
  popup.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  mStage.Key(KeyboardCode::kRight);
  EXPECT_EQ(popup.GetValue(), 0);
  mStage.Key(KeyboardCode::kRight);
  EXPECT_EQ(popup.GetValue(), 2);
  popup.EnableItem(3, false);
  mStage.Key(KeyboardCode::kRight);
  EXPECT_EQ(popup.GetValue(), 2);
  mStage.Key(KeyboardCode::kLeft);
  EXPECT_EQ(popup.GetValue(), 0);
  EXPECT_EQ(log.changes, 3);
}

TEST_F(Popup, TypingChoosesTheNextItemThatBeginsSo) {
  UI_Popup& popup = Put({10, 10, 130, 24});
  for (char16_t const* const text : {u"Salsa", u"Samba", u"Swing", u"Tango"}) {
    popup.AddItem(text);
  }
  popup.SetValue(3);
  popup.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  mStage.Type(u"s");
  EXPECT_EQ(popup.GetValue(), 0);
  mStage.Type(u"w");
  EXPECT_EQ(popup.GetValue(), 2);
  mStage.AdvanceTime(1500);
  mStage.Type(u"s");
  EXPECT_EQ(popup.GetValue(), 0);
  mStage.AdvanceTime(1500);
  mStage.Type(u"S");
  EXPECT_EQ(popup.GetValue(), 1);
}

TEST_F(Popup, IgnoresEverythingWhileDisabled) {
  UI_Popup& popup = PutWithItems();
  popup.SetDisabled(true);
  mStage.Click(Centre());
  EXPECT_TRUE(mAnswers.GetRecords().empty());
}

TEST_F(Popup, OpensNothingOnceTakingTheFocusHasDisabledOrRemovedIt) {
  UI_Popup& popup = PutWithItems();
  moxcore::utility::IntrusivePtr<UI_Popup> const kept(&popup);
  auto const onFocus = std::make_shared<std::function<void()>>([&] { popup.SetDisabled(true); });
  popup.InstallFocusChangedFunction([onFocus](ui::UI_Node*, ui::FocusChangeReason) { (*onFocus)(); });
  EXPECT_TRUE(mStage.Press(Centre()));
  mStage.ReleaseHere();
  EXPECT_TRUE(mAnswers.GetRecords().empty());
  *onFocus = [] {};
  popup.SetDisabled(false);
  mStage.GetTree().SetFocus(nullptr, ui::FocusChangeReason::kNone);
  PointT<float> const centre = Centre();
  *onFocus = [&] {
    if (popup.UI_GetParentNode() != nullptr) {
      mStage.GetRootView().ChildRemove(&popup);
    }
  };
  mStage.Click(centre);
  EXPECT_TRUE(mAnswers.GetRecords().empty());
  EXPECT_FALSE(popup.IsDown());
  *onFocus = [] {};
}

TEST_F(Popup, RecommendsTheHeightOfItsLook) {
  UI_Popup& popup = PutWithItems();
  EXPECT_FLOAT_EQ(popup.UI_GetRecommendedSizeFromDefaultSupplier().height, 24.0f);
  RunningLook const classic(false);
  EXPECT_FLOAT_EQ(popup.UI_GetRecommendedSizeFromDefaultSupplier().height, 19.0f);
}

TEST_F(Popup, TellsAssistiveSoftwareWhatItShows) {
  UI_Popup& popup = PutWithItems();
  popup.SetValue(2);
  EXPECT_EQ(popup.UI_GetAccessibleRole(), ui::AccessibleRole::kComboBox);
  EXPECT_EQ(popup.UI_GetAccessibleValue(), "Stereo");
  popup.SetValueUnknown();
  EXPECT_EQ(popup.UI_GetAccessibleValue(), "");
}

TEST_F(Popup, AnEmptyOneOpensNothing) {
  UI_Popup& popup = Put({10, 10, 130, 24});
  ChangeLog const log(popup);
  mStage.Click(Centre());
  EXPECT_TRUE(mAnswers.GetRecords().empty());
  EXPECT_EQ(log.changes, 0);
}

TEST_F(Popup, SpaceIsTypedWhileTypingGoesOn) {
  UI_Popup& popup = Put({10, 10, 130, 24});
  for (char16_t const* const text : {u"Left Side", u"Left Total", u"Right"}) {
    popup.AddItem(text);
  }
  popup.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  mStage.Type(u"left");
  EXPECT_TRUE(mStage.Key(KeyboardCode::kSpace));
  mStage.Type(u"t");
  EXPECT_EQ(popup.GetValue(), 1);
  EXPECT_TRUE(mAnswers.GetRecords().empty());
  mStage.AdvanceTime(1500);
  EXPECT_TRUE(mStage.Key(KeyboardCode::kSpace));
  EXPECT_EQ(mAnswers.GetRecords().size(), 1u);
}

}  // namespace
}  // namespace moxui::controls
