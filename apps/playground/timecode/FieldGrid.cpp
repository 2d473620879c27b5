#include "timecode/FieldGrid.h"

#include "program/Localized.h"
#include "shell/Painting.h"
#include "timecode/FieldHeight.h"

#include <moxmediaui/HotTimecodeControl.h>
#include <moxui/scriber/Drawing.h>
#include <moxui/skins/Look.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace playground {
namespace {

using moxui::RectT;
using moxui::ui::FontIndex;
using moxui::ui::ThemeColorID;

constexpr float kTitleHeight = 28.0f;
constexpr float kHeadingHeight = 24.0f;
constexpr float kRowHeight = kTimecodeFieldHeight + kRowGap;
constexpr float kSmallestRowTitle = 80.0f;
constexpr float kRowTitleGap = 16.0f;
constexpr float kTextInset = 2.0f;  // of the text in a field

float TitleWidth(FieldGridContent const& content) {
  float widest =
      std::max(kSmallestRowTitle, LabelWidth(content.rowHeading, FontIndex::kSmall) + kRowTitleGap);
  for (auto const& row : content.rows) {
    widest = std::max(widest, LabelWidth(row.title, FontIndex::kText) + kRowTitleGap);
  }
  return std::ceil(widest / 4.0f) * 4.0f;
}

float FieldWidth(FieldGridContent const& content) {
  float widest = content.fieldWidth;
  for (auto const& column : content.columns) {
    widest = std::max(widest, LabelWidth(column, FontIndex::kSmall) + 2.0f * kTextInset);
  }
  return std::ceil(widest / 4.0f) * 4.0f;
}

}  // namespace

FieldGrid::FieldGrid(FieldGridContent content)
    : mContent(std::move(content)), mTitleWidth(TitleWidth(mContent)) {
  mContent.fieldWidth = FieldWidth(mContent);
  for (auto const& row : mContent.rows) {
    for (std::size_t column = 0; column < row.fields.size(); ++column) {
      if (Field const& field = row.fields[column]) {
        std::string const name =
            Text("$$$/playground/timecode/fieldName=@0, @1", {To8(mContent.columns[column]), To8(row.title)});
        field->UI_SetToolTip(moxcore::Utf8String(name), moxui::skins::GetToolTipDelay());
        ChildPushBack(field);
      }
    }
  }
}

FieldGrid::~FieldGrid() = default;

float FieldGrid::Pitch() const {
  return mContent.fieldInset + mContent.fieldWidth + mContent.fieldGap;
}

moxui::ExtentT<float> FieldGrid::GetNaturalSize() const {
  return {mTitleWidth + Pitch() * static_cast<float>(ColumnCount()),
          kTitleHeight + kHeadingHeight + kRowHeight * static_cast<float>(RowCount())};
}

RectT<float> FieldGrid::CellRect(std::size_t row, std::size_t column) const {
  return {mTitleWidth + Pitch() * static_cast<float>(column) + mContent.fieldInset,
          kTitleHeight + kHeadingHeight + kRowHeight * static_cast<float>(row) + kRowGap / 2.0f,
          mContent.fieldWidth, kTimecodeFieldHeight};
}

void FieldGrid::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  for (std::size_t row = 0; row < RowCount(); ++row) {
    for (std::size_t column = 0; column < ColumnCount(); ++column) {
      if (Field const& field = GetField(row, column)) {
        field->UI_SetLocalRectF(Placed(CellRect(row, column), rect.width));
      }
    }
  }
}

void FieldGrid::UI_Draw(moxui::scriber::Scriber* scriber) const {
  RectT<float> const own = UI_GetLocalRectF(false);
  auto const lead = [&](moxcore::Utf16String const& text, RectT<float> const& rect, FontIndex font,
                        ThemeColorID color) {
    DrawLabel(scriber, text, Placed(rect, own.width), Leading(), font, ThemeColor(color));
  };
  // The texts of fields begin at their left in every language, and so does what stands above them.
  auto const inColumn = [&](std::u16string_view text, RectT<float> const& rect, FontIndex font) {
    RectT<float> const placed = Placed(rect, own.width);
    DrawLabel(scriber, text, {placed.left + kTextInset, placed.top, placed.width, placed.height},
              moxui::scriber::TextAlignment::kLeft, font, ThemeColor(ThemeColorID::kGray7));
  };
  lead(mContent.title, {0.0f, 0.0f, own.width, kTitleHeight}, FontIndex::kTitle, ThemeColorID::kGray9);
  lead(mContent.rowHeading, {0.0f, kTitleHeight, mTitleWidth, kHeadingHeight}, FontIndex::kSmall,
       ThemeColorID::kGray7);
  for (std::size_t column = 0; column < ColumnCount(); ++column) {
    inColumn(mContent.columns[column],
             {CellRect(0, column).left, kTitleHeight, mContent.fieldWidth, kHeadingHeight},
             FontIndex::kSmall);
  }
  for (std::size_t row = 0; row < RowCount(); ++row) {
    RectT<float> const line = CellRect(row, 0);
    moxui::utils::DrawRect(scriber, {0.0f, line.top - kRowGap / 2.0f, own.width, 1.0f},
                           ThemeColor(ThemeColorID::kGray3));
    lead(mContent.rows[row].title, {0.0f, line.top, mTitleWidth - kRowTitleGap, line.height},
         FontIndex::kText, ThemeColorID::kGray8);
    for (std::size_t column = 0; column < ColumnCount(); ++column) {
      if (!GetField(row, column)) {
        inColumn(u"\u2013", CellRect(row, column), FontIndex::kText);
      }
    }
  }
  UI_SubView::UI_Draw(scriber);
}

moxui::ui::AccessibleRole FieldGrid::UI_GetAccessibleRole() const {
  return moxui::ui::AccessibleRole::kGroup;
}

moxcore::Utf8String FieldGrid::UI_GetAccessibleName() const {
  return moxcore::Utf8String(To8(mContent.title));
}

}  // namespace playground
