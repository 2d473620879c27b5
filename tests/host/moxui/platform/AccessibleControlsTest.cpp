// Stock controls as assistive software sees and works them.
#include <moxui/controls/UI_Checkbox.h>
#include <moxui/controls/UI_DisclosureTriangleButton.h>
#include <moxui/controls/UI_PictureButton.h>
#include <moxui/controls/UI_Popup.h>
#include <moxui/controls/UI_RadioButton.h>
#include <moxui/controls/UI_ScrollBar.h>
#include <moxui/controls/UI_ScrollView.h>
#include <moxui/controls/UI_Slider.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/controls/UI_TextEdit.h>
#include <moxui/dialogs/MessageBox.h>
#include <moxui/platform/Application.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/ui/NodeTree.h>

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QWidget>
#include <cmath>
#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace moxui {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAreArray;
using Node = IntrusivePtr<ui::UI_Node>;

platform::Application& App() {
  return *platform::Application::Get();
}

std::vector<std::string> StatesOf(QAccessible::State const& state) {
  std::vector<std::string> names;
  auto const add = [&](bool isSet, char const* name) {
    if (isSet) {
      names.emplace_back(name);
    }
  };
  add(state.disabled, "disabled");
  add(state.focusable, "focusable");
  add(state.checkable, "checkable");
  add(state.checked, "checked");
  add(state.checkStateMixed, "mixed");
  add(state.expandable, "expandable");
  add(state.expanded, "expanded");
  add(state.collapsed, "collapsed");
  add(state.hasPopup, "popup");
  add(state.editable, "editable");
  add(state.readOnly, "readOnly");
  return names;
}

using States = std::vector<std::string>;

struct Sample {
  std::string name{};
  std::function<Node()> make{};
  QAccessible::Role role = QAccessible::NoRole;
  std::string accessibleName{};
  std::string description{};
  std::string value{};
  States states{};
  std::string action{};  ///< none where there is nothing to press
  std::string valueAfter{};
  States statesAfter{};
};

std::ostream& operator<<(std::ostream& out, Sample const& sample) {
  return out << sample.name;
}

template <class Control, class... Arguments>
std::function<Node()> Make(std::function<void(Control&)> setUp, Arguments... arguments) {
  return [=] {
    auto const control = MakeIntrusive<Control>(arguments...);
    if (setUp) {
      setUp(*control);
    }
    return Node(control);
  };
}

