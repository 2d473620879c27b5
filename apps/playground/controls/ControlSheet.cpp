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
    Listen(*row.live, row.title);
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

StatePreview& ControlSheet::Preview(std::size_t row) const {
  return *mRows[row].preview;
}

void ControlSheet::ShowState(SampleState state) {
  mState = state;
  for (Row const& row : mRows) {
    row.preview->SetView(row.sample.make(), mState, {.pointer = row.sample.pointer});
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

float ControlSheet::Row::Height() const {
  return InnerHeight() + 2.0f * kRowPadding;
}

float ControlSheet::RowsBottom() const {
  float bottom = kHeaderHeight;
  for (Row const& row : mRows) {
    bottom += row.Height();
  }
  return bottom;
}

float ControlSheet::GetHeight() const {
  return RowsBottom() + (mKeys ? kKeysGap + mKeys->GetHeight() + kPanelPadding : 0.0f);
}

void ControlSheet::LayOut() {
  RectT<float> const own = UI_GetLocalRectF(false);
  if (own.IsEmpty()) {
    return;
  }
  float const column = ColumnWidth(own.width);
  float top = kHeaderHeight;
  for (Row& row : mRows) {
    auto const size = row.Size();
    row.rect = {0.0f, top, own.width, row.Height()};
    float const left = kPanelPadding + kTitleWidth;
    RectT<float> const live{left, top + kRowPadding + std::floor((row.InnerHeight() - size.height) / 2.0f),
                            std::min(size.width, column - kGroupGap), size.height};
    row.live->UI_SetLocalRectF(Placed(live, own.width));
    row.preview->UI_SetLocalRectF(Placed(live.Offset({column, 0.0f}), own.width));
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
  float const column = ColumnWidth(own.width);
  float const left = kPanelPadding + kTitleWidth;
  auto const heading = [&](float x, moxcore::Utf16String const& text) {
    DrawLabel(scriber, text, Placed({x, 0.0f, column, kHeaderHeight}, own.width), Leading(),
              FontIndex::kSmall, ThemeColor(ThemeColorID::kGray7));
  };
  heading(left, Text16("$$$/playground/controls/live=To be tried"));
  heading(left + column, Text16(DescriptionOf(mState).title));
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
  }
  UI_SubView::UI_Draw(scriber);
}

}  // namespace playground
