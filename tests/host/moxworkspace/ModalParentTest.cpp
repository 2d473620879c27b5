#include <moxui/dialogs/MessageBox.h>
#include <moxui/platform/Application.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/UI_NodeManager.h>
#include <moxworkspace/TopLevelWindow.h>
#include <moxworkspace/WorkspaceUtils.h>

#include <gtest/gtest.h>

namespace moxworkspace {
namespace {

namespace dialogs = moxui::dialogs;
namespace ui = moxui::ui;

TEST(ModalDialogParent, IsTheModalWindowThatIsOpen) {
  moxui::testing::Stage stage;
  TopLevelWindow const main(stage.GetTree());
  ui::UI_Node const* parent = nullptr;
  ui::UI_Node const* box = nullptr;
  moxui::platform::Application::Get()->PostDelayed(0, [&] {
    ui::NodeTree& tree = *ui::UI_NodeManager::Get(false)->GetTrees().back();
    box = tree.GetRoot();
    parent = WorkspaceUtils::GetModalDialogParentNode();
    tree.HandleKey(ui::KeyboardEvent(ui::KeyAction::kKeyDown, ui::KeyboardCode::kEscape));
  });
  dialogs::messagebox::ShowStop(nullptr, u"Presets", u"The preset did not load.", {});
  EXPECT_NE(box, nullptr);
  EXPECT_EQ(parent, box);
  EXPECT_EQ(WorkspaceUtils::GetModalDialogParentNode(), stage.GetRoot());
}

}  // namespace
}  // namespace moxworkspace