std::vector<Sample> Samples() {
  using namespace controls;
  return {
      {.name = "button",
       .make = Make<UI_TextButton>({}, u"Render"),
       .role = QAccessible::Button,
       .accessibleName = "Render",
       .states = {"focusable"},
       .action = "Press",
       .statesAfter = {"focusable"}},
      {.name = "disabled_button",
       .make = Make<UI_TextButton>([](UI_TextButton& button) { button.SetDisabled(true); }, u"Render"),
       .role = QAccessible::Button,
       .accessibleName = "Render",
       .states = {"disabled"}},
      {.name = "toggle",
       .make = Make<UI_TextButton>([](UI_TextButton& button) { button.SetButtonStyle(ButtonStyle::kToggle); },
                                   u"Loop"),
       .role = QAccessible::Button,
       .accessibleName = "Loop",
       .value = "0",
       .states = {"focusable", "checkable"},
       .action = "Press",
       .valueAfter = "1",
       .statesAfter = {"focusable", "checkable", "checked"}},
      {.name = "picture_button_with_a_tip",
       .make = Make<UI_PictureButton>([](UI_PictureButton& button) { button.UI_SetToolTip("Zoom in", 200); }),
       .role = QAccessible::Button,
       .accessibleName = "Zoom in",
       .states = {"focusable"},
       .action = "Press",
       .statesAfter = {"focusable"}},
      {.name = "picture_button_with_a_name_and_a_tip",
       .make = Make<UI_PictureButton>([](UI_PictureButton& button) {
         button.SetAccessibleName("Zoom in");
         button.UI_SetToolTip("Shows less, larger", 200);
       }),
       .role = QAccessible::Button,
       .accessibleName = "Zoom in",
       .description = "Shows less, larger",
       .states = {"focusable"},
       .action = "Press",
       .statesAfter = {"focusable"}},
      {.name = "checkbox",
       .make = Make<UI_Checkbox>([](UI_Checkbox& box) { box.SetLabelText("Snap"); }),
       .role = QAccessible::CheckBox,
       .accessibleName = "Snap",
       .value = "0",
       .states = {"focusable", "checkable"},
       .action = "Toggle",
       .valueAfter = "1",
       .statesAfter = {"focusable", "checkable", "checked"}},
      {.name = "unknown_checkbox",
       .make = Make<UI_Checkbox>([](UI_Checkbox& box) {
         box.SetLabelText("Snap");
         box.SetValueUnknown();
       }),
       .role = QAccessible::CheckBox,
       .accessibleName = "Snap",
       .states = {"focusable", "checkable", "mixed"},
       .action = "Press",
       .valueAfter = "1",
       .statesAfter = {"focusable", "checkable", "checked"}},
      {.name = "radio",
       .make = Make<UI_RadioButton>([](UI_RadioButton& radio) { radio.SetLabelText("Mono"); }),
       .role = QAccessible::RadioButton,
       .accessibleName = "Mono",
       .value = "0",
       .states = {"focusable", "checkable"},
       .action = "Press",
       .valueAfter = "1",
       .statesAfter = {"focusable", "checkable", "checked"}},
      {.name = "disclosure",
       .make = Make<UI_DisclosureTriangleButton>(
           [](UI_DisclosureTriangleButton& triangle) { triangle.SetAccessibleName("Details"); }),
       .role = QAccessible::Button,
       .accessibleName = "Details",
       .value = "0",
       .states = {"focusable", "expandable", "collapsed"},
       .action = "Press",
       .valueAfter = "1",
       .statesAfter = {"focusable", "expandable", "expanded"}},
      {.name = "static_text",
       .make = Make<UI_StaticText>({}, u"Sample rate"),
       .role = QAccessible::StaticText,
       .accessibleName = "Sample rate"},
      {.name = "popup",
       .make = Make<UI_Popup>([](UI_Popup& popup) {
         popup.AddItem(u"Mono");
         popup.AddItem(u"Stereo");
         popup.SetValue(0);
         popup.SetAccessibleName("Channels");
       }),
       .role = QAccessible::ComboBox,
       .accessibleName = "Channels",
       .value = "Mono",
       .states = {"focusable", "popup", "expandable", "collapsed"},
       .action = "ShowMenu",
       .valueAfter = "Stereo",
       .statesAfter = {"focusable", "popup", "expandable", "collapsed"}},
      {.name = "slider",
       .make = Make<UI_Slider>([](UI_Slider& slider) {
         slider.SetValue(0.25);
         slider.UI_SetToolTip("Gain", 200);
       }),
       .role = QAccessible::Slider,
       .accessibleName = "Gain",
       .value = "0.25",
       .states = {"focusable"}},
      {.name = "scroll_bar",
       .make = Make<UI_ScrollBar>(
           [](UI_ScrollBar& bar) {
             bar.SetLengths(300.0f, 100.0f);
             bar.SetOffset(40.0f);
           },
           Orientation::kVertical),
       .role = QAccessible::ScrollBar,
       .value = "40"},
      {.name = "text_edit",
       .make = Make<UI_TextEdit>([](UI_TextEdit& edit) {
         edit.SetValue(u"Take 7", false);
         edit.SetAccessibleName("Clip");
         edit.UI_SetToolTip("Name of the clip", 200);
       }),
       .role = QAccessible::EditableText,
       .accessibleName = "Clip",
       .description = "Name of the clip",
       .value = "Take 7",
       .states = {"focusable", "editable"}},
      {.name = "text_edit_that_is_read_only",
       .make = Make<UI_TextEdit>([](UI_TextEdit& edit) { edit.SetReadOnly(true); }),
       .role = QAccessible::EditableText,
       .states = {"focusable", "readOnly"}},
      {.name = "disabled_text_edit",
       .make = Make<UI_TextEdit>([](UI_TextEdit& edit) { edit.SetDisabled(true); }),
       .role = QAccessible::EditableText,
       .states = {"disabled", "editable"}},
  };
}

class AccessibleNode : public ::testing::Test {
 protected:
  AccessibleNode() {
    window->GetTree().SetRoot(root);
    window->Show();
    App().ProcessEvents();
  }
  /// The interface of what a node is to assistive software.
  QAccessibleInterface* Put(Node const& node, RectT<float> const& rect = {10, 10, 100, 24}) {
    node->UI_SetLocalRectF(rect);
    root->ChildPushBack(node);
    return QAccessible::queryAccessibleInterface(static_cast<QWidget*>(window->GetNativeHandle()))->child(0);
  }
  template <class Control, class... Arguments>
  IntrusivePtr<Control> PutNew(Arguments... arguments) {
    auto const control = MakeIntrusive<Control>(arguments...);
    interface = Put(control);
    return control;
  }

