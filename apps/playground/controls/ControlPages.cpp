#include "controls/ControlPages.h"

#include "audio/TransportIcons.h"
#include "controls/BoxSamples.h"
#include "controls/ControlKeys.h"
#include "controls/ControlPage.h"
#include "controls/DialogSamples.h"
#include "controls/DrawnSamples.h"
#include "controls/SampleState.h"
#include "controls/ScrollSample.h"
#include "controls/TreeSample.h"
#include "program/Localized.h"
#include "shell/Named.h"
#include "shell/Painting.h"

#include <moxui/controls/UI_Checkbox.h>
#include <moxui/controls/UI_DisclosureTriangleButton.h>
#include <moxui/controls/UI_HotText.h>
#include <moxui/controls/UI_HotTextNumber.h>
#include <moxui/controls/UI_PictureButton.h>
#include <moxui/controls/UI_PictureTextButton.h>
#include <moxui/controls/UI_Popup.h>
#include <moxui/controls/UI_RadioButton.h>
#include <moxui/controls/UI_Slider.h>
#include <moxui/controls/UI_SliderHotTextNumber.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/controls/UI_TextEdit.h>

#include <utility>

namespace playground {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using moxui::controls::ControlAlignment;
using moxui::controls::TextTruncation;
using moxui::controls::UI_Checkbox;
using moxui::controls::UI_ControlView;
using moxui::controls::UI_DisclosureTriangleButton;
using moxui::controls::UI_HotText;
using moxui::controls::UI_HotTextNumber;
using moxui::controls::UI_PictureButton;
using moxui::controls::UI_PictureTextButton;
using moxui::controls::UI_Popup;
using moxui::controls::UI_RadioButton;
using moxui::controls::UI_Slider;
using moxui::controls::UI_SliderHotTextNumber;
using moxui::controls::UI_StaticText;
using moxui::controls::UI_TextButton;
using moxui::controls::UI_TextEdit;
using Control = IntrusivePtr<UI_ControlView>;

template <class Made>
Control Focusable(IntrusivePtr<Made> control) {
  control->SetWantsKeyboardFocus(true);
  return control;
}

Control TextButton(bool isDefault, bool toggles) {
  auto button = MakeIntrusive<UI_TextButton>(toggles ? Text16("$$$/playground/sample/loop=Loop")
                                                     : Text16("$$$/playground/sample/render=Render"));
  button->SetDefaultAppearance(isDefault);
  if (toggles) {
    button->SetButtonStyle(moxui::controls::ButtonStyle::kToggle);
    button->SetValue(true);
  }
  return Focusable(std::move(button));
}

enum class Accent { kNegative, kQuiet, kEmphasized, kHoldIcon };

Control AccentedButton(Accent accent) {
  auto button =
      MakeIntrusive<UI_TextButton>(accent == Accent::kNegative ? Text16("$$$/playground/sample/delete=Delete")
                                                               : Text16("$$$/playground/sample/loop=Loop"));
  switch (accent) {
    case Accent::kNegative:
      button->SetVariant(moxui::controls::ButtonVariant::kNegative);
      break;
    case Accent::kQuiet:
      button->SetQuiet(true);
      break;
    case Accent::kEmphasized:
      button->SetButtonStyle(moxui::controls::ButtonStyle::kToggle);
      button->SetEmphasized(true);
      button->SetValue(true);
      break;
    case Accent::kHoldIcon:
      button->SetShowHoldIcon(true);
      break;
  }
  return Focusable(std::move(button));
}

Control PictureButton() {
  auto button = MakeIntrusive<Named<UI_PictureButton>>(Text("$$$/playground/sample/play=Play"));
  button->SetImageSupplyFunction(IconOf(TransportIcon::kPlay));
  return Focusable(std::move(button));
}

Control PictureTextButton() {
  auto button = MakeIntrusive<UI_PictureTextButton>();
  button->SetTextLabel(Text16("$$$/playground/sample/play=Play"));
  button->SetImageSupplyFunction(IconOf(TransportIcon::kPlay));
  return Focusable(std::move(button));
}

Control DisclosureTriangle() {
  auto button =
      MakeIntrusive<Named<UI_DisclosureTriangleButton>>(Text("$$$/playground/sample/details=Details"));
  return Focusable(std::move(button));
}

Control RadioButton() {
  auto button = MakeIntrusive<UI_RadioButton>();
  button->SetTextLabel(Text16("$$$/playground/sample/stereo=Stereo"));
  return Focusable(std::move(button));
}

Control Checkbox(bool checked, bool labelled) {
  IntrusivePtr<UI_Checkbox> box;
  if (labelled) {
    box = MakeIntrusive<UI_Checkbox>();
    box->SetTextLabel(Text16("$$$/playground/sample/solo=Solo the channel"));
  } else {
    box = MakeIntrusive<Named<UI_Checkbox>>(Text("$$$/playground/sample/solo=Solo the channel"));
  }
  box->SetChecked(checked);
  return Focusable(std::move(box));
}

Control StaticText(ControlAlignment alignment, TextTruncation truncation, bool bold) {
  auto text = MakeIntrusive<UI_StaticText>(
      truncation == TextTruncation::kNone
          ? Text16("$$$/playground/sample/trackName=Dialogue, scene 12")
          : Text16("$$$/playground/sample/longName=Interview with the conductor, second microphone, take 7"));
  text->SetAlignment(alignment);
  text->SetTextTruncation(truncation);
  text->SetBold(bold);
  return text;
}

Control WrappedText() {
  auto text = MakeIntrusive<UI_StaticText>(Text16(
      "$$$/playground/sample/note=Channels that are switched off keep their place in the file, but are "
      "left out of the mix."));
  text->SetMultiLine(true);
  text->SetAlignment(Leading());
  return text;
}

Control Popup(bool checks) {
  auto popup = MakeIntrusive<Named<UI_Popup>>(Text("$$$/playground/sample/layout=Channel layout"));
  for (std::string_view const item :
       {"$$$/playground/sample/layout/mono=Mono", "$$$/playground/sample/layout/stereo=Stereo",
        "$$$/playground/sample/layout/surround=5.1 Surround"}) {
    popup->AddItem(Text16(item));
  }
  popup->AddSeparator();
  popup->AddItem(Text16("$$$/playground/sample/layout/eight=7.1 Surround"));
  popup->SetValue(1);
  popup->SetItemCheckStyle(checks ? moxui::controls::ItemCheckStyle::kCurrent
                                  : moxui::controls::ItemCheckStyle::kNone);
  return Focusable(std::move(popup));
}

Control QuietPopup() {
  auto popup = MakeIntrusive<Named<UI_Popup>>(Text("$$$/playground/sample/layout=Channel layout"),
                                              moxui::controls::PopupType::kList,
                                              moxui::controls::PopupVariant::kQuiet);
  popup->AddItem(Text16("$$$/playground/sample/layout/mono=Mono"));
  popup->AddItem(Text16("$$$/playground/sample/layout/stereo=Stereo"));
  popup->SetValue(1);
  return Focusable(std::move(popup));
}

Control EmptyPopup() {
  auto popup = MakeIntrusive<Named<UI_Popup>>(Text("$$$/playground/sample/layout=Channel layout"));
  popup->SetValueString(Text16("$$$/playground/sample/layout/modified=Stereo (modified)"), true, true);
  popup->AddItem(Text16("$$$/playground/sample/layout/stereo=Stereo"));
  return Focusable(std::move(popup));
}

Control Slider(moxui::controls::SliderStyle style, moxui::controls::Orientation orientation) {
  auto slider =
      MakeIntrusive<Named<UI_Slider>>(Text("$$$/playground/sample/level=Level"), style, orientation);
  slider->SetLimits(-24.0, 24.0);
  slider->SetStepSize(1.0);
  slider->SetPageSize(6.0);
  slider->SetValue(-6.0);
  return Focusable(std::move(slider));
}

Control SliderWithNumber() {
  auto slider = MakeIntrusive<UI_SliderHotTextNumber>();
  slider->Init();
  slider->SetAccessibleName(moxcore::Utf8String(Text("$$$/playground/sample/fontSize=Font size")));
  slider->SetExtent(1.0, 400.0);
  slider->GetHotTextNumber()->SetMaxValue(1600.0);
  slider->GetHotTextNumber()->SetDecimalPlaces(1);
  slider->SetValue(48.0);
  return slider;
}

Control TextEdit(bool empty, bool readOnly) {
  auto edit = MakeIntrusive<UI_TextEdit>();
  edit->SetAccessibleName(moxcore::Utf8String(Text("$$$/playground/sample/clipName=Name of the clip")));
  edit->SetAlignment(Leading());
  if (empty) {
    edit->SetPlaceholder(Text16("$$$/playground/sample/placeholder=Name of the clip"));
  } else {
    edit->SetValue(Text16("$$$/playground/sample/clip=Opening titles"), false);
  }
  edit->SetReadOnly(readOnly);
  return edit;
}

Control TextLines() {
  auto edit = MakeIntrusive<UI_TextEdit>();
  edit->SetAccessibleName(moxcore::Utf8String(Text("$$$/playground/sample/remarks=Remarks")));
  edit->SetMultiLine(true);
  edit->SetAlignment(Leading());
  edit->SetValue(
      Text16("$$$/playground/sample/remarks/text=The second take is the one to keep.\nMind the door in "
             "the background: it is heard twice, and once more at the end."),
      false);
  return edit;
}

Control HotText() {
  auto text = MakeIntrusive<UI_HotText>(Text16("$$$/playground/sample/clip=Opening titles"));
  text->SetAccessibleName(moxcore::Utf8String(Text("$$$/playground/sample/clipName=Name of the clip")));
  return text;
}

IntrusivePtr<UI_HotTextNumber> HotNumber(std::string_view name, double minimum, double maximum,
                                         double value) {
  auto number = MakeIntrusive<UI_HotTextNumber>();
  number->SetAccessibleName(moxcore::Utf8String(Text(name)));
  number->SetMinValue(minimum);
  number->SetMaxValue(maximum);
  number->SetValue(value);
  return number;
}

Control FontSizeNumber() {
  auto number = HotNumber("$$$/playground/sample/fontSize=Font size", 1.0, 1600.0, 48.0);
  number->SetDecimalPlaces(1);
  return number;
}

Control GainNumber(bool inBox) {
  auto number = HotNumber("$$$/playground/sample/gain=Gain", -96.0, 24.0, -6.5);
  number->SetDecimalPlaces(1);
  number->SetIncrement(0.1);
  number->SetShiftIncrement(1.0);
  number->SetCmdIncrement(0.01);
  number->SetFormatAlwaysSign(true);
  number->SetTextLabel(Text16("$$$/playground/sample/gain/unit= dB"));
  number->SetNumericInput(inBox);
  return number;
}

Control SampleRateNumber() {
  auto number = HotNumber("$$$/playground/sample/sampleRate=Sample rate", 8000.0, 384000.0, 48000.0);
  number->SetShiftIncrement(1000.0);
  number->SetFormatUseSeparator(true);
  number->SetTextLabel(Text16("$$$/playground/sample/sampleRate/unit= Hz"));
  return number;
}

PageDescriptor Described(std::string_view name, std::string_view title, std::string_view description,
                         std::vector<ControlSample> (*samples)(),
                         // NOLINTNEXTLINE(performance-unnecessary-value-param): a list made for the call
                         std::vector<SampleState> states = {SampleState::kNormal, SampleState::kHover,
                                                            SampleState::kPressed, SampleState::kFocused,
                                                            SampleState::kDisabled, SampleState::kUnknown}) {
  return {.name = name,
          .title = title,
          .group = "$$$/playground/group/controls=Stock controls",
          .description = description,
          .states = PageStatesOf(states),
          .make = [name, samples, states](PageContext const& context) -> IntrusivePtr<Page> {
            return MakeIntrusive<ControlPage>(context, samples(), states, KeysOfPage(name));
          }};
}

std::vector<ControlSample> Buttons() {
  return {
      {"$$$/playground/sample/textButton=Text", [] { return TextButton(false, false); }, 96.0f},
      {"$$$/playground/sample/defaultButton=Default", [] { return TextButton(true, false); }, 96.0f},
      {"$$$/playground/sample/toggleButton=Toggle", [] { return TextButton(false, true); }, 96.0f},
      {"$$$/playground/sample/emphasizedButton=Emphasised",
       [] { return AccentedButton(Accent::kEmphasized); }, 96.0f},
      {"$$$/playground/sample/negativeButton=Negative", [] { return AccentedButton(Accent::kNegative); },
       96.0f},
      {"$$$/playground/sample/quietButton=Quiet", [] { return AccentedButton(Accent::kQuiet); }, 96.0f},
      {"$$$/playground/sample/holdButton=With a hold icon", [] { return AccentedButton(Accent::kHoldIcon); },
       96.0f},
      {"$$$/playground/sample/pictureButton=Picture", [] { return PictureButton(); }, 32.0f},
      {"$$$/playground/sample/namedPictureButton=Picture by name", [] { return NamedPictureSample(); },
       32.0f},
      {"$$$/playground/sample/pictureTextButton=Picture and text", [] { return PictureTextButton(); }, 96.0f},
      {"$$$/playground/sample/disclosure=Disclosure triangle", [] { return DisclosureTriangle(); }},
      {"$$$/playground/sample/radio=Radio", [] { return RadioButton(); }, 120.0f},
      {"$$$/playground/sample/ownerDrawn=Drawn by its owner", [] { return OwnerDrawnSample(); }, 96.0f}};
}

std::vector<ControlSample> Checkboxes() {
  return {{"$$$/playground/sample/boxOff=Off", [] { return Checkbox(false, true); }, 180.0f},
          {"$$$/playground/sample/boxOn=On", [] { return Checkbox(true, true); }, 180.0f},
          {"$$$/playground/sample/boxBare=Without a label", [] { return Checkbox(true, false); }}};
}

std::vector<ControlSample> Texts() {
  return {{"$$$/playground/sample/textLeft=Left",
           [] { return StaticText(ControlAlignment::kLeft, TextTruncation::kNone, false); }, 240.0f, 20.0f},
          {"$$$/playground/sample/textCentre=Centred",
           [] { return StaticText(ControlAlignment::kCenter, TextTruncation::kNone, false); }, 240.0f, 20.0f},
          {"$$$/playground/sample/textRight=Right",
           [] { return StaticText(ControlAlignment::kRight, TextTruncation::kNone, false); }, 240.0f, 20.0f},
          {"$$$/playground/sample/textBold=Bold",
           [] { return StaticText(ControlAlignment::kLeft, TextTruncation::kNone, true); }, 240.0f, 20.0f},
          {"$$$/playground/sample/textStart=Cut at the start",
           [] { return StaticText(ControlAlignment::kLeft, TextTruncation::kStart, false); }, 240.0f, 20.0f},
          {"$$$/playground/sample/textMiddle=Cut in the middle",
           [] { return StaticText(ControlAlignment::kLeft, TextTruncation::kMiddle, false); }, 240.0f, 20.0f},
          {"$$$/playground/sample/textEnd=Cut at the end",
           [] { return StaticText(ControlAlignment::kLeft, TextTruncation::kEnd, false); }, 240.0f, 20.0f},
          {"$$$/playground/sample/textWrapped=Wrapped", [] { return WrappedText(); }, 240.0f, 68.0f},
          {"$$$/playground/sample/staticImage=Picture", [] { return StaticImageSample(); }}};
}

std::vector<ControlSample> Popups() {
  return {{"$$$/playground/sample/popupPlain=Without marks", [] { return Popup(false); }, 200.0f},
          {"$$$/playground/sample/popupChecked=With a check mark", [] { return Popup(true); }, 200.0f},
          {"$$$/playground/sample/popupText=With a text of its own", [] { return EmptyPopup(); }, 200.0f},
          {"$$$/playground/sample/popupQuiet=Quiet", [] { return QuietPopup(); }, 200.0f}};
}

std::vector<ControlSample> Sliders() {
  using moxui::controls::Orientation;
  using moxui::controls::SliderStyle;
  return {
      {"$$$/playground/sample/sliderPlain=Plain",
       [] { return Slider(SliderStyle::kPlain, Orientation::kHorizontal); }, 240.0f},
      {"$$$/playground/sample/sliderTicked=With ticks",
       [] { return Slider(SliderStyle::kTicked, Orientation::kHorizontal); }, 240.0f},
      {"$$$/playground/sample/sliderVertical=Vertical",
       [] { return Slider(SliderStyle::kPlain, Orientation::kVertical); }, 24.0f, 160.0f},
      {"$$$/playground/sample/sliderNumber=With a hot number", [] { return SliderWithNumber(); }, 240.0f}};
}

std::vector<ControlSample> ScrollViews() {
  // The upright bar's thumb.
  constexpr moxui::PointT<float> kThumb{0.98f, 0.1f};
  return {{"$$$/playground/sample/scrollVertical=Fits the width", [] { return ScrollSample(false); }, 280.0f,
           140.0f, kThumb},
          {"$$$/playground/sample/scrollBoth=Both ways", [] { return ScrollSample(true); }, 280.0f, 140.0f,
           kThumb}};
}

std::vector<ControlSample> Trees() {
  // Below the rows that are selected.
  constexpr moxui::PointT<float> kLow{0.5f, 0.7f};
  // The name of a column.
  constexpr moxui::PointT<float> kName{0.3f, 0.06f};
  return {{"$$$/playground/sample/treeTakes=A hundred thousand rows",
           [] { return TreeSample(TreeKind::kTakes); }, 280.0f, 160.0f, kName},
          {"$$$/playground/sample/treeChannels=Controls in cells",
           [] { return TreeSample(TreeKind::kChannels); }, 280.0f, 160.0f, kLow},
          {"$$$/playground/sample/treeBins=Nested", [] { return TreeSample(TreeKind::kBins); }, 280.0f,
           160.0f, kLow}};
}

std::vector<ControlSample> Boxes() {
  using moxui::controls::ChromeType;
  return {{"$$$/playground/sample/boxOutline=Outline", [] { return BoxSample(ChromeType::kOutline, 0.0f); },
           240.0f, 64.0f},
          {"$$$/playground/sample/boxTwoLines=Two lines",
           [] { return BoxSample(ChromeType::kOutline, 1.0f); }, 240.0f, 64.0f},
          {"$$$/playground/sample/boxFilled=Filled", [] { return BoxSample(ChromeType::kFilled, 0.0f); },
           240.0f, 64.0f},
          {"$$$/playground/sample/rowAtRight=Buttons at the right", [] { return ButtonRowSample(true); },
           280.0f, 24.0f},
          {"$$$/playground/sample/rowAtLeft=Buttons at the left", [] { return ButtonRowSample(false); },
           280.0f, 24.0f}};
}

std::vector<ControlSample> TextEdits() {
  return {{"$$$/playground/sample/editText=Text", [] { return TextEdit(false, false); }, 240.0f},
          {"$$$/playground/sample/editEmpty=Empty", [] { return TextEdit(true, false); }, 240.0f},
          {"$$$/playground/sample/editReadOnly=Read only", [] { return TextEdit(false, true); }, 240.0f},
          {"$$$/playground/sample/editLines=Several lines", [] { return TextLines(); }, 240.0f, 72.0f}};
}

std::vector<ControlSample> HotTexts() {
  return {{"$$$/playground/sample/hotText=Text", [] { return HotText(); }, 160.0f},
          {"$$$/playground/sample/hotNumber=Number", [] { return FontSizeNumber(); }, 80.0f},
          {"$$$/playground/sample/hotUnit=With sign and unit", [] { return GainNumber(false); }, 80.0f},
          {"$$$/playground/sample/hotThousands=With thousands", [] { return SampleRateNumber(); }, 96.0f},
          {"$$$/playground/sample/hotBox=In a box", [] { return GainNumber(true); }, 96.0f}};
}

}  // namespace

