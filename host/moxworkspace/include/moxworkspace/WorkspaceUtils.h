#pragma once

namespace moxui::ui {
class UI_Node;
}

namespace moxworkspace {

class TopLevelWindow;

namespace WorkspaceUtils {

/// The oldest main window that is open, or null.
TopLevelWindow* FindMainTopLevelWindow();

/// Over what a dialog opens: the root of the topmost modal window, else that of the main window, else null.
moxui::ui::UI_Node* GetModalDialogParentNode();

}  // namespace WorkspaceUtils

}  // namespace moxworkspace