  std::unique_ptr<platform::Window> window = App().CreateWindow({.title = u"Test", .size = {200, 120}});
  IntrusivePtr<ui::UI_SubView> root = MakeIntrusive<ui::UI_SubView>();
  QAccessibleInterface* interface = nullptr;
};

class StockControl : public AccessibleNode, public ::testing::WithParamInterface<Sample> {};

TEST_P(StockControl, TellsAssistiveSoftwareWhatItIsAndDoesWhatItAsks) {
  Sample const& sample = GetParam();
  testing::ModalAnswers answers;
  answers.Expect(2);
  QAccessibleInterface* const found = Put(sample.make());
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->role(), sample.role);
  EXPECT_EQ(found->text(QAccessible::Name).toStdString(), sample.accessibleName);
  EXPECT_EQ(found->text(QAccessible::Description).toStdString(), sample.description);
  EXPECT_EQ(found->text(QAccessible::Value).toStdString(), sample.value);
  EXPECT_THAT(StatesOf(found->state()), UnorderedElementsAreArray(sample.states));

  QAccessibleActionInterface* const actions = found->actionInterface();
  ASSERT_NE(actions, nullptr);
  if (sample.action.empty()) {
    EXPECT_FALSE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    return;
  }
  ASSERT_TRUE(actions->actionNames().contains(QString::fromStdString(sample.action)));
  actions->doAction(QString::fromStdString(sample.action));
  EXPECT_EQ(found->text(QAccessible::Value).toStdString(), sample.valueAfter);
  EXPECT_THAT(StatesOf(found->state()), UnorderedElementsAreArray(sample.statesAfter));
}

INSTANTIATE_TEST_SUITE_P(Each, StockControl, ::testing::ValuesIn(Samples()),
                         [](auto const& sample) { return sample.param.name; });

