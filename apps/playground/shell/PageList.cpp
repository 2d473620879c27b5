#include "shell/PageList.h"

#include "program/Localized.h"
#include "shell/Painting.h"

#include <moxui/scriber/Drawing.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>

#include <algorithm>
#include <utility>

namespace playground {
namespace {

using moxui::RectT;
using moxui::ui::FontIndex;
using moxui::ui::KeyboardCode;
using moxui::ui::ThemeColorID;

constexpr float kRowHeight = 24.0f;
constexpr float kHeadingHeight = 32.0f;
constexpr float kMarkWidth = 2.0f;

float HeightOf(PageListRow const& row) {
  return row.page ? kRowHeight : kHeadingHeight;
}

}  // namespace

PageList::PageList() {
  UI_SetClipsChildren(true);
}
PageList::~PageList() = default;

void PageList::SetRows(std::vector<PageListRow> rows) {
  mRows = std::move(rows);
  ItemsChanged();
  ScrollTo(mOffset);
}

void PageList::SetValue(std::size_t page) {
  if (mValue != page) {
    mValue = page;
    UI_Invalidate();
  }
}

RectT<float> PageList::ItemRect(std::size_t row) const {
  float top = -mOffset;
  for (std::size_t i = 0; i < row && i < mRows.size(); ++i) {
    top += HeightOf(mRows[i]);
  }
  float const height = row < mRows.size() ? HeightOf(mRows[row]) : 0.0f;
  return {0.0f, top, UI_GetLocalRectF(false).width, height};
}

std::optional<std::size_t> PageList::RowOfValue() const {
  for (std::size_t i = 0; i < mRows.size(); ++i) {
    if (mRows[i].page == mValue) {
      return i;
    }
  }
  return std::nullopt;
}

void PageList::ScrollTo(float offset) {
  float const beyond = ItemRect(mRows.size()).top + mOffset - UI_GetLocalRectF(false).height;
  float const clamped = std::clamp(offset, 0.0f, std::max(beyond, 0.0f));
  if (clamped != mOffset) {
    mOffset = clamped;
    ItemsMoved();
  }
}

void PageList::Choose(std::size_t row) {
  std::size_t const page = mRows[row].page.value_or(mValue);
  RectT<float> const rect = ItemRect(row);
  float const height = UI_GetLocalRectF(false).height;
  if (rect.top < 0.0f) {
    ScrollTo(mOffset + rect.top);
  } else if (rect.Bottom() > height) {
    ScrollTo(mOffset + rect.Bottom() - height);
  }
  if (page != mValue) {
    SetValue(page);
    SendValueChangedMessage();
  }
}

void PageList::Step(int step) {
  auto const current = RowOfValue();
  auto const count = static_cast<int>(mRows.size());
  int row = current ? static_cast<int>(*current) + step : (step > 0 ? 0 : count - 1);
  while (row >= 0 && row < count && !mRows[static_cast<std::size_t>(row)].page) {
    row += step > 0 ? 1 : -1;
  }
  if (row >= 0 && row < count) {
    Choose(static_cast<std::size_t>(row));
  }
}

void PageList::UI_Draw(moxui::scriber::Scriber* scriber) const {
  UI_ClipToSelf(scriber);
  RectT<float> const own = UI_GetLocalRectF(false);
  for (std::size_t i = 0; i < mRows.size(); ++i) {
    RectT<float> const rect = ItemRect(i);
    RectT<float> const text{rect.left + kPanelPadding, rect.top, rect.width - 2.0f * kPanelPadding,
                            rect.height};
    if (!mRows[i].page) {
      DrawLabel(scriber, mRows[i].text, {text.left, text.top + 8.0f, text.width, text.height - 8.0f},
                Leading(), FontIndex::kSmall, ThemeColor(ThemeColorID::kGray7));
      continue;
    }
    bool const chosen = mRows[i].page == mValue;
    if (chosen) {
      moxui::utils::DrawRect(scriber, rect, ThemeColor(ThemeColorID::kSelectionFill));
      moxui::utils::DrawRect(scriber, Placed({0.0f, rect.top, kMarkWidth, rect.height}, own.width),
                             ThemeColor(ThemeColorID::kInteractive));
    } else if (HoveredItem() == i) {
      moxui::utils::DrawRect(scriber, rect, ThemeColor(ThemeColorID::kGray3));
    }
    DrawLabel(scriber, mRows[i].text, text, Leading(), FontIndex::kText,
              ThemeColor(chosen ? ThemeColorID::kGray9 : ThemeColorID::kGray8));
    if (chosen && UI_HasKeyboardFocus()) {
      DrawInnerFocusRing(scriber, rect);
    }
  }
  if (mRows.empty()) {
    DrawLabel(scriber, Text16("$$$/playground/search/nothing=No page has this name."),
              {kPanelPadding, 8.0f, own.width - 2.0f * kPanelPadding, kRowHeight}, Leading(),
              FontIndex::kSmall, ThemeColor(ThemeColorID::kGray7));
  }
  if (UI_HasKeyboardFocus() && !RowOfValue()) {
    DrawInnerFocusRing(scriber, own);
  }
}

bool PageList::UI_DoPointerEvent(moxui::ui::UI_Node* node, moxui::ui::PointerEvent const& event) {
  if (auto const* const wheel = moxui::ui::WheelEvent::GetWheelEventForPointerEvent(event)) {
    ScrollTo(mOffset - wheel->GetDistance().y);
    return true;
  }
  return ItemControl::UI_DoPointerEvent(node, event);
}

bool PageList::UI_DoKeyboardEvent(moxui::ui::UI_Node*, moxui::ui::KeyboardEvent const& event) {
  if (!event.IsAction(moxui::ui::KeyAction::kKeyDown) || !event.GetModKey().IsEmpty()) {
    return false;
  }
  switch (event.GetCode()) {
    case KeyboardCode::kUp:
      Step(-1);
      return true;
    case KeyboardCode::kDown:
      Step(1);
      return true;
    default:
      return false;
  }
}

void PageList::UI_SizeChanged(RectT<float> const& rect) {
  ItemControl::UI_SizeChanged(rect);
  ScrollTo(mOffset);
}

moxcore::Utf8String PageList::UI_GetAccessibleName() const {
  return moxcore::Utf8String(Text("$$$/playground/pages=Pages"));
}

moxcore::Utf8String PageList::UI_GetAccessibleValue() const {
  auto const row = RowOfValue();
  return row ? moxcore::Utf8String(To8(mRows[*row].text)) : moxcore::Utf8String();
}

}  // namespace playground
