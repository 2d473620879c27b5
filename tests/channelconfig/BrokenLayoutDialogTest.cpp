// The editor of layouts over a document that lacks a node, or has one of another type in its place.
#include "LayoutDialogFixture.h"
#include "support/ChangedArchive.h"

#include <moxcore/config/Errors.h>
#include <moxmediaui/ChannelsPopupHandlerBase.h>
#include <moxui/ui/UI_NodeManager.h>

namespace layout_presets {
namespace {

constexpr char const* kDocument = "CustomAudioChannelLayoutDialog";
// A text that the editor itself has no use for.
constexpr char const* kOtherType = "PresetLabelID";

std::size_t CountTrees() {
  return moxui::ui::UI_NodeManager::Get(true)->GetTrees().size();
}

class BrokenLayoutDialog : public LayoutEditorTest,
                           public ::testing::WithParamInterface<std::tuple<char const*, bool>> {
 protected:
  BrokenLayoutDialog() { moxui::skins::SetRunningV7OrBeyond(std::get<1>(GetParam())); }

  static char const* Node() { return std::get<0>(GetParam()); }

  void ExpectRefused() {
    std::size_t const trees = CountTrees();
    Make(kStereo);
    try {
      mDialog->RunDialog();
      FAIL() << "the editor has opened";
    } catch (moxcore::config::mox_exception const& error) {
      EXPECT_EQ(error.GetCode(), "$$$/moxcore/utility/Error/InvalidTypeConversion=Invalid type conversion.");
    }
    EXPECT_NE(mDialog->GetResponse(), 1);
    EXPECT_EQ(mDialog->GetLayout(), ChannelsOf({100, 101}));
    EXPECT_TRUE(mAnswers.GetRecords().empty());
    mDialog.Reset();
    EXPECT_EQ(CountTrees(), trees) << "a window is left";
  }
};

INSTANTIATE_TEST_SUITE_P(Nodes, BrokenLayoutDialog,
                         ::testing::Combine(::testing::Values("OKButtonID", "CancelButtonID",
                                                              "AddChannelButtonID", "RemoveChannelButtonID",
                                                              "PresetsViewID", "TreeID"),
                                            ::testing::Bool()),
                         [](auto const& one) {
                           return std::string(std::get<0>(one.param)) +
                                  (std::get<1>(one.param) ? "V7" : "Classic");
                         });

TEST_P(BrokenLayoutDialog, DoesntOpenWithoutANode) {
  {
    tests::ChangedArchive archive(kDocument);
    ASSERT_TRUE(archive.Rename(Node(), "Another"));
    ExpectRefused();
  }
  Run(kStereo, [](OpenEditor& editor) { editor.Press("OKButtonID"); });
  EXPECT_EQ(mDialog->GetResponse(), 1);
}

TEST_P(BrokenLayoutDialog, DoesntOpenWithANodeOfAnotherType) {
  tests::ChangedArchive archive(kDocument);
  ASSERT_TRUE(archive.Rename(Node(), "Another"));
  ASSERT_TRUE(archive.Rename(kOtherType, Node()));
  ExpectRefused();
}

TEST_P(BrokenLayoutDialog, ItsErrorReachesWhoChoseTheEditorInAPopup) {
  Stage stage(moxui::ExtentT<float>(300, 300));
  moxmediaui::channelconfig::ChannelsPopupHandlerBase handler(true);
  auto const popup = moxcore::utility::MakeIntrusive<UI_Popup>();
  popup->UI_SetLocalRectF({10, 10, 150, 24});
  stage.GetRootView().ChildPushBack(popup);
  handler.AddPopup(popup, u"a", u"b", u"c");
  {
    tests::ChangedArchive archive(kDocument);
    ASSERT_TRUE(archive.Rename(Node(), "Another"));
    mAnswers.ExpectItem(u"Custom...");
    EXPECT_THROW(stage.Click(stage.CenterOf(*popup)), moxcore::config::mox_exception);
  }
  // The popup works on.
  mAnswers.ExpectItem(u"5.1");
  stage.Click(stage.CenterOf(*popup));
  EXPECT_EQ(handler.GetSelectedLayout(popup), ChannelsOf({100, 101, 102, 103, 104, 105}));
}

}  // namespace
}  // namespace layout_presets
