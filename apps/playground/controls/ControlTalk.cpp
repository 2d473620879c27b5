#include "controls/ControlTalk.h"

#include "program/Localized.h"
#include "program/NumberText.h"

#include <moxcore/messaging/Message.h>
#include <moxui/controls/UI_Button.h>
#include <moxui/controls/UI_ControlMessage.h>
#include <moxui/controls/UI_Popup.h>
#include <moxui/controls/UI_Slider.h>
#include <moxui/controls/UI_SliderHotTextNumber.h>
#include <moxui/controls/UI_TextEdit.h>

namespace playground {
namespace {

using moxui::controls::InteractiveChange;
using moxui::controls::UI_ControlMessage;
using moxui::controls::UI_ControlView;
using moxui::controls::UI_HoverMessage;
using moxui::controls::UI_InteractiveControlChangedMessage;
using moxui::controls::UI_Popup;
using moxui::controls::UI_Slider;
using moxui::controls::UI_SliderHotTextNumber;
using moxui::controls::UI_TextEdit;

std::string ValueOf(UI_ControlView const& control) {
  if (auto const* const popup = dynamic_cast<UI_Popup const*>(&control)) {
    return To8(popup->GetShownText());
  }
  if (auto const* const slider = dynamic_cast<UI_Slider const*>(&control)) {
    return TextFromNumber(slider->GetValue(), 3);
  }
  if (auto const* const slider = dynamic_cast<UI_SliderHotTextNumber const*>(&control)) {
    return TextFromNumber(slider->GetValue(), 3);
  }
  if (auto const* const edit = dynamic_cast<UI_TextEdit const*>(&control)) {
    return "\u201C" + To8(edit->GetValue()) + "\u201D";
  }
  return std::string(control.UI_GetAccessibleValue());
}

std::string PhaseOf(InteractiveChange change) {
  switch (change) {
    case InteractiveChange::kBegin:
      return Text("$$$/playground/message/begin=begin");
    case InteractiveChange::kContinue:
      return Text("$$$/playground/message/continue=continue");
    case InteractiveChange::kFinish:
      return Text("$$$/playground/message/finish=finish");
    case InteractiveChange::kCancel:
      return Text("$$$/playground/message/cancel=cancel");
  }
  return {};
}

std::string What(UI_ControlMessage const& message) {
  if (auto const* const interactive = dynamic_cast<UI_InteractiveControlChangedMessage const*>(&message)) {
    return PhaseOf(interactive->GetChangeMessage());
  }
  if (auto const* const hover = dynamic_cast<UI_HoverMessage const*>(&message)) {
    return hover->IsAction(moxui::ui::PointerAction::kLeave)
               ? Text("$$$/playground/message/leave=pointer left")
               : Text("$$$/playground/message/hover=pointer over");
  }
  return Text("$$$/playground/message/changed=changed");
}

}  // namespace

std::string MessageText(std::string_view control, moxcore::messaging::Message const& message) {
  auto const* const known = dynamic_cast<UI_ControlMessage const*>(&message);
  if (known == nullptr) {
    return std::string(control);
  }
  std::string const value = ValueOf(known->GetControl());
  if (value.empty() || dynamic_cast<UI_HoverMessage const*>(known) != nullptr) {
    return Text("$$$/playground/message/plain=@0: @1", {control, What(*known)});
  }
  return Text("$$$/playground/message/value=@0: @1, @2", {control, What(*known), value});
}

}  // namespace playground
