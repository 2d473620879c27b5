#include "PresetsFixture.h"

#include <moxui/skins/Look.h>

#include <gtest/gtest.h>

namespace moxmediaui {
namespace {

struct LookCase {
  bool isV7;
  ExtentT<float> size;
  RectT<float> popup;
  RectT<float> save;
  RectT<float> remove;
  int toolTipDelay;
};

class PresetsLayout : public ::testing::TestWithParam<LookCase> {
 protected:
  PresetsLayout() {
    moxui::skins::SetRunningV7OrBeyond(GetParam().isV7);
    Initialize(moxui::scriber::GetRasterSupplier());
    mView = PresetsView::Create();
    mView->Initialize(GetResourceManager(), GetDrawSupplier(), GetModuleImageProvider());
  }
  ~PresetsLayout() override {
    mView.Reset();
    Terminate();
    moxui::skins::SetRunningV7OrBeyond(true);
  }

  IntrusivePtr<UI_Node> Child(std::size_t index) const { return mView->GetContentView()->ChildGet(index); }
  RectT<float> PlaceOf(std::size_t index) const {
    return Child(index)->UI_GetLocalRectF(moxui::ui::RectSpace::kParent);
  }

  IntrusivePtr<PresetsView> mView;
};

TEST_P(PresetsLayout, IsThatOfTheLooksDocument) {
  EXPECT_EQ(mView->UI_GetRecommendedSize(nullptr), GetParam().size);
  ASSERT_EQ(mView->GetContentView()->ChildSize(), 3u);
  EXPECT_EQ(PlaceOf(0), GetParam().popup);
  EXPECT_EQ(PlaceOf(1), GetParam().save);
  EXPECT_EQ(PlaceOf(2), GetParam().remove);
  EXPECT_EQ(Child(0)->UI_GetNodeID(), "PresetsPopupID");
  EXPECT_EQ(Child(1)->UI_GetNodeID(), "SavePresetButtonID");
  EXPECT_EQ(Child(2)->UI_GetNodeID(), "DeletePresetButtonID");
}

TEST_P(PresetsLayout, ThePopupStretchesAndTheButtonsStayAtTheRight) {
  mView->UI_SetLocalRectF({0, 0, GetParam().size.width + 50, GetParam().size.height});
  auto const moved = [](RectT<float> rect, float left, float width) {
    return RectT<float>(rect.left + left, rect.top, rect.width + width, rect.height);
  };
  EXPECT_EQ(PlaceOf(0), moved(GetParam().popup, 0, 50));
  EXPECT_EQ(PlaceOf(1), moved(GetParam().save, 50, 0));
  EXPECT_EQ(PlaceOf(2), moved(GetParam().remove, 50, 0));
}

TEST_P(PresetsLayout, ItsButtonsHavePicturesAndToolTips) {
  auto& save = dynamic_cast<moxui::controls::UI_PictureButton&>(*Child(1));
  auto& remove = dynamic_cast<moxui::controls::UI_PictureButton&>(*Child(2));
  EXPECT_EQ(save.GetImageName(), "Save_Md");
  EXPECT_EQ(remove.GetImageName(), "Delete_Md");
  EXPECT_TRUE(save.GetImage());
  EXPECT_TRUE(remove.GetImage());
  EXPECT_EQ(save.UI_GetToolTip(), "Save settings as a preset");
  EXPECT_EQ(remove.UI_GetToolTip(), "Delete preset");
  EXPECT_EQ(save.UI_GetToolTipDelay(), GetParam().toolTipDelay);
  EXPECT_EQ(save.GetContentOffset(), PointT<float>(0, -1));
  EXPECT_EQ(remove.GetContentOffset(), PointT<float>(0, 0));
  EXPECT_EQ(save.GetComponents().IsQuiet(), GetParam().isV7);
  EXPECT_EQ(remove.GetComponents().IsQuiet(), GetParam().isV7);
}

INSTANTIATE_TEST_SUITE_P(
    Looks, PresetsLayout,
    ::testing::Values(LookCase{false, {254, 20}, {0, 0, 200, 19}, {210, 0, 20, 20}, {234, 0, 20, 20}, 400},
                      LookCase{true, {260, 24}, {0, 0, 200, 24}, {208, 0, 24, 24}, {236, 0, 24, 24}, 200}),
    [](::testing::TestParamInfo<LookCase> const& one) { return one.param.isV7 ? "V7" : "Classic"; });

}  // namespace
}  // namespace moxmediaui
