#include "audio/ChannelGutter.h"

#include "audio/AudioSession.h"
#include "audio/ChannelNames.h"
#include "audio/LevelGrid.h"
#include "program/AppearanceState.h"
#include "program/HexColor.h"
#include "program/Localized.h"
#include "properties/NamedColors.h"
#include "shell/Painting.h"

#include <moxui/scriber/Drawing.h>
#include <moxui/skins/Look.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>
#include <moxui/ui/OS_Menu.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

namespace playground {
namespace {

using moxui::RectT;
using moxui::ui::FontIndex;
using moxui::ui::PointerAction;
using moxui::ui::ThemeColorID;

constexpr float kLowestLabel = 12.0f;
constexpr float kMarkWidth = 4.0f;
constexpr float kLevelHeight = 11.0f;
// From the middle of a channel's name to that of a level beside it.
constexpr float kNameHeight = 14.0f;
// Names of more channels than a view has room for needn't be measured.
constexpr std::size_t kMostMeasured = 128;
constexpr float kNarrowest = 44.0f;
constexpr float kWidestBrief = 60.0f;
constexpr float kWidestFull = 120.0f;
// Names in full take no more than one part of so many.
constexpr float kShareOfRoom = 5.0f;

}  // namespace

RectT<float> ChannelGutter::StripRect(std::size_t channel) const {
  RectT<float> const own = UI_GetLocalRectF(false);
  WaveformSettings const& settings = mSession.Settings();
  auto const count = static_cast<int>(mSession.Current().ChannelCount());
  if (settings.layered && count > 0) {
    // One strip for all: the names stand one below the other.
    float const height = std::min(own.height / static_cast<float>(count), 20.0f);
    return {0.0f, height * static_cast<float>(channel), own.width, height};
  }
  // As the renderer lays out: at the scale at which it draws, with the spare rows above or below.
  auto const strips = Strips();
  if (!strips) {
    return {};
  }
  auto const pixels = static_cast<float>(GetViewScaleFactor());
  int const top = strips->top + static_cast<int>(channel) * strips->stride;
  return {0.0f, static_cast<float>(top) / pixels, own.width, static_cast<float>(strips->height) / pixels};
}

std::optional<ChannelStrips> ChannelGutter::Strips() const {
  double const screen = GetViewScaleFactor();
  WaveformSettings const& settings = mSession.Settings();
  int const rows = static_cast<int>(std::lround(UI_GetLocalRectF(false).height * GetViewScaleFactor()));
  return LayOutStrips(settings, static_cast<int>(mSession.Current().ChannelCount()), rows,
                      settings.drawScale.value_or(screen), mSession.DrawsSamples());
}

// The levels of the grid's lines, where neither the name nor another level stands already.
void ChannelGutter::DrawLevels(moxui::scriber::Scriber* scriber, RectT<float> const& strip) const {
  auto const strips = Strips();
  if (!strips) {
    return;
  }
  double const screen = GetViewScaleFactor();
  WaveformSettings const& settings = mSession.Settings();
  float const lowest = strip.Bottom() - kLowestLabel / 2.0f;
  float const highest = strip.top + kLowestLabel / 2.0f;
  float last = strip.top - kLowestLabel;
  for (LevelLine const& line : LevelLines(settings, *strips, settings.drawScale.value_or(screen))) {
    float const y = std::clamp(strip.top + (static_cast<float>(line.y) + 0.5f) / static_cast<float>(screen),
                               highest, std::max(lowest, highest));
    if (y - last < kLevelHeight || std::abs(y - strip.Center().y) < kNameHeight) {
      continue;
    }
    last = y;
    DrawLabel(scriber, To16(line.label),
              Placed({0.0f, y - 10.0f, strip.width - kMarkWidth - 8.0f, 20.0f}, strip.width), Trailing(),
              FontIndex::kSmall, ThemeColor(ThemeColorID::kGray7));
  }
}

std::size_t ChannelGutter::ItemCount() const {
  return mSession.Current().ChannelCount();
}

moxcore::Utf16String ChannelGutter::ItemName(std::size_t channel) const {
  return To16(ChannelName(mSession, channel));
}

moxcore::Utf16String ChannelGutter::ItemValue(std::size_t channel) const {
  return mSession.IsChannelEnabled(channel) ? Text16("$$$/playground/value/on=on")
                                            : Text16("$$$/playground/value/off=off");
}

void ChannelGutter::MeasureNames() {
  auto const width = [](float label) { return std::ceil((label + kMarkWidth + 12.0f) / 4.0f) * 4.0f; };
  mBriefWidth = kNarrowest;
  mFullWidth = kNarrowest;
  std::size_t const named = std::min(mSession.Layout().size(), kMostMeasured);
  for (std::size_t channel = 0; channel < named; ++channel) {
    float const brief = LabelWidth(To16(ShortChannelName(mSession, channel)), FontIndex::kSmall);
    float const full = LabelWidth(To16(ChannelName(mSession, channel)), FontIndex::kSmall);
    mBriefWidth = std::clamp(width(brief), mBriefWidth, kWidestBrief);
    mFullWidth = std::clamp(width(full), mFullWidth, kWidestFull);
  }
}

float ChannelGutter::WidthFor(float room) const {
  return mFullWidth <= room / kShareOfRoom ? mFullWidth : mBriefWidth;
}

std::string ChannelGutter::LabelOf(std::size_t channel) const {
  bool const isFull = !mSession.Layout().empty() && UI_GetLocalRectF(false).width >= mFullWidth;
  return isFull ? ChannelName(mSession, channel) : ShortChannelName(mSession, channel);
}

void ChannelGutter::SessionChanged() {
  mValue = std::min(mValue, std::max<std::size_t>(ItemCount(), 1) - 1);
  SetWantsKeyboardFocus(ItemCount() > 0);
  MeasureNames();
  ItemsChanged();
}

void ChannelGutter::UI_Draw(moxui::scriber::Scriber* scriber) const {
  std::size_t const count = mSession.Current().ChannelCount();
  WaveformPalette const palette = PaletteOf(CurrentAppearance().theme);
  float last = -kLowestLabel;
  if (count > 0 && UI_HasKeyboardFocus() && StripRect(mValue).IsEmpty()) {
    DrawInnerFocusRing(scriber, UI_GetLocalRectF(false));
  }
  for (std::size_t channel = 0; channel < count; ++channel) {
    RectT<float> const strip = StripRect(channel);
    if (strip.IsEmpty()) {
      return;
    }
    bool const enabled = mSession.IsChannelEnabled(channel);
    if (HoveredItem() == channel) {
      moxui::utils::DrawRect(scriber, strip, ThemeColor(ThemeColorID::kGray3));
    }
    if (channel == mValue && UI_HasKeyboardFocus()) {
      DrawInnerFocusRing(scriber, strip);
    }
    // The mark has the channel's colour, and none while it is off.
    moxui::ColorRGBA const color = ChannelColorOf(mSession.Settings(), palette, channel);
    float const markHeight = std::min(strip.height, 12.0f);
    moxui::utils::DrawRect(scriber,
                           Placed({strip.width - kMarkWidth - 4.0f, strip.Center().y - markHeight / 2.0f,
                                   kMarkWidth, markHeight},
                                  strip.width),
                           enabled ? color : ThemeColor(ThemeColorID::kGray4));
    if (!mSession.Settings().layered) {
      DrawLevels(scriber, strip);
    }
    // Names of thin strips would lie over each other: some are left out.
    float const middle = strip.Center().y;
    if (middle - last >= kLowestLabel) {
      last = middle;
      DrawLabel(scriber, To16(LabelOf(channel)),
                Placed({0.0f, middle - 10.0f, strip.width - kMarkWidth - 8.0f, 20.0f}, strip.width),
                Trailing(), FontIndex::kSmall,
                ThemeColor(enabled ? ThemeColorID::kGray8 : ThemeColorID::kDefaultTextDisabled));
    }
  }
}

void ChannelGutter::UI_ScaleChanged(float scale) {
  ItemControl::UI_ScaleChanged(scale);
  ItemsMoved();
}

void ChannelGutter::ItemPressed(std::size_t channel) {
  GoTo(channel);
  mSession.ToggleChannel(channel);
}

void ChannelGutter::HoverChanged() {
  auto const channel = HoveredItem();
  UI_SetToolTip(channel ? moxcore::Utf8String(
                              Text("$$$/playground/audio/toggleChannel=@0: click for off and on, right click "
                                   "for a colour",
                                   {ChannelName(mSession, *channel)}))
                        : moxcore::Utf8String(),
                moxui::skins::GetToolTipDelay());
}

void ChannelGutter::GoTo(std::size_t channel) {
  if (channel < ItemCount() && channel != mValue) {
    mValue = channel;
    UI_Invalidate();
  }
}

void ChannelGutter::OpenMenu(std::size_t channel) {
  RectT<float> const strip = StripRect(channel);
  auto const& colors = mSession.Settings().channelColors;
  bool const isChosen = channel < colors.size() && colors[channel].has_value();
  std::string const chosen = isChosen ? HexFromColor(*colors[channel]) : std::string();
  auto const menu = moxui::ui::CreateOSMenu();
  constexpr int kThemes = 1;
  constexpr int kFirstNamed = 2;
  menu->AddItem(kThemes, Text16("$$$/playground/color/theme=Theme"));
  menu->CheckItem(kThemes, !isChosen);
  menu->AddSeparator();
  auto const named = NamedColors();
  for (std::size_t i = 0; i < named.size(); ++i) {
    int const id = kFirstNamed + static_cast<int>(i);
    menu->AddItem(id, Text16(named[i].name));
    menu->CheckItem(id, chosen == HexFromColor(ColorOfNumber(named[i].number)));
  }
  moxcore::utility::IntrusivePtr<ChannelGutter> const alive(this);  // anything may happen while it is open
  int const id = UI_DoContextMenu(menu.Get(), this, {strip.left, strip.Bottom()});
  if (id < kThemes || id >= kFirstNamed + static_cast<int>(named.size())) {
    return;
  }
  std::optional<moxui::ColorRGBA> color;
  if (id >= kFirstNamed) {
    color = ColorOfNumber(named[static_cast<std::size_t>(id - kFirstNamed)].number);
  }
  mSession.ChangeSettings([channel, color](WaveformSettings& settings) {
    if (channel < settings.channelColors.size()) {
      settings.channelColors[channel] = color;
      settings.coloredChannels = true;
    }
  });
}

bool ChannelGutter::UI_DoMouseEvent(moxui::ui::UI_Node* node, moxui::ui::MouseEvent const& event) {
  if (event.IsAction(PointerAction::kPress) && event.IsButton(moxui::ui::MouseButton::kRight)) {
    if (auto const channel = ItemAt(event.GetPosition())) {
      UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kPointer);
      GoTo(*channel);
      OpenMenu(*channel);
    }
    return true;
  }
  return ItemControl::UI_DoMouseEvent(node, event);
}

