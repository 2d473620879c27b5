#include "../archive/MadeUpArchive.h"
#include "../resources/MapResources.h"

#include <moxcore/config/Errors.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/dialogs/UI_ArchivedDialog.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/testing/Stage.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace moxui::dialogs {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using testing::Bounds;
using testing::Children;
using testing::DocumentOf;
using ::testing::HasSubstr;
using testing::Narrow;
using testing::NodeOf;
using testing::Pair;
using testing::SubViewOf;
using testing::Wide;

class ArchivedDialog : public ::testing::Test {
 protected:
  IntrusivePtr<UI_ArchivedDialog> Make(std::string const& root, ui::CustomNodeFactory const& factory = {}) {
    mResources.Add("XML", "DIALOG", DocumentOf(root));
    return MakeIntrusive<UI_ArchivedDialog>(scriber::GetRasterSupplier(), &mResources, "Dialog", u"Title",
                                            WindowVariant(), factory);
  }

  MapResources mResources;
};

std::string ButtonOf(std::string const& label) {
  return NodeOf("moxui::controls::UI_TextButton",
                {{"moxui::controls::UI_TextButton", Pair("textLabel", Wide(label))},
                 {"moxui::ui::UI_Node", Bounds("10", "10", "80", "24") + Pair("id", Narrow("OKButtonID"))}});
}

TEST_F(ArchivedDialog, IsAsLargeAsItsRootAndKnowsItsNodes) {
  auto const dialog = Make(
      SubViewOf(Children({ButtonOf("OK")}), Bounds("5", "5", "320", "325") + Pair("visible", "<false/>") +
                                                Pair("id", Narrow("UI_TransformSubView"))));
  EXPECT_EQ(dialog->GetLocalRectF(), RectT<float>(0, 0, 320, 325));
  EXPECT_EQ(dialog->GetTitle(), u"Title");
  auto const root = dialog->GetNodeForID("UI_TransformSubView");
  ASSERT_TRUE(root);
  EXPECT_EQ(root->UI_GetParentNode(), dialog->GetContentView().Get());
  EXPECT_EQ(root->UI_GetLocalRectF(ui::RectSpace::kParent), RectT<float>(0, 0, 320, 325));
  EXPECT_TRUE(root->UI_IsShown());
  EXPECT_TRUE(dialog->GetNodeForID("OKButtonID"));
  EXPECT_FALSE(dialog->GetNodeForID("okbuttonid"));
}

TEST_F(ArchivedDialog, GrowsWhereTextsNeedIt) {
  auto const dialog =
      Make(SubViewOf(Pair("AutoLayout", "<true/>") + Children({ButtonOf("A label of many words")}),
                     Bounds("0", "0", "100", "44")));
  EXPECT_GT(dialog->GetLocalRectF().width, 150);
  EXPECT_EQ(dialog->GetLocalRectF().height, 44);
}

TEST_F(ArchivedDialog, ClosesByAButtonThatItsClientBinds) {
  auto const dialog = Make(SubViewOf(Children({ButtonOf("OK")}), Bounds("0", "0", "100", "44")));
  auto& ok = dynamic_cast<controls::UI_TextButton&>(*dialog->GetNodeForID("OKButtonID"));
  ok.NotifyWhenChanged(std::make_shared<moxcore::messaging::MessageFunction>(
      [&](moxcore::messaging::Message*) { dialog->Accept(); }));
  testing::ModalAnswers answers;
  answers.ExpectDriven([&](testing::Stage& stage) { stage.Click(stage.CenterOf(ok)); });
  EXPECT_EQ(dialog->RunModal(), UI_Dialog::Response::kOk);
}

TEST_F(ArchivedDialog, AsksTheFactoryForClassesThatTheHostDoesntKnow) {
  auto const view = MakeIntrusive<ui::UI_SubView>();
  auto const dialog = Make(SubViewOf(Children({NodeOf("PresetsView", {})}), Bounds("0", "0", "100", "44")),
                           [&](moxcore::Utf8String const& type) {
                             return type == "PresetsView" ? view : IntrusivePtr<ui::UI_SubView>();
                           });
  EXPECT_TRUE(view->UI_IsSelfOrDescendantOf(dialog->GetContentView().Get()));
}

TEST_F(ArchivedDialog, WithoutAnArchiveThereIsNoDialog) {
  auto const errorOf = [&](auto make) -> std::string {
    try {
      make();
    } catch (moxcore::config::mox_exception const& error) {
      return error.what();
    }
    return "no error";
  };
  EXPECT_THAT(errorOf([&] {
                return MakeIntrusive<UI_ArchivedDialog>(nullptr, &mResources, "Other", u"", WindowVariant());
              }),
              HasSubstr("UI_SubView"));
  EXPECT_THAT(errorOf([&] { return Make(NodeOf("moxui::ui::UI_Node", {})); }), HasSubstr("UI_SubView"));
  EXPECT_THAT(errorOf([&] { return Make(NodeOf("test::Other", {})); }), HasSubstr("test::Other"));
}

}  // namespace
}  // namespace moxui::dialogs
