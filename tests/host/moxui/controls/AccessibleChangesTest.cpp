// What controls announce to the window that shows them, for assistive software.
#include "RunningLook.h"

#include <moxui/controls/UI_Checkbox.h>
#include <moxui/controls/UI_Popup.h>
#include <moxui/controls/UI_ScrollBar.h>
#include <moxui/controls/UI_Slider.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/controls/UI_TextEdit.h>
#include <moxui/testing/Stage.h>

#include <gmock/gmock.h>

#include <utility>
#include <vector>

namespace moxui::testing {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ui::AccessibleChange;

class ListeningStage : public Stage {
 public:
  void AccessibleChanged(ui::UI_Node& node, AccessibleChange change) override {
    changes.push_back(change);
    last = &node;
  }
  std::vector<AccessibleChange> Take() { return std::exchange(changes, {}); }

  std::vector<AccessibleChange> changes;
  ui::UI_Node* last = nullptr;
};

class AccessibleChanges : public ::testing::Test {
 protected:
  template <class Control, class... Arguments>
  IntrusivePtr<Control> Put(Arguments... arguments) {
    auto const control = MakeIntrusive<Control>(arguments...);
    control->UI_SetLocalRectF({10, 10, 100, 24});
    stage.GetRootView().ChildPushBack(control);
    stage.Take();
    return control;
  }

  RunningLook look{true};
  ListeningStage stage;
};

TEST_F(AccessibleChanges, OfNameValueAndStateAreTold) {
  auto const box = Put<controls::UI_Checkbox>();
  box->SetLabelText("Snap");
  box->SetLabelText("Snap");
  box->SetAccessibleName("Snap to frames");
  box->SetAccessibleName("Snap to frames");
  EXPECT_THAT(stage.Take(), ElementsAre(AccessibleChange::kName, AccessibleChange::kName));
  box->SetChecked(true);
  EXPECT_THAT(stage.Take(), ElementsAre(AccessibleChange::kValue, AccessibleChange::kState));
  EXPECT_EQ(stage.last, box.Get());
  box->SetChecked(true);
  EXPECT_THAT(stage.Take(), IsEmpty());
  box->SetValueUnknown();
  EXPECT_THAT(stage.Take(), ElementsAre(AccessibleChange::kValue, AccessibleChange::kState));
  box->SetDownState(true);
  box->SetDisabled(true);
  EXPECT_THAT(stage.Take(), ElementsAre(AccessibleChange::kState, AccessibleChange::kState));
}

TEST_F(AccessibleChanges, OfNumbersAndChoicesAreTold) {
  auto const slider = Put<controls::UI_Slider>();
  slider->SetValue(0.5);
  slider->SetValue(0.5);
  EXPECT_THAT(stage.Take(), ElementsAre(AccessibleChange::kValue));
  auto const bar = Put<controls::UI_ScrollBar>(controls::Orientation::kVertical);
  bar->SetLengths(300.0f, 100.0f);
  bar->SetOffset(20.0f);
  EXPECT_THAT(stage.Take(), ElementsAre(AccessibleChange::kValue));
  auto const popup = Put<controls::UI_Popup>();
  popup->AddItem(u"Mono");
  popup->SetValue(0);
  EXPECT_THAT(stage.Take(), ElementsAre(AccessibleChange::kValue));
  popup->SetItems({{u"Mono"}, {u"Stereo"}});
  EXPECT_THAT(stage.Take(), IsEmpty());
  popup->SetItems({{u"Stereo"}});
  EXPECT_THAT(stage.Take(), ElementsAre(AccessibleChange::kValue));
  popup->DeleteAllItems();
  EXPECT_THAT(stage.Take(), ElementsAre(AccessibleChange::kValue));
}

TEST_F(AccessibleChanges, OfASlidersEndsAreTold) {
  auto const slider = Put<controls::UI_Slider>();
  slider->SetLimits(-1.0, 1.0);
  EXPECT_THAT(stage.Take(), ElementsAre(AccessibleChange::kValue));
}

TEST_F(AccessibleChanges, OfTextsAreTold) {
  auto const text = Put<controls::UI_StaticText>(u"Take");
  text->SetBold(true);
  EXPECT_THAT(stage.Take(), IsEmpty());
  text->SetValue(u"Take 7");
  EXPECT_THAT(stage.Take(), ElementsAre(AccessibleChange::kName));
  auto const edit = Put<controls::UI_TextEdit>();
  edit->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  stage.Take();
  stage.Type(u"a");
  EXPECT_THAT(stage.Take(), ElementsAre(AccessibleChange::kText));
  EXPECT_EQ(stage.last, edit->GetTextEdit().Get());
  stage.Key(ui::KeyboardCode::kHome);
  EXPECT_THAT(stage.Take(), ElementsAre(AccessibleChange::kCaret));
  edit->SetReadOnly(true);
  EXPECT_THAT(stage.Take(), ElementsAre(AccessibleChange::kState));
}

TEST_F(AccessibleChanges, EndWithTheNodesPlaceInTheTree) {
  auto const slider = Put<controls::UI_Slider>();
  stage.GetRootView().DeleteChildren();
  EXPECT_THAT(stage.Take(), Contains(AccessibleChange::kDetached));
  slider->SetValue(0.5);
  EXPECT_THAT(stage.Take(), IsEmpty());
}

}  // namespace
}  // namespace moxui::testing
