#include "../ArchiveClasses.h"

#include <moxui/controls/UI_PictureButton.h>
#include <moxui/controls/UI_TextButton.h>

namespace moxui::archive {

namespace {

using controls::UI_Button;
using controls::UI_PictureButton;
using controls::UI_TextButton;

template <auto kSetter>
void SetBoolean(UI_Button& button, PropertyValue const& value) {
  (button.*kSetter)(value.AsBoolean());
}

template <auto kSetter>
void SetFloat(UI_Button& button, PropertyValue const& value) {
  (button.*kSetter)(value.AsFloat());
}

void SetCornerRadius(UI_Button& button, PropertyValue const& value) {
  float const radius = value.AsFloat();
  // Below 0 it is the skin's own.
  button.SetCornerRadius(radius < 0.0f ? std::nullopt : std::optional(radius));
}

constexpr Property<UI_Button> kButton[] = {
    {"defaultAppearance", SetBoolean<&UI_Button::SetDefaultAppearance>},
    {"commitAppearance", SetBoolean<&UI_Button::SetCommitAppearance>},
    {"emphasized", SetBoolean<&UI_Button::SetEmphasized>},
    {"quiet", SetBoolean<&UI_Button::SetQuiet>},
    {"showHoldIcon", SetBoolean<&UI_Button::SetShowHoldIcon>},
    {"style",
     [](UI_Button& button, PropertyValue const& value) {
       button.SetButtonStyle(value.AsEnumeration(controls::ButtonStyle::kToggle));
     }},
    {"variant",
     [](UI_Button& button, PropertyValue const& value) {
       button.SetVariant(value.AsEnumeration(controls::ButtonVariant::kNegative));
     }},
    {"displayBorderAlways", SetBoolean<&UI_Button::SetDisplayBorderAlways>},
    {"displayBorderNever", SetBoolean<&UI_Button::SetDisplayBorderNever>},
    {"contentOffsetX", SetFloat<&UI_Button::SetContentOffsetX>},
    {"contentOffsetY", SetFloat<&UI_Button::SetContentOffsetY>},
    {"downOffsetX", SetFloat<&UI_Button::SetDownOffsetX>},
    {"downOffsetY", SetFloat<&UI_Button::SetDownOffsetY>},
    {"downState", SetBoolean<&UI_Button::SetDownState>},
    {"cornerRadius", SetCornerRadius},
    {"strokeSize1", SetFloat<&UI_Button::SetStrokeSize1>},
    {"strokeSize2", SetFloat<&UI_Button::SetStrokeSize2>},
    {"springLoaded", SetBoolean<&UI_Button::SetSpringLoaded>},
    {"notificationOnMouseDown", SetBoolean<&UI_Button::SetNotifiesOnMouseDown>},
};

constexpr Property<UI_PictureButton> kPictureButton[] = {
    {"imageName",
     [](UI_PictureButton& button, PropertyValue const& value) { button.SetImageName(value.AsName()); }},
    {"isImageLoaded", [](UI_PictureButton& button,
                         PropertyValue const& value) { button.SetIsImageLoaded(value.AsBoolean()); }},
};

constexpr Property<UI_TextButton> kTextButton[] = {
    {"textLabel",
     [](UI_TextButton& button, PropertyValue const& value) { button.SetTextLabel(value.AsText()); }},
    {"fontSize",
     [](UI_TextButton& button, PropertyValue const& value) { button.SetFontSize(value.AsFloat()); }},
    {"fontSizeID",
     [](UI_TextButton& button, PropertyValue const& value) {
       button.SetFontIndex(value.AsEnumeration(ui::FontIndex::kTitle));
     }},
    {"textAlignment",
     [](UI_TextButton& button, PropertyValue const& value) { button.SetAlignment(value.AsAlignment()); }},
    {"textIndent",
     [](UI_TextButton& button, PropertyValue const& value) { button.SetTextIndent(value.AsFloat()); }},
    {"textTruncation",
     [](UI_TextButton& button, PropertyValue const& value) {
       button.SetTextTruncation(value.AsEnumeration(controls::TextTruncation::kMiddle));
     }},
};

constexpr SectionOf<UI_Button> kButtonSection{kButton};
constexpr SectionOf<UI_PictureButton> kPictureButtonSection{kPictureButton};
constexpr SectionOf<UI_TextButton> kTextButtonSection{kTextButton};

constexpr ArchiveClass kButtonClasses[] = {
    {"moxui::controls::UI_Button", Make<UI_Button>, &kButtonSection},
    {"moxui::controls::UI_PictureButton", Make<UI_PictureButton>, &kPictureButtonSection},
    {"moxui::controls::UI_TextButton", Make<UI_TextButton>, &kTextButtonSection},
};

}  // namespace

std::span<ArchiveClass const> ButtonClasses() {
  return kButtonClasses;
}

}  // namespace moxui::archive
