// What archives say of views that hold others, and of buttons and popups beyond what they show.
#include "../controls/RunningLook.h"
#include "MadeUpArchive.h"

#include <moxcore/utility/PointerCasts.h>
#include <moxui/controls/UI_MultiColumnTree.h>
#include <moxui/controls/UI_OutlineBox.h>
#include <moxui/controls/UI_PictureButton.h>
#include <moxui/controls/UI_Popup.h>
#include <moxui/ui/UI_LayoutView.h>
#include <moxui/ui/UI_NodeBuilder.h>

#include <gtest/gtest.h>

#include <string>

namespace moxui::ui {
namespace {

using moxcore::utility::IntrusivePtr;
using testing::Bounds;
using testing::Choice;
using testing::Constraints;
using testing::DocumentOf;
using testing::NodeOf;
using testing::Pair;
using testing::Real;

template <class Node>
IntrusivePtr<Node> BuildOne(std::string const& name, std::string const& pairs,
                            std::string const& buttonPairs = {}) {
  std::string const document =
      DocumentOf(NodeOf(name, {{name, pairs},
                               {"moxui::controls::UI_Button", buttonPairs},
                               {"moxui::ui::UI_SubView", Constraints("12") + Pair("AutoLayout", "<false/>")},
                               {"moxui::ui::UI_Node", Bounds("1", "2", "30", "40")}}));
  auto const node = moxcore::utility::DynamicCast<Node>(UI_NodeBuilder(document).Build(nullptr).root);
  EXPECT_TRUE(node);
  EXPECT_EQ(node->UI_GetLocalRectF(RectSpace::kParent), RectT<float>(1, 2, 30, 40));
  EXPECT_EQ(node->UI_GetLayoutBinding(), 12u);
  return node;
}

TEST(ContainerClasses, ReadTheSectionOfAnOutlineBox) {
  auto const box = BuildOne<controls::UI_OutlineBox>(
      "moxui::controls::UI_OutlineBox", Pair("chromeType", Choice("1")) + Pair("cornerRadius", Real("-1")) +
                                            Pair("strokeSize1", Real("2")) + Pair("strokeSize2", Real("3")));
  EXPECT_EQ(box->GetChromeType(), controls::ChromeType::kFilled);
  EXPECT_FLOAT_EQ(box->GetStrokeSize1(), 2.0f);
  EXPECT_FLOAT_EQ(box->GetStrokeSize2(), 3.0f);
}

TEST(ContainerClasses, ALayoutViewIsOffWhereTheArchiveSaysSo) {
  auto const row = BuildOne<UI_LayoutView>("moxui::ui::UI_LayoutView", "");
  EXPECT_FALSE(GetAutoLayoutFlags(*row).isOn);
}

TEST(ContainerClasses, ATreeHasItsScrollViewAndNoHeaderRow) {
  auto const tree = BuildOne<controls::UI_MultiColumnTree>("moxui::controls::UI_MultiColumnTree", "");
  EXPECT_NE(tree->GetScrollView(), nullptr);
  EXPECT_EQ(tree->GetHeaderRow(), nullptr);
}

TEST(ContainerClasses, ButtonsAndPopupsTakeTheRestOfTheirKeys) {
  auto const button = BuildOne<controls::UI_PictureButton>(
      "moxui::controls::UI_PictureButton", Pair("isImageLoaded", "<true/>"),
      Pair("commitAppearance", "<true/>") + Pair("downOffsetX", Real("2")) + Pair("downOffsetY", Real("3")) +
          Pair("variant", Choice("3")));
  EXPECT_TRUE(button->IsImageLoaded());
  EXPECT_TRUE(button->GetCommitAppearance());
  EXPECT_EQ(button->GetDownOffset(), PointT<float>(2, 3));
  EXPECT_EQ(button->GetComponents().GetVariant(), controls::ButtonVariant::kNegative);
  auto const popup =
      BuildOne<controls::UI_Popup>("moxui::controls::UI_Popup", Pair("popupVariantType", Choice("1")));
  EXPECT_EQ(popup->GetPopupVariantType(), controls::PopupVariant::kQuiet);
}

}  // namespace
}  // namespace moxui::ui
