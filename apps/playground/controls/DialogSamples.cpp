#include "controls/DialogSamples.h"

#include "program/Localized.h"
#include "program/NumberText.h"
#include "shell/Named.h"
#include "shell/Painting.h"

#include <moxcore/utility/PointerCasts.h>
#include <moxmediaui/Module.h>
#include <moxui/controls/UI_Checkbox.h>
#include <moxui/controls/UI_HotTextNumber.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/controls/UI_TextEdit.h>
#include <moxui/dialogs/InputBoxView.h>
#include <moxui/dialogs/MessageBoxView.h>
#include <moxui/dialogs/SimpleInputBox.h>
#include <moxui/dialogs/UI_ArchivedDialog.h>

#include <string>
#include <string_view>
#include <utility>

namespace playground {
namespace {

namespace DialogButton = moxui::dialogs::DialogButton;
namespace LayoutBinding = moxui::ui::LayoutBinding;
using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using moxui::controls::UI_Checkbox;
using moxui::controls::UI_ControlView;
using moxui::controls::UI_HotTextNumber;
using moxui::controls::UI_StaticText;
using moxui::controls::UI_TextButton;
using moxui::controls::UI_TextEdit;
using moxui::dialogs::ButtonRow;
using moxui::dialogs::InputBoxContent;
using moxui::dialogs::InputBoxView;
using moxui::dialogs::MessageBoxContent;
using moxui::dialogs::MessageBoxView;
using moxui::dialogs::UI_ArchivedDialog;
using moxui::dialogs::UI_Dialog;
using moxui::dialogs::WindowVariant;
using moxui::dialogs::messagebox::MessageIcon;
using moxui::ui::UI_Node;
using Control = IntrusivePtr<UI_ControlView>;
using Node = IntrusivePtr<UI_Node>;

constexpr float kOpenWidth = 96.0f;
constexpr float kDialogWidth = 352.0f;

Control OpenButton(std::string_view title) {
  auto button =
      MakeIntrusive<Named<UI_TextButton>>(Text("$$$/playground/dialogs/openNamed=Open: @0", {Text(title)}),
                                          Text16("$$$/playground/dialogs/open=Open"));
  button->SetWantsKeyboardFocus(true);
  return button;
}

std::string AnswerText(unsigned button) {
  switch (button) {
    case DialogButton::kYes:
      return Text("$$$/playground/dialogs/yes=Yes");
    case DialogButton::kNo:
      return Text("$$$/playground/dialogs/no=No");
    case DialogButton::kOk:
      return Text("$$$/playground/sample/ok=OK");
    default:
      return Text("$$$/playground/sample/cancel=Cancel");
  }
}

// Boxes

MessageBoxContent Note() {
  return {.title = Text16("$$$/playground/dialogs/note/title=Export"),
          .text = Text16(
              "$$$/playground/dialogs/note/text=The sound has been written to \u201CInterview.wav\u201D."),
          .icon = MessageIcon::kNote};
}

MessageBoxContent Question() {
  return {.title = Text16("$$$/playground/dialogs/question/title=Close the sound"),
          .text = Text16(
              "$$$/playground/dialogs/question/text=\u201CInterview.wav\u201D has changes that have not "
              "been saved. Save them before it is closed?"),
          .buttons = DialogButton::kYes | DialogButton::kNo | DialogButton::kCancel,
          .defaultButton = DialogButton::kYes,
          .cancelButton = DialogButton::kCancel,
          .icon = MessageIcon::kQuestion};
}

MessageBoxContent Stop() {
  return {.title = Text16("$$$/playground/dialogs/note/title=Export"),
          .text = Text16(
              "$$$/playground/dialogs/stop/text=\u201CInterview.wav\u201D can\u2019t be written: the disk is "
              "full. Make room on it, or choose another folder, and export again."),
          .icon = MessageIcon::kStop};
}

MessageBoxContent Plain() {
  return {
      .title = Text16("$$$/playground/dialogs/plain/title=Remove the effect"),
      .text = Text16("$$$/playground/dialogs/plain/text=Three tracks use this effect. All of them will sound "
                     "without it."),
      .buttons = DialogButton::kOk | DialogButton::kCancel,
      .cancelButton = DialogButton::kCancel};
}

using Content = MessageBoxContent (*)();

std::string OpenMessage(Content content, UI_Node& parent) {
  MessageBoxContent const box = content();
  return AnswerText(moxui::dialogs::messagebox::Messagebox(moxmediaui::GetDrawSupplier(), box.title, box.text,
                                                           box.buttons, box.defaultButton, box.icon, &parent,
                                                           {}, box.cancelButton, box.textWidth));
}

std::string OpenStop(UI_Node& parent) {
  auto const content = Stop();
  moxui::dialogs::messagebox::ShowStop(moxmediaui::GetDrawSupplier(), content.title, content.text, &parent);
  return AnswerText(DialogButton::kOk);
}

ControlSample MessageSample(std::string_view title, Content content) {
  return {.title = title,
          .make = [title] { return OpenButton(title); },
          .width = kOpenWidth,
          .inside = [content]() -> Node { return MakeIntrusive<MessageBoxView>(content(), [](unsigned) {}); },
          .open = [content](UI_Node& parent) { return OpenMessage(content, parent); }};
}

InputBoxContent Rename() {
  return {.title = Text16("$$$/playground/dialogs/input/title=Rename the take"),
          .prompt = Text16("$$$/playground/dialogs/input/prompt=Name of the take"),
          .text = Text16("$$$/playground/dialogs/input/text=Take 9"),
          .minLength = 1,
          .maxLength = 64,
          .acceptButton = DialogButton::kOk,
          .cancelButton = DialogButton::kCancel};
}

std::string Quoted(moxcore::Utf16String const& text) {
  return "\u201C" + To8(text) + "\u201D";
}

std::string OpenRename(UI_Node& parent) {
  InputBoxContent content = Rename();
  bool const isAccepted = moxui::dialogs::SimpleInputBox(
      moxmediaui::GetDrawSupplier(), content.title, content.prompt, content.text, content.selectsText,
      &parent, content.readOnly, content.minLength, content.maxLength, content.acceptButton,
      content.cancelButton);
  return isAccepted ? Quoted(content.text) : AnswerText(DialogButton::kCancel);
}

// A dialog that is put together in code

struct MarkerDialog {
  IntrusivePtr<UI_Dialog> dialog;
  IntrusivePtr<UI_TextEdit> name;
};

float AddMarkerFields(moxui::ui::UI_SubView& view, UI_TextEdit& name) {
  float const inner = kDialogWidth - 2.0f * moxui::dialogs::kBoxPadding;
  float top = moxui::dialogs::kBoxPadding;
  auto const add = [&](UI_ControlView& control, float height, float gap) {
    control.UI_SetLocalRectF({moxui::dialogs::kBoxPadding, top, inner, height});
    control.UI_SetLayoutBinding(LayoutBinding::kBindRight);
    view.ChildPushBack(IntrusivePtr<UI_ControlView>(&control));
    top += height + gap;
  };
  auto const caption = MakeIntrusive<UI_StaticText>(Text16("$$$/playground/dialogs/marker/name=Name"));
  caption->SetAlignment(Leading());
  add(*caption, 16.0f, kRowGap);
  name.SetAccessibleName(moxcore::Utf8String(Text("$$$/playground/dialogs/marker/name=Name")));
  name.SetAlignment(Leading());
  name.SetValue(Text16("$$$/playground/dialogs/marker/text=Applause"), false);
  add(name, ControlHeight(), moxui::dialogs::kBoxGap);
  auto const isExported = MakeIntrusive<UI_Checkbox>();
  isExported->SetTextLabel(Text16("$$$/playground/dialogs/marker/export=Write it into exported sounds"));
  isExported->SetChecked(true);
  isExported->SetWantsKeyboardFocus(true);
  add(*isExported, ControlHeight(), moxui::dialogs::kBoxPadding);
  return top;
}

MarkerDialog MakeMarkerDialog(WindowVariant const& parent) {
  auto const dialog = MakeIntrusive<UI_Dialog>(moxmediaui::GetDrawSupplier(),
                                               Text16("$$$/playground/dialogs/marker/title=Add a marker"),
                                               parent, moxui::ExtentT<float>(kDialogWidth, 0.0f));
  auto const name = MakeIntrusive<UI_TextEdit>();
  moxui::ui::UI_SubView& view = *dialog->GetContentView();
  float const top = AddMarkerFields(view, *name);
  ButtonRow const buttons(view, DialogButton::kOk | DialogButton::kCancel, DialogButton::kOk,
                          [](unsigned) {});
  float const height = top + buttons.Arrange(kDialogWidth, top) + moxui::dialogs::kBoxPadding;
  dialog->SetSize({kDialogWidth, height});
  dialog->SetMinimumSize({kDialogWidth, height});
  for (unsigned const button : {DialogButton::kOk, DialogButton::kCancel}) {
    unsigned const across = Leading() == moxui::scriber::TextAlignment::kLeft
                                ? LayoutBinding::kFreeLeft | LayoutBinding::kBindRight
                                : LayoutBinding::kBindNone;
    buttons.Find(button)->UI_SetLayoutBinding(across | LayoutBinding::kFreeTop | LayoutBinding::kBindBottom);
  }
  dialog->SetOkButton(IntrusivePtr<UI_TextButton>(buttons.Find(DialogButton::kOk)));
  dialog->SetCancelButton(IntrusivePtr<UI_TextButton>(buttons.Find(DialogButton::kCancel)));
  return {.dialog = dialog, .name = name};
}

std::string OpenMarkerDialog(UI_Node& parent) {
  MarkerDialog const made = MakeMarkerDialog(&parent);
  bool const isAccepted = made.dialog->RunModal() == UI_Dialog::Response::kOk;
  return isAccepted ? Quoted(made.name->GetValue()) : AnswerText(DialogButton::kCancel);
}

// A dialog from a view archive

struct SizeDialog {
  IntrusivePtr<UI_ArchivedDialog> dialog;
  IntrusivePtr<UI_HotTextNumber> width;
  IntrusivePtr<UI_HotTextNumber> height;
};

IntrusivePtr<UI_HotTextNumber> SizeNumber(UI_ArchivedDialog const& dialog, std::string const& number,
                                          std::string_view caption, double value) {
  auto const text = moxcore::utility::CheckedCast<UI_StaticText>(dialog.GetNodeForID("StaticText" + number));
  text->SetValue(Text16(caption));
  auto control = moxcore::utility::CheckedCast<UI_HotTextNumber>(dialog.GetNodeForID("Number" + number));
  control->SetAccessibleName(moxcore::Utf8String(Text(caption)));
  control->SetMinValue(16.0);
  control->SetMaxValue(16384.0);
  control->SetDecimalPlaces(0);
  control->SetValue(value);
  return control;
}

SizeDialog MakeSizeDialog(WindowVariant const& parent) {
  auto const dialog = MakeIntrusive<UI_ArchivedDialog>(
      moxmediaui::GetDrawSupplier(), moxmediaui::GetResourceManager(), "CurvePointEditDialog",
      Text16("$$$/playground/dialogs/size/title=Frame size"), parent);
  dialog->SetMinimumSize(dialog->GetLocalRectF().Extent());
  auto const button = [&](std::string_view id) {
    return moxcore::utility::CheckedCast<UI_TextButton>(dialog->GetNodeForID(id));
  };
  dialog->SetOkButton(button("OKButton"));
  dialog->SetCancelButton(button("CancelButton"));
  return {.dialog = dialog,
          .width = SizeNumber(*dialog, "1", "$$$/playground/dialogs/size/width=Width", 1920.0),
          .height = SizeNumber(*dialog, "2", "$$$/playground/dialogs/size/height=Height", 1080.0)};
}

std::string OpenSizeDialog(UI_Node& parent) {
  SizeDialog const made = MakeSizeDialog(&parent);
  if (made.dialog->RunModal() != UI_Dialog::Response::kOk) {
    return AnswerText(DialogButton::kCancel);
  }
  return Text("$$$/playground/dialogs/size/answer=@0 by @1 pixels",
              {TextFromNumber(made.width->GetValue(), 0), TextFromNumber(made.height->GetValue(), 0)});
}

ControlSample Opened(std::string_view title, std::function<Node()> inside, std::string (*open)(UI_Node&)) {
  return {.title = title,
          .make = [title] { return OpenButton(title); },
          .width = kOpenWidth,
          .inside = std::move(inside),
          .open = open};
}

}  // namespace

std::vector<ControlSample> MessageBoxSamples() {
  return {MessageSample("$$$/playground/dialogs/note=Note", Note),
          MessageSample("$$$/playground/dialogs/question=Question", Question),
          Opened(
              "$$$/playground/dialogs/stop=Stop",
              []() -> Node { return MakeIntrusive<MessageBoxView>(Stop(), [](unsigned) {}); }, OpenStop),
          MessageSample("$$$/playground/dialogs/plain=Without an icon", Plain)};
}

std::vector<ControlSample> DialogSamples() {
  return {Opened(
              "$$$/playground/dialogs/input=Input",
              []() -> Node { return MakeIntrusive<InputBoxView>(Rename(), [](unsigned) {}); }, OpenRename),
          Opened(
              "$$$/playground/dialogs/dialog=Dialog",
              []() -> Node { return MakeMarkerDialog({}).dialog->GetViewContainer(); }, OpenMarkerDialog),
          Opened(
              "$$$/playground/dialogs/archived=From a view archive",
              []() -> Node { return MakeSizeDialog({}).dialog->GetViewContainer(); }, OpenSizeDialog)};
}

}  // namespace playground
