#include "controls/StateTable.h"

#include "program/Localized.h"
#include "shell/Painting.h"

#include <moxui/scriber/Drawing.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace playground {
namespace {

using moxcore::utility::MakeIntrusive;
using moxui::RectT;
using moxui::ui::FontIndex;
using moxui::ui::ThemeColorID;

constexpr float kHeadingHeight = 28.0f;
constexpr float kRowPadding = 8.0f;
constexpr float kTitleWidth = 96.0f;
constexpr float kColumnGap = 24.0f;
constexpr float kRemarkGap = 12.0f;
constexpr float kRemarkHeight = 20.0f;

}  // namespace

StateTable::StateTable(std::vector<StateColumn> columns, moxcore::Utf16String remark)
    : mColumns(std::move(columns)), mRemark(std::move(remark)) {
  for (int state = 0; state < kSampleStateCount; ++state) {
    for (StateColumn const& column : mColumns) {
      auto [view, aim] = column.make();
      auto preview = MakeIntrusive<StatePreview>();
      preview->SetView(std::move(view), static_cast<SampleState>(state), std::move(aim));
      ChildPushBack(preview);
      mPreviews.push_back(std::move(preview));
    }
  }
}

StateTable::~StateTable() = default;

StatePreview& StateTable::Preview(std::size_t row, std::size_t column) const {
  return *mPreviews[row * mColumns.size() + column];
}

float StateTable::RowHeight() const {
  float highest = 0.0f;
  for (StateColumn const& column : mColumns) {
    highest = std::max(highest, column.size.height);
  }
  return highest + 2.0f * kRowPadding;
}

float StateTable::Share() const {
  float rest = UI_GetLocalRectF(false).width - 2.0f * kPanelPadding - kTitleWidth;
  float wanted = 0.0f;
  for (StateColumn const& column : mColumns) {
    rest -= column.inset + (&column == &mColumns.front() ? 0.0f : kColumnGap);
    wanted += column.size.width;
  }
  return std::clamp(rest / wanted, 0.0f, 1.0f);
}

RectT<float> StateTable::CellRect(std::size_t row, std::size_t column) const {
  float const share = Share();
  auto const width = [share](StateColumn const& one) { return std::floor(one.size.width * share); };
  float left = kPanelPadding + kTitleWidth;
  for (std::size_t before = 0; before < column; ++before) {
    left += mColumns[before].inset + width(mColumns[before]) + kColumnGap;
  }
  float const height = RowHeight();
  auto const& size = mColumns[column].size;
  return {left + mColumns[column].inset,
          kHeadingHeight + height * static_cast<float>(row) + (height - size.height) / 2.0f,
          width(mColumns[column]), size.height};
}

void StateTable::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  for (std::size_t row = 0; row < RowCount(); ++row) {
    for (std::size_t column = 0; column < ColumnCount(); ++column) {
      Preview(row, column).UI_SetLocalRectF(Placed(CellRect(row, column), rect.width));
    }
  }
}

void StateTable::UI_Draw(moxui::scriber::Scriber* scriber) const {
  RectT<float> const own = UI_GetLocalRectF(false);
  auto const label = [&](moxcore::Utf16String const& text, RectT<float> const& rect, FontIndex font,
                         ThemeColorID color) {
    DrawLabel(scriber, text, Placed(rect, own.width), Leading(), font, ThemeColor(color));
  };
  auto const rule = [&](float top) {
    moxui::utils::DrawRect(scriber, {kPanelPadding, top, own.width - 2.0f * kPanelPadding, 1.0f},
                           ThemeColor(ThemeColorID::kGray3));
  };
  for (std::size_t column = 0; column < ColumnCount(); ++column) {
    RectT<float> const cell = CellRect(0, column);
    label(Text16(mColumns[column].title), {cell.left, 0.0f, cell.width + kColumnGap, kHeadingHeight},
          FontIndex::kSmall, ThemeColorID::kGray7);
  }
  float const height = RowHeight();
  for (std::size_t row = 0; row < RowCount(); ++row) {
    float const top = kHeadingHeight + height * static_cast<float>(row);
    rule(top);
    label(Text16(DescriptionOf(static_cast<SampleState>(row)).title),
          {kPanelPadding, top, kTitleWidth, height}, FontIndex::kText, ThemeColorID::kGray8);
  }
  float const bottom = kHeadingHeight + height * static_cast<float>(RowCount());
  rule(bottom);
  label(mRemark, {kPanelPadding, bottom + kRemarkGap, own.width - 2.0f * kPanelPadding, kRemarkHeight},
        FontIndex::kText, ThemeColorID::kGray7);
  UI_SubView::UI_Draw(scriber);
}

moxui::ui::AccessibleRole StateTable::UI_GetAccessibleRole() const {
  return moxui::ui::AccessibleRole::kGroup;
}

moxcore::Utf8String StateTable::UI_GetAccessibleName() const {
  return moxcore::Utf8String(Text("$$$/playground/state/states=States"));
}

}  // namespace playground
