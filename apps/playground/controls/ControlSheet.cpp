#include "controls/ControlSheet.h"

#include "controls/ControlTalk.h"
#include "controls/KeyTable.h"
#include "controls/StatePreview.h"
#include "program/Localized.h"
#include "shell/EventLog.h"
#include "shell/Painting.h"

#include <moxui/controls/UI_InteractiveControlView.h>
#include <moxui/scriber/Drawing.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace playground {
namespace {

using moxcore::messaging::Message;
using moxcore::utility::MakeIntrusive;
using moxui::RectT;
using moxui::controls::UI_ControlView;
using moxui::controls::UI_InteractiveControlView;
using moxui::ui::FontIndex;
using moxui::ui::ThemeColorID;

constexpr float kHeaderHeight = 28.0f;
constexpr float kRowPadding = 8.0f;
constexpr float kTitleWidth = 176.0f;
constexpr float kSmallestColumn = 200.0f;
constexpr float kKeysGap = 20.0f;
constexpr float kBoxGap = 24.0f;  // between what opens a box and the box

float UpToGrid(float value) {
  return std::ceil(value / 4.0f) * 4.0f;
}

float ColumnWidth(float width) {
  float const rest = (width - 2.0f * kPanelPadding - kTitleWidth) / 2.0f;
  return std::max(std::floor(std::min(rest, 400.0f) / 4.0f) * 4.0f, kSmallestColumn);
}

}  // namespace

ControlSheet::ControlSheet(EventLog& log, std::vector<ControlSample> samples,
                           std::vector<KeyLine> const& keys)
    : mLog(log) {
  for (ControlSample& sample : samples) {
    Row row;
    row.title = Text16(sample.title);
    row.live = sample.make();
    row.preview = MakeIntrusive<StatePreview>();
    row.sample = std::move(sample);
    if (row.sample.inside) {
      row.inside = row.sample.inside()->UI_GetLocalRectF(false).Extent();
    }
    if (row.sample.open) {
      OpenWhenPressed(row);
    } else {
      Listen(*row.live, row.title);
    }
    ChildPushBack(row.live);
    ChildPushBack(row.preview);
    mRows.push_back(std::move(row));
  }
  if (!keys.empty()) {
    mKeys = MakeIntrusive<KeyTable>(keys, kTitleWidth);
    ChildPushBack(mKeys);
  }
}

ControlSheet::~ControlSheet() = default;

void ControlSheet::Listen(UI_ControlView& control, moxcore::Utf16String const& title) {
  auto const tell = [&log = mLog, name = To8(title)](Message* message) {
    log.Add(MessageText(name, *message));
  };
  auto const handler = std::make_shared<std::function<void(Message*)>>(tell);
  control.NotifyWhenChanged(handler);
  control.NotifyHover(handler);
  if (auto* const interactive = dynamic_cast<UI_InteractiveControlView*>(&control)) {
    interactive->NotifyWhenChangedInteractively(handler);
  }
}

void ControlSheet::OpenWhenPressed(Row const& row) {
  auto const open = [&log = mLog, button = row.live.Get(), name = To8(row.title),
                     open = row.sample.open](Message*) {
    // The page may end while the box is open, and the button, whose function this is, with it.
    moxcore::utility::IntrusivePtr<UI_ControlView> const kept(button);
    log.Add(Text("$$$/playground/message/opened=@0: opened", {name}));
    log.Add(Text("$$$/playground/message/plain=@0: @1", {name, open(*button)}));
  };
  row.live->NotifyWhenChanged(std::make_shared<std::function<void(Message*)>>(open));
}

StatePreview& ControlSheet::Preview(std::size_t row) const {
  return *mRows[row].preview;
}

void ControlSheet::ShowState(SampleState state) {
  mState = state;
  for (Row const& row : mRows) {
    auto const& make = row.sample.inside;
    row.preview->SetView(make ? make() : row.sample.make(), mState, {.pointer = row.sample.pointer});
  }
  UI_Invalidate();
}

moxui::ExtentT<float> ControlSheet::Row::Size() const {
  auto const natural = live->UI_GetRecommendedSizeFromDefaultSupplier();
  return {UpToGrid(sample.width > 0.0f ? sample.width : natural.width),
          UpToGrid(sample.height > 0.0f ? sample.height : natural.height)};
}

float ControlSheet::Row::InnerHeight() const {
  return std::max(Size().height, ControlHeight());
}