TEST_F(AccessibleNode, OfAMessageBoxIsADialogWithItsButtons) {
  std::vector<std::string> found;
  App().PostDelayed(0, [&] {
    QAccessibleInterface* const box =
        QAccessible::queryAccessibleInterface(QApplication::activeModalWidget())->child(0);
    found.push_back(box->role() == QAccessible::Dialog ? "dialog" : "something else");
    found.push_back(box->text(QAccessible::Name).toStdString());
    found.push_back(box->text(QAccessible::Description).toStdString());
    for (int i = 0; i < box->childCount(); ++i) {
      found.push_back(box->child(i)->text(QAccessible::Name).toStdString());
    }
    box->child(1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  });
  auto const answer = dialogs::messagebox::Messagebox(
      nullptr, u"Presets", u"Delete it?", dialogs::DialogButton::kYes | dialogs::DialogButton::kNo,
      dialogs::DialogButton::kNo, dialogs::messagebox::MessageIcon::kQuestion, {});
  EXPECT_THAT(found, ElementsAre("dialog", "Presets", "Delete it?", "Delete it?", "Yes", "No"));
  EXPECT_EQ(answer, dialogs::DialogButton::kYes);
}

TEST_F(AccessibleNode, OfASliderIsReadAndSetAsANumber) {
  auto const slider = PutNew<controls::UI_Slider>();
  slider->SetLimits(-10.0, 10.0);
  int changes = 0;
  slider->NotifyWhenChanged(std::make_shared<moxcore::messaging::MessageFunction>(
      [&](moxcore::messaging::Message*) { ++changes; }));
  QAccessibleValueInterface* const number = interface->valueInterface();
  ASSERT_NE(number, nullptr);
  EXPECT_EQ(number->minimumValue().toDouble(), -10.0);
  EXPECT_EQ(number->maximumValue().toDouble(), 10.0);
  EXPECT_EQ(number->minimumStepSize().toDouble(), 0.2);

  number->setCurrentValue(2.5);
  EXPECT_EQ(slider->GetValue(), 2.5);
  EXPECT_EQ(number->currentValue().toDouble(), 2.5);
  number->setCurrentValue(99.0);
  number->setCurrentValue(std::nan(""));
  number->setCurrentValue("loud");
  EXPECT_EQ(slider->GetValue(), 10.0);
  EXPECT_EQ(changes, 2);
  slider->SetDisabled(true);
  number->setCurrentValue(1.0);
  EXPECT_EQ(slider->GetValue(), 10.0);
}

TEST_F(AccessibleNode, OfAScrollBarIsReadAndSetAsANumber) {
  auto const bar = PutNew<controls::UI_ScrollBar>(controls::Orientation::kVertical);
  bar->SetLengths(300.0f, 100.0f);
  QAccessibleValueInterface* const number = interface->valueInterface();
  ASSERT_NE(number, nullptr);
  EXPECT_EQ(number->maximumValue().toDouble(), 200.0);
  number->setCurrentValue(50.0);
  EXPECT_EQ(bar->GetOffset(), 50.0f);
  number->setCurrentValue(1e300);
  EXPECT_EQ(number->currentValue().toDouble(), 200.0);
}

TEST_F(AccessibleNode, WithoutANumberOrATextHasNoInterfaceForIt) {
  PutNew<controls::UI_TextButton>(u"Render");
  EXPECT_EQ(interface->valueInterface(), nullptr);
  EXPECT_EQ(interface->textInterface(), nullptr);
  EXPECT_EQ(interface->editableTextInterface(), nullptr);
}

TEST_F(AccessibleNode, OfATextEditIsReadAndEdited) {
  auto const edit = PutNew<controls::UI_TextEdit>();
  edit->SetValue(u"Take 7", false);
  int edits = 0;
  edit->NotifyWhenTextEdited(
      std::make_shared<moxcore::messaging::MessageFunction>([&](moxcore::messaging::Message*) { ++edits; }));
  QAccessibleTextInterface* const text = interface->textInterface();
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->characterCount(), 6);
  EXPECT_EQ(text->text(0, 4), "Take");
  text->setSelection(0, 0, 4);
  int begin = -1;
  int end = -1;
  text->selection(0, &begin, &end);
  EXPECT_EQ(std::pair(begin, end), std::pair(0, 4));
  EXPECT_EQ(text->cursorPosition(), 4);
  text->removeSelection(0);
  EXPECT_EQ(text->selectionCount(), 0);
  QRect const second = text->characterRect(1);
  EXPECT_GT(second.left(), text->characterRect(0).left());
  EXPECT_EQ(text->offsetAtPoint({second.left() + 1, second.center().y()}), 1);
  EXPECT_EQ(text->offsetAtPoint({-500, -500}), -1);

  QAccessibleEditableTextInterface* const editable = interface->editableTextInterface();
  ASSERT_NE(editable, nullptr);
  editable->replaceText(5, 6, "12");
  EXPECT_EQ(edit->GetValue(), u"Take 12");
  editable->deleteText(0, 5);
  EXPECT_EQ(edit->GetValue(), u"12");
  editable->insertText(2, "b");
  EXPECT_EQ(edit->GetValue(), u"12b");
  EXPECT_EQ(edits, 3);

  edit->SetReadOnly(true);
  EXPECT_EQ(interface->editableTextInterface(), nullptr);
  editable->insertText(0, "x");
  EXPECT_EQ(edit->GetValue(), u"12b");
}

TEST_F(AccessibleNode, OutOfSightIsRevealedAndPressedItself) {
  auto const content = MakeIntrusive<ui::UI_SubView>();
  content->UI_SetLocalRectF({0, 0, 100, 1000});
  auto const button = MakeIntrusive<controls::UI_TextButton>(u"Far");
  button->UI_SetLocalRectF({0, 600, 80, 24});
  content->ChildPushBack(button);
  auto const view = MakeIntrusive<controls::UI_ScrollView>(content, controls::ScrollViewStyle::kVerticalBar);
  QAccessibleInterface* const area = Put(view, {0, 0, 100, 80});
  auto const cover = MakeIntrusive<controls::UI_TextButton>(u"Cover");
  cover->UI_SetLocalRectF({0, 0, 200, 120});
  root->ChildPushBack(cover);
  int presses = 0;
  button->NotifyWhenChanged(std::make_shared<moxcore::messaging::MessageFunction>(
      [&](moxcore::messaging::Message*) { ++presses; }));

  area->child(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());

  EXPECT_EQ(presses, 1);
  EXPECT_EQ(view->GetViewedRect().top, 544.0f);
  view->UI_Hide();
  area->child(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(presses, 1);
}

TEST_F(AccessibleNode, IsForgottenOnceItHasLeftTheWindow) {
  auto const button = PutNew<controls::UI_TextButton>(u"Render");
  QAccessible::Id const id = QAccessible::uniqueId(interface);
  root->DeleteChildren();
  EXPECT_FALSE(interface->isValid());
  App().ProcessEvents();
  EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);

  EXPECT_NE(QAccessible::uniqueId(Put(button)), id);
}

}  // namespace
}  // namespace moxui
