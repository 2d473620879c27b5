#include "../ArchiveClasses.h"

#include <moxui/controls/UI_Popup.h>

namespace moxui::archive {

namespace {

using controls::UI_Popup;

/// The value stays: it is told in another section.
void SetItems(UI_Popup& popup, PropertyValue const& value) {
  std::vector<controls::PopupItemDescriptor> items;
  for (moxcore::Utf16String& text : value.AsTexts()) {
    items.push_back({.text = std::move(text)});
  }
  popup.SetItems(items);
}

constexpr Property<UI_Popup> kPopup[] = {
    {"popupItems", SetItems},
    {"popupType",
     [](UI_Popup& popup, PropertyValue const& value) {
       popup.SetPopupType(value.AsEnumeration(controls::PopupType::kList));
     }},
    {"popupVariantType",
     [](UI_Popup& popup, PropertyValue const& value) {
       popup.SetPopupVariantType(value.AsEnumeration(controls::PopupVariant::kQuiet));
     }},
    {"drawDivider",
     [](UI_Popup& popup, PropertyValue const& value) { popup.SetDrawDivider(value.AsBoolean()); }},
    {"alwaysNotify",
     [](UI_Popup& popup, PropertyValue const& value) { popup.SetAlwaysNotify(value.AsBoolean()); }},
    {"fontSize", [](UI_Popup& popup, PropertyValue const& value) { popup.SetFontSize(value.AsFloat()); }},
    {"fontSizeID",
     [](UI_Popup& popup, PropertyValue const& value) {
       popup.SetFontIndex(value.AsEnumeration(ui::FontIndex::kTitle));
     }},
    {"textTruncation",
     [](UI_Popup& popup, PropertyValue const& value) {
       popup.SetTextTruncation(value.AsEnumeration(controls::TextTruncation::kMiddle));
     }},
};

constexpr SectionOf<UI_Popup> kPopupSection{kPopup};

constexpr ArchiveClass kPopupClasses[] = {{"moxui::controls::UI_Popup", Make<UI_Popup>, &kPopupSection}};

}  // namespace

std::span<ArchiveClass const> PopupClasses() {
  return kPopupClasses;
}

}  // namespace moxui::archive
