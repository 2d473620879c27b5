#pragma once

#include <moxui/controls/UI_MultiColumnTreeHeaderRow.h>

namespace moxui::controls {

/// The name of one column.
class TreeHeaderCell : public ui::UI_SubView {
 public:
  TreeHeaderCell(UI_MultiColumnTreeHeaderRow& header, int column) : mHeader(&header), mColumn(column) {}
  ~TreeHeaderCell() override;

  /// Its header row has gone.
  void Leave() { mHeader = nullptr; }

  void UI_Draw(scriber::Scriber* scriber) const override;
  bool UI_InvalidateOnMouseOverChange(bool over) override;
  ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;
  bool UI_DoAccessibleAction() override;

 private:
  UI_MultiColumnTree const* FindTree() const;

  UI_MultiColumnTreeHeaderRow* mHeader;
  int mColumn;
};

}  // namespace moxui::controls