ControlSheet::PreviewColumn ControlSheet::FindPreviewColumn(float width) const {
  constexpr float kControlsLeft = kPanelPadding + kTitleWidth;
  float widestControl = 0.0f;
  float widestBox = 0.0f;
  for (Row const& row : mRows) {
    widestControl = std::max(widestControl, row.Size().width);
    widestBox = std::max(widestBox, row.inside.width);
  }
  if (widestBox == 0.0f) {
    return {.left = kControlsLeft + ColumnWidth(width), .isBelow = false};
  }
  float const beside = kControlsLeft + widestControl + kBoxGap;
  bool const hasRoom = beside + widestBox + kPanelPadding <= width;
  return {.left = hasRoom ? beside : kPanelPadding, .isBelow = !hasRoom};
}

float ControlSheet::RowHeight(Row const& row, PreviewColumn const& column) {
  float const control = row.InnerHeight();
  float const preview = UpToGrid(row.PreviewSize().height);
  return (column.isBelow ? control + kRowPadding + preview : std::max(control, preview)) + 2.0f * kRowPadding;
}

float ControlSheet::GetHeight(float width) const {
  PreviewColumn const column = FindPreviewColumn(width);
  float height = kHeaderHeight;
  for (Row const& row : mRows) {
    height += RowHeight(row, column);
  }
  return height + (mKeys ? kKeysGap + mKeys->GetHeight() + kPanelPadding : 0.0f);
}

void ControlSheet::PlaceRow(Row& row, float top, float width, PreviewColumn const& column) {
  row.rect = {0.0f, top, width, RowHeight(row, column)};
  float const left = kPanelPadding + kTitleWidth;
  auto const size = row.Size();
  float const widest = column.isBelow ? width - left - kPanelPadding : column.left - left - kGroupGap;
  RectT<float> const live{left, top + kRowPadding + std::floor((row.InnerHeight() - size.height) / 2.0f),
                          std::min(size.width, widest), size.height};
  row.live->UI_SetLocalRectF(Placed(live, width));
  RectT<float> preview{column.left, live.top, live.width, live.height};
  if (row.sample.inside) {
    float const under = column.isBelow ? row.InnerHeight() + kRowPadding : 0.0f;
    preview = {column.left, top + kRowPadding + under, row.inside.width, row.inside.height};
  }
  row.preview->UI_SetLocalRectF(Placed(preview, width));
}

void ControlSheet::LayOut() {
  RectT<float> const own = UI_GetLocalRectF(false);
  if (own.IsEmpty()) {
    return;
  }
  PreviewColumn const column = FindPreviewColumn(own.width);
  float top = kHeaderHeight;
  for (Row& row : mRows) {
    PlaceRow(row, top, own.width, column);
    top += row.rect.height;
  }
  if (mKeys) {
    mKeys->UI_SetLocalRectF(
        {kPanelPadding, top + kKeysGap, own.width - 2.0f * kPanelPadding, mKeys->GetHeight()});
  }
  ShowState(mState);
}

void ControlSheet::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  LayOut();
}

void ControlSheet::UI_Draw(moxui::scriber::Scriber* scriber) const {
  RectT<float> const own = UI_GetLocalRectF(false);
  PreviewColumn const column = FindPreviewColumn(own.width);
  auto const heading = [&](float left, float right, moxcore::Utf16String const& text) {
    DrawLabel(scriber, text, Placed({left, 0.0f, right - left, kHeaderHeight}, own.width), Leading(),
              FontIndex::kSmall, ThemeColor(ThemeColorID::kGray7));
  };
  float const end = own.width - kPanelPadding;
  heading(kPanelPadding + kTitleWidth, column.isBelow ? end : column.left,
          Text16("$$$/playground/controls/live=To be tried"));
  if (!column.isBelow) {
    heading(column.left, end, Text16(DescriptionOf(mState).title));
  }
  auto const rule = [&](float top) {
    moxui::utils::DrawRect(scriber, {kPanelPadding, top, own.width - 2.0f * kPanelPadding, 1.0f},
                           ThemeColor(ThemeColorID::kGray3));
  };
  if (mKeys) {
    rule(mKeys->UI_GetLocalRectF(true).top);
  }
  for (Row const& row : mRows) {
    rule(row.rect.top);
    DrawLabel(scriber, row.title,
              Placed({kPanelPadding, row.rect.top, kTitleWidth - 8.0f, ControlHeight() + 2.0f * kRowPadding},
                     own.width),
              Leading(), FontIndex::kText, ThemeColor(ThemeColorID::kGray8));
    if (row.sample.inside) {
      // The edge of its window.
      moxui::utils::DrawOutline(scriber, row.preview->UI_GetLocalRectF(true).Inset(-0.5f),
                                ThemeColor(ThemeColorID::kGray4), 1.0f);
    }
  }
  UI_SubView::UI_Draw(scriber);
}

}  // namespace playground
