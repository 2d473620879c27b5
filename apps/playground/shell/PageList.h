#pragma once

#include "shell/ItemControl.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace playground {

// One line of the list: a heading, or a page by its number.
struct PageListRow {
  moxcore::Utf16String text;
  std::optional<std::size_t> page;
};

// The list of pages, in groups with headings. A click, up and down choose; the listeners hear of it.
class PageList : public ItemControl {
 public:
  PageList();
  ~PageList() override;

  void SetRows(std::vector<PageListRow> rows);
  std::vector<PageListRow> const& GetRows() const { return mRows; }
  // Silent. A page that isn't listed leaves no row marked.
  void SetValue(std::size_t page);
  std::size_t GetValue() const { return mValue; }
  // Moves the choice down (or up) by a page of the list, as the arrow keys do.
  void Step(int step);
  // How far the list is scrolled, within its ends.
  float GetOffset() const { return mOffset; }
  void ScrollTo(float offset);

  std::size_t ItemCount() const override { return mRows.size(); }
  moxui::RectT<float> ItemRect(std::size_t row) const override;
  moxcore::Utf16String ItemName(std::size_t row) const override { return mRows[row].text; }
  bool IsItem(std::size_t row) const override { return mRows[row].page.has_value(); }

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  bool UI_DoPointerEvent(moxui::ui::UI_Node* node, moxui::ui::PointerEvent const& event) override;
  bool UI_DoKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;
  moxcore::Utf8String UI_GetAccessibleName() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;

 private:
  void ItemPressed(std::size_t row) override { Choose(row); }
  std::optional<std::size_t> RowOfValue() const;
  void Choose(std::size_t row);

  std::vector<PageListRow> mRows;
  std::size_t mValue = 0;
  float mOffset = 0.0f;
};

}  // namespace playground