std::vector<PageDescriptor> ControlPages() {
  return {
      Described("buttons", "$$$/playground/page/buttons=Buttons",
                "$$$/playground/page/buttons/text=Everything that is pressed.", Buttons),
      Described("checkbox", "$$$/playground/page/checkbox=Checkbox",
                "$$$/playground/page/checkbox/text=A box with a mark, and a label beside it.", Checkboxes),
      Described("static-text", "$$$/playground/page/staticText=Static text",
                "$$$/playground/page/staticText/text=A text to be read: one line, or wrapped at words. A "
                "picture to be "
                "looked at.",
                Texts, {SampleState::kNormal, SampleState::kDisabled, SampleState::kUnknown}),
      Described("popup", "$$$/playground/page/popup=Popup",
                "$$$/playground/page/popup/text=One of several items, chosen from a menu.", Popups),
      Described("slider", "$$$/playground/page/slider=Slider",
                "$$$/playground/page/slider/text=A value between two ends. Shift takes big steps, Ctrl small "
                "ones.",
                Sliders),
      Described("scroll-view", "$$$/playground/page/scrollView=Scroll view",
                "$$$/playground/page/scrollView/text=A window onto something larger.", ScrollViews,
                {SampleState::kNormal, SampleState::kHover, SampleState::kPressed, SampleState::kFocused,
                 SampleState::kDisabled}),
      Described("hot-text", "$$$/playground/page/hotText=Hot text",
                "$$$/playground/page/hotText/text=Text and numbers that are edited where they stand: drag a "
                "number, "
                "or click and type.",
                HotTexts),
      Described(
          "tree", "$$$/playground/page/tree=Tree",
          "$$$/playground/page/tree/text=Rows in columns, any number of them, with whatever cells hold.",
          Trees,
          {SampleState::kNormal, SampleState::kHover, SampleState::kPressed, SampleState::kFocused,
           SampleState::kDisabled}),
      Described(
          "box", "$$$/playground/page/box=Boxes and rows",
          "$$$/playground/page/box/text=Frames around what belongs together, and rows of buttons that make "
          "room for their texts.",
          Boxes, {SampleState::kNormal, SampleState::kDisabled}),
      Described("text-edit", "$$$/playground/page/textEdit=Text field",
                "$$$/playground/page/textEdit/text=Text to be edited, a line or several. Enter commits, "
                "Escape takes "
                "it back.",
                TextEdits,
                {SampleState::kNormal, SampleState::kHover, SampleState::kFocused, SampleState::kDisabled,
                 SampleState::kUnknown}),
      Described("message-box", "$$$/playground/page/messageBox=Message boxes",
                "$$$/playground/page/messageBox/text=Something is told or asked, and an answer waited for.",
                MessageBoxSamples, {SampleState::kNormal, SampleState::kFocused}),
      Described("dialog", "$$$/playground/page/dialog=Dialogs",
                "$$$/playground/page/dialog/text=Windows that wait for an answer: a line of text, controls, "
                "views from an archive.",
                DialogSamples, {SampleState::kNormal, SampleState::kFocused})};
}

}  // namespace playground
