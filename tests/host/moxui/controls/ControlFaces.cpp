#include "ControlFaces.h"

#include "RunningLook.h"

#include <moxui/controls/UI_Button.h>
#include <moxui/controls/UI_Checkbox.h>
#include <moxui/controls/UI_DisclosureTriangleButton.h>
#include <moxui/controls/UI_HotText.h>
#include <moxui/controls/UI_HotTextNumber.h>
#include <moxui/controls/UI_PictureButton.h>
#include <moxui/controls/UI_PictureTextButton.h>
#include <moxui/controls/UI_Popup.h>
#include <moxui/controls/UI_RadioButton.h>
#include <moxui/controls/UI_ScrollBar.h>
#include <moxui/controls/UI_Slider.h>
#include <moxui/controls/UI_SliderHotTextNumber.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/controls/UI_TextEdit.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/Theme.h>
#include <moxui/testing/Stage.h>

#include <algorithm>
#include <cstddef>

namespace moxui::testing {
namespace {

using controls::UI_ControlView;
using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;

constexpr float kRoom = 4.0f;

std::vector<FaceState> const kAllStates = {FaceState::kNormal,  FaceState::kHover,    FaceState::kPressed,
                                           FaceState::kFocused, FaceState::kDisabled, FaceState::kUnknown};
std::vector<FaceState> const kKnownStates = {FaceState::kNormal, FaceState::kHover, FaceState::kPressed,
                                             FaceState::kFocused, FaceState::kDisabled};

// A square in the tone that the state asks for.
void SupplySquare(moxcore::messaging::ConstMessage* message) {
  auto& question = dynamic_cast<controls::UI_PictureSupplyMessage&>(*message);
  bool const isDisabled = question.GetStateFlags().Has(controls::ControlState::kDisabled);
  scriber::SurfaceP const surface = question.GetDrawSupplier()->NewOffscreenSurface(12, 12, 1.0f);
  surface->FillRect(
      {0.0f, 0.0f, 12.0f, 12.0f},
      ui::GetColor(isDisabled ? ui::ThemeColorID::kButtonTextDisabled : ui::ThemeColorID::kButtonText));
  question.SetImage(surface->GetImage());
}

auto SquareSupply() {
  return std::make_shared<moxcore::messaging::ConstMessageFunction>(SupplySquare);
}

std::vector<ControlFace> MakeFaces() {
  std::vector<ControlFace> faces;
  faces.push_back({"text_button",
                   {80, 24},
                   [] { return MakeIntrusive<controls::UI_TextButton>(u"Render"); },
                   kKnownStates});
  faces.push_back({"default_button",
                   {80, 24},
                   [] {
                     auto const button = MakeIntrusive<controls::UI_TextButton>(u"OK");
                     button->SetDefaultAppearance(true);
                     return button;
                   },
                   kKnownStates});
  faces.push_back({"toggle_on",
                   {80, 24},
                   [] {
                     auto const button = MakeIntrusive<controls::UI_TextButton>(u"Loop");
                     button->SetButtonStyle(controls::ButtonStyle::kToggle);
                     button->SetValue(true);
                     return button;
                   },
                   kAllStates});
  faces.push_back({"picture_button",
                   {24, 24},
                   [] {
                     auto const button = MakeIntrusive<controls::UI_PictureButton>();
                     button->SetImageSupplyFunction(SquareSupply());
                     return button;
                   },
                   kKnownStates});
  faces.push_back({"picture_text_button",
                   {100, 24},
                   [] {
                     auto const button = MakeIntrusive<controls::UI_PictureTextButton>(u"Relink");
                     button->SetImageSupplyFunction(SquareSupply());
                     return button;
                   },
                   kKnownStates});
  auto const makeCheck = [](bool isOn) {
    return [isOn] {
      auto const box = MakeIntrusive<controls::UI_Checkbox>();
      box->SetLabelText("Snap to frames");
      box->SetChecked(isOn);
      return box;
    };
  };
  faces.push_back({"checkbox_off", {120, 24}, makeCheck(false), kKnownStates});
  faces.push_back({"checkbox_on", {120, 24}, makeCheck(true), kAllStates});
  auto const makeRadio = [](bool isOn) {
    return [isOn] {
      auto const radio = MakeIntrusive<controls::UI_RadioButton>();
      radio->SetLabelText("Drop-Frame");
      radio->SetValue(isOn);
      return radio;
    };
  };
  faces.push_back({"radio_off", {110, 24}, makeRadio(false), kKnownStates});
  faces.push_back({"radio_on", {110, 24}, makeRadio(true), kAllStates});
  auto const makeTriangle = [](bool isOpen) {
    return [isOpen] {
      auto const triangle = MakeIntrusive<controls::UI_DisclosureTriangleButton>();
      triangle->SetValue(isOpen);
      return triangle;
    };
  };
  faces.push_back({"triangle_collapsed", {16, 16}, makeTriangle(false), kKnownStates});
  faces.push_back({"triangle_expanded", {16, 16}, makeTriangle(true), kAllStates});
  faces.push_back({"popup",
                   {130, 24},
                   [] {
                     auto const popup = MakeIntrusive<controls::UI_Popup>();
                     popup->AddItem(u"Stereo");
                     popup->AddItem(u"5.1");
                     popup->SetValue(0);
                     return popup;
                   },
                   kAllStates});
  faces.push_back({"slider",
                   {120, 24},
                   [] {
                     auto const slider = MakeIntrusive<controls::UI_Slider>();
                     slider->SetValue(0.4);
                     return slider;
                   },
                   kAllStates});
  faces.push_back({"slider_vertical",
                   {28, 90},
                   [] {
                     auto const slider = MakeIntrusive<controls::UI_Slider>(controls::SliderStyle::kTicked,
                                                                            controls::Orientation::kVertical);
                     slider->SetValue(0.7);
                     return slider;
                   },
                   kAllStates});
  faces.push_back({"slider_hot_text_number",
                   {200, 40},
                   [] {
                     auto const size = MakeIntrusive<controls::UI_SliderHotTextNumber>();
                     size->Init();
                     size->SetExtent(1.0, 400.0);
                     size->GetHotTextNumber()->SetDecimalPlaces(1);
                     size->GetHotTextNumber()->SetMaxValue(1600.0);
                     size->SetValue(144.0);
                     return size;
                   },
                   {FaceState::kNormal, FaceState::kDisabled}});
  faces.push_back({"scroll_bar",
                   {12, 90},
                   [] {
                     auto const bar = MakeIntrusive<controls::UI_ScrollBar>(controls::Orientation::kVertical);
                     bar->SetLengths(300.0f, 90.0f);
                     bar->SetOffset(40.0f);
                     return bar;
                   },
                   {FaceState::kNormal, FaceState::kHover, FaceState::kPressed, FaceState::kDisabled}});
  faces.push_back({"static_text",
                   {120, 16},
                   [] { return MakeIntrusive<controls::UI_StaticText>(u"Sample rate"); },
                   {FaceState::kNormal, FaceState::kDisabled, FaceState::kUnknown}});
  faces.push_back({"text_edit",
                   {130, 24},
                   [] {
                     auto const edit = MakeIntrusive<controls::UI_TextEdit>();
                     edit->SetValue(u"Interview 04", false);
                     return edit;
                   },
                   {FaceState::kNormal, FaceState::kHover, FaceState::kFocused, FaceState::kDisabled}});
  faces.push_back({"text_edit_empty",
                   {130, 24},
                   [] {
                     auto const edit = MakeIntrusive<controls::UI_TextEdit>();
                     edit->SetPlaceholder(u"Search pages");
                     return edit;
                   },
                   {FaceState::kNormal}});
  faces.push_back({"text_edit_lines",
                   {150, 62},
                   [] {
                     auto const edit = MakeIntrusive<controls::UI_TextEdit>();
                     edit->SetMultiLine(true);
                     edit->SetValue(u"Interview 04\nThe second microphone is the better one.\nKeep take 12.",
                                    false);
                     return edit;
                   },
                   {FaceState::kNormal, FaceState::kHover, FaceState::kFocused, FaceState::kDisabled}});
  faces.push_back(
      {"hot_text", {100, 24}, [] { return MakeIntrusive<controls::UI_HotText>(u"Untitled"); }, kAllStates});
  auto const makeNumber = [](bool isInBox) {
    return [isInBox] {
      auto const number = MakeIntrusive<controls::UI_HotTextNumber>();
      number->SetDecimalPlaces(1);
      number->SetValue(-12.5);
      number->SetTextLabel(u" dB");
      number->SetNumericInput(isInBox);
      return number;
    };
  };
  faces.push_back({"hot_text_number", {80, 24}, makeNumber(false), kAllStates});
  faces.push_back({"hot_text_number_box", {80, 24}, makeNumber(true), kAllStates});
  faces.push_back({"hot_text_number_edited",
                   {80, 24},
                   [makeNumber] { return makeNumber(false)(); },
                   {FaceState::kEdited}});
  return faces;
}

void PutTile(platform::Pixels& sheet, platform::Pixels const& tile, int left, int top) {
  auto const tileRow = 4 * static_cast<std::size_t>(tile.width);
  for (int y = 0; y < tile.height; ++y) {
    auto const from = static_cast<std::size_t>(y) * tileRow;
    auto const to = 4 * (static_cast<std::size_t>(top + y) * static_cast<std::size_t>(sheet.width) +
                         static_cast<std::size_t>(left));
    std::copy_n(tile.bytes.begin() + static_cast<std::ptrdiff_t>(from), tileRow,
                sheet.bytes.begin() + static_cast<std::ptrdiff_t>(to));
  }
}

}  // namespace

void PutIntoState(Stage& stage, UI_ControlView& control, FaceState state) {
  switch (state) {
    case FaceState::kNormal:
      break;
    case FaceState::kPressed:
      control.SetDownState(true);
      [[fallthrough]];
    case FaceState::kHover:
      stage.Move(stage.CenterOf(control));
      break;
    case FaceState::kFocused:
      control.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
      break;
    case FaceState::kDisabled:
      control.SetDisabled(true);
      break;
    case FaceState::kUnknown:
      control.SetValueUnknown();
      break;
    case FaceState::kEdited:
      control.UI_DoAccessibleAction();
      break;
  }
}

std::string NameOf(FaceState state) {
  switch (state) {
    case FaceState::kNormal:
      return "normal";
    case FaceState::kHover:
      return "hover";
    case FaceState::kPressed:
      return "pressed";
    case FaceState::kFocused:
      return "focused";
    case FaceState::kDisabled:
      return "disabled";
    case FaceState::kUnknown:
      return "unknown";
    case FaceState::kEdited:
      return "edited";
  }
  return {};
}

std::vector<ControlFace> const& GetControlFaces() {
  static std::vector<ControlFace> const faces = MakeFaces();
  return faces;
}

platform::Pixels TakeFacePicture(ControlFace const& face, FaceState state, float scale) {
  Stage stage(ExtentT<float>(face.size.width + 2.0f * kRoom, face.size.height + 2.0f * kRoom));
  stage.SetBackground(ui::GetColor(ui::ThemeColorID::kPanelBackground));
  IntrusivePtr<UI_ControlView> const control = face.make();
  control->UI_SetLocalRectF({kRoom, kRoom, face.size.width, face.size.height});
  stage.GetRootView().ChildPushBack(control);
  PutIntoState(stage, *control, state);
  return stage.TakePicture(scale);
}

platform::Pixels TakeFaceInAllLooks(ControlFace const& face, FaceState state, float scale) {
  platform::Pixels sheet;
  int row = 0;
  for (bool const isV7 : {true, false}) {
    int column = 0;
    for (ui::ThemeID const theme : {ui::ThemeID::kDark, ui::ThemeID::kLight, ui::ThemeID::kHighContrast}) {
      RunningLook const look(isV7, theme);
      platform::Pixels const tile = TakeFacePicture(face, state, scale);
      if (sheet.bytes.empty()) {
        sheet.width = 3 * tile.width;
        sheet.height = 2 * tile.height;
        sheet.bytes.resize(4 * static_cast<std::size_t>(sheet.width) *
                           static_cast<std::size_t>(sheet.height));
      }
      PutTile(sheet, tile, column * tile.width, row * tile.height);
      ++column;
    }
    ++row;
  }
  return sheet;
}

}  // namespace moxui::testing
