#pragma once

#include "controls/SampleState.h"
#include "controls/StatePreview.h"

#include <moxcore/string/String.h>
#include <moxui/ui/UI_SubView.h>

#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace playground {

// A column of a table of states: a view, made anew for each of them, and what of it is in that state.
struct StateColumn {
  using Made = std::pair<moxcore::utility::IntrusivePtr<moxui::ui::UI_Node>, PreviewAim>;

  std::string_view title;  // literal
  std::function<Made()> make;
  moxui::ExtentT<float> size;  // narrower where the table has no room for it
  float inset = 0.0f;          // room for what the view draws to its left
};

// Views frozen in each of the states, a row for each, with a remark below.
class StateTable : public moxui::ui::UI_SubView {
 public:
  StateTable(std::vector<StateColumn> columns, moxcore::Utf16String remark);
  ~StateTable() override;

  std::size_t RowCount() const { return kSampleStateCount; }
  std::size_t ColumnCount() const { return mColumns.size(); }
  StatePreview& Preview(std::size_t row, std::size_t column) const;

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;
  moxui::ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;

 private:
  moxui::RectT<float> CellRect(std::size_t row, std::size_t column) const;
  float RowHeight() const;
  // What columns have of their widths.
  float Share() const;

  std::vector<StateColumn> mColumns;
  std::vector<moxcore::utility::IntrusivePtr<StatePreview>> mPreviews;  // row by row
  moxcore::Utf16String mRemark;
};

}  // namespace playground
