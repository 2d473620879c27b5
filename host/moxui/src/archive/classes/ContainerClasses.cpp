#include "../ArchiveClasses.h"

#include <moxui/controls/UI_MultiColumnTree.h>
#include <moxui/controls/UI_OutlineBox.h>
#include <moxui/ui/UI_LayoutView.h>

namespace moxui::archive {

namespace {

using controls::UI_OutlineBox;

constexpr Property<UI_OutlineBox> kOutlineBox[] = {
    {"chromeType",
     [](UI_OutlineBox& box, PropertyValue const& value) {
       box.SetChromeType(value.AsEnumeration(controls::ChromeType::kNone));
     }},
    {"cornerRadius",
     [](UI_OutlineBox& box, PropertyValue const& value) {
       float const radius = value.AsFloat();
       // Below 0 it is the skin's own.
       box.SetCornerRadius(radius < 0.0f ? std::nullopt : std::optional(radius));
     }},
    {"strokeSize1",
     [](UI_OutlineBox& box, PropertyValue const& value) { box.SetStrokeSize1(value.AsFloat()); }},
    {"strokeSize2",
     [](UI_OutlineBox& box, PropertyValue const& value) { box.SetStrokeSize2(value.AsFloat()); }},
};

constexpr SectionOf<UI_OutlineBox> kOutlineBoxSection{kOutlineBox};
constexpr SectionOf<ui::UI_LayoutView> kLayoutViewSection{{}};
constexpr SectionOf<controls::UI_MultiColumnTree> kTreeSection{{}};

constexpr ArchiveClass kContainerClasses[] = {
    {"moxui::ui::UI_LayoutView", Make<ui::UI_LayoutView>, &kLayoutViewSection},
    {"moxui::controls::UI_OutlineBox", Make<UI_OutlineBox>, &kOutlineBoxSection},
    {"moxui::controls::UI_MultiColumnTree", Make<controls::UI_MultiColumnTree>, &kTreeSection},
};

}  // namespace

std::span<ArchiveClass const> ContainerClasses() {
  return kContainerClasses;
}

}  // namespace moxui::archive
