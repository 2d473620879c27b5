#pragma once

#include <moxui/controls/UI_MultiColumnTreeRow.h>

namespace moxui::controls {

/// What each level of nesting takes at the leading side of column 0.
inline constexpr float kTreeIndent = 16.0f;

/// The node that shows a row while it is seen; views are used again for other rows.
class TreeRowView : public ui::UI_SubView {
 public:
  TreeRowView();
  ~TreeRowView() override;

  void SetRow(UI_MultiColumnTreeRow* row) { mRow = row; }
  /// Null for a view that waits for a row, and once the row has been taken out.
  UI_MultiColumnTreeRow* GetRow() const { return mRow; }
  /// Where a row with children is opened and closed; empty for one without.
  RectT<float> GetDisclosureRect() const;
  void PlaceCells();

  void UI_Draw(scriber::Scriber* scriber) const override;
  void UI_SizeChanged(RectT<float> const& rect) override;
  bool UI_InvalidateOnMouseOverChange(bool over) override;
  ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;
  ui::AccessibleState UI_GetAccessibleState() const override;
  bool UI_DoAccessibleAction() override;

 private:
  UI_MultiColumnTree* FindTree() const;
  void DrawGround(scriber::Scriber* scriber, UI_MultiColumnTree const& tree) const;
  void DrawLines(scriber::Scriber* scriber, UI_MultiColumnTree const& tree) const;

  UI_MultiColumnTreeRow* mRow = nullptr;
};

}  // namespace moxui::controls
