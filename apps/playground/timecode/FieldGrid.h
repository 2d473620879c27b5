#pragma once

#include <moxcore/string/String.h>
#include <moxui/ui/UI_SubView.h>

#include <cstddef>
#include <vector>

namespace moxmediaui {
class UI_HotTimecodeControl;
}

namespace playground {

// What a grid of fields holds. A null field leaves its place empty, marked by a dash.
struct FieldGridContent {
  using Field = moxcore::utility::IntrusivePtr<moxmediaui::UI_HotTimecodeControl>;
  struct Row {
    moxcore::Utf16String title;
    std::vector<Field> fields;
  };

  moxcore::Utf16String title;
  moxcore::Utf16String rowHeading;  // above the titles of the rows
  std::vector<moxcore::Utf16String> columns{};
  std::vector<Row> rows{};
  float fieldWidth = 96.0f;  // at least; as wide as the headings of columns at any rate
  float fieldInset = 0.0f;   // room for symbols before fields
  float fieldGap = 8.0f;     // and behind them
};

// Timecode fields in rows and columns under a heading. Each field is called, for assistive software and by
// its tool tip, by its row and column.
class FieldGrid : public moxui::ui::UI_SubView {
 public:
  using Field = FieldGridContent::Field;

  explicit FieldGrid(FieldGridContent content);
  ~FieldGrid() override;

  moxui::ExtentT<float> GetNaturalSize() const;
  std::size_t RowCount() const { return mContent.rows.size(); }
  std::size_t ColumnCount() const { return mContent.columns.size(); }
  // Null where there is none.
  Field const& GetField(std::size_t row, std::size_t column) const {
    return mContent.rows[row].fields[column];
  }

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;
  moxui::ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;

 private:
  moxui::RectT<float> CellRect(std::size_t row, std::size_t column) const;
  float Pitch() const;

  FieldGridContent mContent;
  float mTitleWidth;
};

}  // namespace playground
