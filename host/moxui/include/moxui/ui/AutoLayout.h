#pragma once

namespace moxui::scriber {
class Scriber;
}

namespace moxui::ui {

class UI_Node;
class UI_SubView;

/// How a view takes part in AutoLayoutSubView.
struct AutoLayoutFlags {
  bool isOn = false;             ///< the view's children are fitted to their texts
  bool isHorizontal = true;      ///< what follows to the right is moved; else what follows below
  bool maintainsMargins = true;  ///< the view grows so that its last child keeps its distance to the edge
  bool scalesChildren = false;   ///< children as wide as the view's inside grow with it
};

void SetAutoLayoutFlags(UI_SubView& view, AutoLayoutFlags flags);
AutoLayoutFlags GetAutoLayoutFlags(UI_SubView const& view);

/// Grows the controls below a view that show a text (whose recommended width is above their width) to that
/// text, moves what follows, and grows the parents, by the views' flags. Nothing shrinks.
void AutoLayoutSubView(UI_SubView* view, scriber::Scriber* scriber);

}  // namespace moxui::ui
