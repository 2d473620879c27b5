#include "shell/ProgramWorkspace.h"

#include <utility>

namespace playground {

using moxui::ui::KeyboardEvent;
using moxui::ui::UI_Node;

ProgramWorkspace::ProgramWorkspace(moxcore::Utf16String title, moxcore::utility::IntrusivePtr<UI_Node> view)
    : mPanel(moxcore::utility::MakeIntrusive<moxworkspace::TabPanel>(std::move(title))),
      mView(std::move(view)) {
  mPanel->ChildPushBack(mView);
  ChildPushBack(mPanel);
  SetFocusedTabPanel(mPanel.Get());
}

ProgramWorkspace::~ProgramWorkspace() = default;

void ProgramWorkspace::UI_SizeChanged(moxui::RectT<float> const& rect) {
  Workspace::UI_SizeChanged(rect);
  mPanel->UI_SetLocalRectF(rect);
  mView->UI_SetLocalRectF(rect);
}

bool ProgramWorkspace::UI_DoPreKeyboardEvent(UI_Node* node, KeyboardEvent const& event) {
  return node == this ? mView->UI_DoPreKeyboardEvent(node, event)
                      : Workspace::UI_DoPreKeyboardEvent(node, event);
}

bool ProgramWorkspace::UI_DoKeyboardEvent(UI_Node* node, KeyboardEvent const& event) {
  return node == this ? mView->UI_DoKeyboardEvent(node, event) : Workspace::UI_DoKeyboardEvent(node, event);
}

}  // namespace playground