bool ChannelGutter::UI_DoKeyboardEvent(moxui::ui::UI_Node*, moxui::ui::KeyboardEvent const& event) {
  using moxui::ui::KeyboardCode;
  if (!event.IsAction(moxui::ui::KeyAction::kKeyDown) || !event.GetModKey().IsEmpty() || ItemCount() == 0) {
    return false;
  }
  switch (event.GetCode()) {
    case KeyboardCode::kUp:
      GoTo(mValue == 0 ? 0 : mValue - 1);
      return true;
    case KeyboardCode::kDown:
      GoTo(mValue + 1);
      return true;
    case KeyboardCode::kHome:
      GoTo(0);
      return true;
    case KeyboardCode::kEnd:
      GoTo(ItemCount() - 1);
      return true;
    case KeyboardCode::kSpace:
      mSession.ToggleChannel(mValue);
      return true;
    case KeyboardCode::kReturn:
    case KeyboardCode::kContextMenu:
      OpenMenu(mValue);
      return true;
    default:
      return false;
  }
}

moxcore::Utf8String ChannelGutter::UI_GetAccessibleName() const {
  return moxcore::Utf8String(Text("$$$/playground/audio/channelList=Channels"));
}

moxcore::Utf8String ChannelGutter::UI_GetAccessibleValue() const {
  return mValue < ItemCount() ? moxcore::Utf8String(To8(ItemName(mValue) + u", " + ItemValue(mValue)))
                              : moxcore::Utf8String();
}

}  // namespace playground
