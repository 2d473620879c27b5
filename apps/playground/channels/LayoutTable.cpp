#include "channels/LayoutTable.h"

#include "channels/LayoutTexts.h"
#include "program/Localized.h"
#include "shell/Listening.h"
#include "shell/Named.h"
#include "shell/Painting.h"

#include <moxmediatypes/WaveChannelMask.h>
#include <moxui/skins/Look.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace playground {
namespace {

using moxcore::utility::MakeIntrusive;
using moxui::RectT;
using moxui::controls::UI_Popup;
using moxui::controls::UI_StaticText;
using moxui::ui::FontIndex;

constexpr float kRowHeight = 32.0f;
constexpr float kLabelWidth = 132.0f;
constexpr float kPopupWidth = 172.0f;
constexpr float kPopupLeft = kPanelPadding + kLabelWidth + 8.0f;
constexpr float kNamesLeft = kPopupLeft + kPopupWidth + kGroupGap;

}  // namespace

LayoutTable::LayoutTable(ChannelDesk& desk, ChangeFunction change)
    : mDesk(desk),
      mChange(std::move(change)),
      mAll(std::make_unique<LayoutPopups>(desk, true)),
      mBuiltIn(std::make_unique<LayoutPopups>(desk, false)),
      mWave(std::make_unique<LayoutPopups>(desk, true)) {
  auto labels = moxmediatypes::GetWaveChannelDescriptions();
  // The first is what a channel without a label shows as.
  labels.insert(moxmediatypes::AudioChannelLabel::kUnnamed);
  mWave->SetValidChannelDescriptions(labels);
  AddRow(LayoutUse::kSound, *mAll, "$$$/playground/channels/sound=Channels of the sound",
         "$$$/playground/channels/sound/tip=Names the channels of the sound on the Audio page");
  AddRow(LayoutUse::kOther, *mAll, "$$$/playground/channels/other=A second popup",
         "$$$/playground/channels/other/tip=Lists the same presets, with those that are saved in the editor");
  AddRow(LayoutUse::kBuiltIn, *mBuiltIn, "$$$/playground/channels/builtIn=Built-in layouts",
         "$$$/playground/channels/builtIn/tip=Lists the layouts that came with the program and no others");
  AddRow(LayoutUse::kWave, *mWave, "$$$/playground/channels/wave=For WAV files",
         "$$$/playground/channels/wave/tip=Its editor offers the labels that a WAV file has places for");
  Refresh();
}

LayoutTable::~LayoutTable() {
  // Popups call their handlers, which go first.
  DeleteChildren();
}

float LayoutTable::Height() {
  return kRowHeight * static_cast<float>(kLayoutUseCount);
}

void LayoutTable::AddRow(LayoutUse use, LayoutPopups& handler, std::string_view label, std::string_view tip) {
  Row& row = mRows[static_cast<std::size_t>(use)];
  row.handler = &handler;
  row.label = Text16(label);
  row.popup = MakeIntrusive<Named<UI_Popup>>(Text(label));
  row.popup->SetWantsKeyboardFocus(true);
  row.popup->SetTextTruncation(moxui::controls::TextTruncation::kEnd);
  row.popup->UI_SetToolTip(moxcore::Utf8String(Text(tip)), moxui::skins::GetToolTipDelay());
  row.names = MakeIntrusive<UI_StaticText>();
  row.names->SetAlignment(Leading());
  row.names->SetTextTruncation(moxui::controls::TextTruncation::kEnd);
  ChildPushBack(row.popup);
  ChildPushBack(row.names);
  handler.Add(use, row.popup);
  // After the handler, which may run the editor first.
  WhenChanged(*row.popup, this, [use](LayoutTable& table) { table.Chosen(use); });
}

void LayoutTable::Chosen(LayoutUse use) {
  Row const& row = RowOf(use);
  auto const edit = row.handler->TakeEdit();
  if (edit == LayoutPopups::Edit::kNone) {
    mDesk.SetLayout(use, row.handler->GetSelectedLayout(row.popup));
  }
  Refresh();
  if (mChange) {
    mChange(use, edit);
  }
}

void LayoutTable::Refresh() {
  for (std::size_t row = 0; row < mRows.size(); ++row) {
    Show(static_cast<LayoutUse>(row));
  }
}

void LayoutTable::Show(LayoutUse use) {
  Row const& row = RowOf(use);
  auto const& layout = mDesk.LayoutFor(use);
  auto const isShown = [&] {
    return row.popup->GetValue() != UI_Popup::kNoItem && row.handler->GetSelectedLayout(row.popup) == layout;
  };
  if (!isShown()) {
    row.handler->SetSelectedLayout(layout, row.popup);
  }
  if (!isShown()) {
    // No preset has it.
    row.popup->SetValueString(Text16("$$$/playground/channels/custom=(Custom)"), true, true);
  }
  row.names->SetValue(To16(ShortLayoutText(layout)));
  row.names->UI_SetToolTip(moxcore::Utf8String(LayoutText(layout)), moxui::skins::GetToolTipDelay());
}

RectT<float> LayoutTable::LabelRect(std::size_t row) const {
  return Placed({kPanelPadding, static_cast<float>(row) * kRowHeight, kLabelWidth, kRowHeight},
                UI_GetLocalRectF(false).width);
}

void LayoutTable::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  float const width = rect.width;
  float const inset = std::floor((kRowHeight - ControlHeight()) / 2.0f);
  for (std::size_t i = 0; i < mRows.size(); ++i) {
    float const top = static_cast<float>(i) * kRowHeight;
    mRows[i].popup->UI_SetLocalRectF(Placed({kPopupLeft, top + inset, kPopupWidth, ControlHeight()}, width));
    mRows[i].names->UI_SetLocalRectF(
        Placed({kNamesLeft, top, std::max(width - kNamesLeft - kPanelPadding, 0.0f), kRowHeight}, width));
  }
}

void LayoutTable::UI_Draw(moxui::scriber::Scriber* scriber) const {
  for (std::size_t i = 0; i < mRows.size(); ++i) {
    DrawLabel(scriber, mRows[i].label, LabelRect(i), Leading(), FontIndex::kText,
              ThemeColor(moxui::ui::ThemeColorID::kGray8));
  }
  UI_SubView::UI_Draw(scriber);
}

}  // namespace playground
