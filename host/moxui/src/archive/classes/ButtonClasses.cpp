#include "../ArchiveClasses.h"

#include <moxui/controls/UI_PictureButton.h>
#include <moxui/controls/UI_TextButton.h>

namespace moxui::archive {

namespace {

using controls::ButtonComponents;
using controls::UI_Button;
using controls::UI_PictureButton;
using controls::UI_TextButton;

template <auto kSetter>
void SetBoolean(UI_Button& button, PropertyValue const& value) {
  (button.*kSetter)(value.AsBoolean());
}

template <auto kSetter>
void SetComponent(UI_Button& button, PropertyValue const& value) {
  ButtonComponents components = button.GetComponents();
  (components.*kSetter)(value.AsBoolean());
  button.SetComponents(components);
}

void SetVariant(UI_Button& button, PropertyValue const& value) {
  ButtonComponents components = button.GetComponents();
  components.SetVariant(value.AsEnumeration(controls::ButtonVariant::kNegative));
  button.SetComponents(components);
}

void SetCornerRadius(UI_Button& button, PropertyValue const& value) {
  float const radius = value.AsFloat();
  // Below 0 it is the skin's own.
  button.SetCornerRadius(radius < 0.0f ? std::nullopt : std::optional(radius));
}

enum class Axis { kX, kY };

PointT<float> With(PointT<float> point, Axis axis, float value) {
  (axis == Axis::kX ? point.x : point.y) = value;
  return point;
}

template <Axis kAxis>
void SetContentOffset(UI_Button& button, PropertyValue const& value) {
  button.SetContentOffset(With(button.GetContentOffset(), kAxis, value.AsFloat()));
}

constexpr Property<UI_Button> kButton[] = {
    {"defaultAppearance", SetBoolean<&UI_Button::SetDefaultAppearance>},
    {"emphasized", SetComponent<&ButtonComponents::SetEmphasized>},
    {"quiet", SetComponent<&ButtonComponents::SetQuiet>},
    {"showHoldIcon", SetComponent<&ButtonComponents::SetShowHoldIcon>},
    {"style",
     [](UI_Button& button, PropertyValue const& value) {
       button.SetButtonStyle(value.AsEnumeration(controls::ButtonStyle::kToggle));
     }},
    {"variant", SetVariant},
    {"displayBorderAlways", SetBoolean<&UI_Button::SetDisplayBorderAlways>},
    {"displayBorderNever", SetBoolean<&UI_Button::SetDisplayBorderNever>},
    {"contentOffsetX", SetContentOffset<Axis::kX>},
    {"contentOffsetY", SetContentOffset<Axis::kY>},
    {"downState", SetBoolean<&UI_Button::SetDownState>},
    {"cornerRadius", SetCornerRadius},
    {"strokeSize1",
     [](UI_Button& button, PropertyValue const& value) {
       button.SetStrokeSizes(value.AsFloat(), button.GetStrokeSizes().second);
     }},
    {"strokeSize2",
     [](UI_Button& button, PropertyValue const& value) {
       button.SetStrokeSizes(button.GetStrokeSizes().first, value.AsFloat());
     }},
    {"springLoaded", SetBoolean<&UI_Button::SetSpringLoaded>},
    {"notificationOnMouseDown", SetBoolean<&UI_Button::SetNotifiesOnMouseDown>},
};

constexpr Property<UI_PictureButton> kPictureButton[] = {
    {"imageName",
     [](UI_PictureButton& button, PropertyValue const& value) { button.SetImageName(value.AsName()); }},
    {"isImageLoaded", Nothing<UI_PictureButton>},
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

constexpr ArchiveClass kClasses[] = {
    {"moxui::controls::UI_Button", Make<UI_Button>, &kButtonSection},
    {"moxui::controls::UI_PictureButton", Make<UI_PictureButton>, &kPictureButtonSection},
    {"moxui::controls::UI_TextButton", Make<UI_TextButton>, &kTextButtonSection},
};

}  // namespace

std::span<ArchiveClass const> ButtonClasses() {
  return kClasses;
}

}  // namespace moxui::archive
