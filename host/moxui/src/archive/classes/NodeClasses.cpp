#include "../ArchiveClasses.h"

#include <moxui/skins/Look.h>
#include <moxui/ui/AutoLayout.h>
#include <moxui/ui/UI_SubView.h>

namespace moxui::archive {

namespace {

using ui::UI_Node;
using ui::UI_SubView;

// `id` and `children` are the builder's.
constexpr Property<UI_Node> kNode[] = {
    {"bounds", [](UI_Node& node, PropertyValue const& value) { node.UI_SetLocalRectF(value.AsRect()); }},
    {"tooltip",
     [](UI_Node& node, PropertyValue const& value) {
       node.UI_SetToolTip(value.AsText8(), skins::GetToolTipDelay());
     }},
    {"visible", [](UI_Node& node, PropertyValue const& value) { node.UI_Show(value.AsBoolean()); }},
};

template <bool ui::AutoLayoutFlags::*kFlag>
void SetAutoLayoutFlag(UI_SubView& view, PropertyValue const& value) {
  ui::AutoLayoutFlags flags = GetAutoLayoutFlags(view);
  flags.*kFlag = value.AsBoolean();
  SetAutoLayoutFlags(view, flags);
}

constexpr Property<UI_SubView> kSubView[] = {
    {"AutoLayout", SetAutoLayoutFlag<&ui::AutoLayoutFlags::isOn>},
    {"AutoLayout_Horizontal", SetAutoLayoutFlag<&ui::AutoLayoutFlags::isHorizontal>},
    {"AutoLayout_MaintainMargins", SetAutoLayoutFlag<&ui::AutoLayoutFlags::maintainsMargins>},
    {"AutoLayout_ScaleChildren", SetAutoLayoutFlag<&ui::AutoLayoutFlags::scalesChildren>},
    {"LayoutChildren",
     [](UI_SubView& view, PropertyValue const& value) { view.UI_SetLayoutsChildren(value.AsBoolean()); }},
    {"Constraints",
     [](UI_SubView& view, PropertyValue const& value) { view.UI_SetLayoutBinding(value.AsConstraints()); }},
};

constexpr SectionOf<UI_Node> kNodeSection{kNode};
constexpr SectionOf<UI_SubView> kSubViewSection{kSubView};

constexpr ArchiveClass kNodeClasses[] = {
    {"moxui::ui::UI_Node", Make<UI_Node>, &kNodeSection},
    {"moxui::ui::UI_SubView", Make<UI_SubView>, &kSubViewSection},
};

}  // namespace

std::span<ArchiveClass const> NodeClasses() {
  return kNodeClasses;
}

}  // namespace moxui::archive
