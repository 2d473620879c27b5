#include "audio/AudioNotices.h"

#include "audio/WaveformPalette.h"
#include "audio/WaveformSettings.h"
#include "program/AppearanceState.h"
#include "program/Localized.h"
#include "shell/Painting.h"

#include <moxui/scriber/Drawing.h>

#include <string>

namespace playground {
namespace {

using moxui::RectT;
using moxui::scriber::Scriber;
using moxui::ui::FontIndex;

void DrawNotice(Scriber* scriber, RectT<float> const& wave, moxui::ColorRGBA const& ground,
                moxcore::Utf16String const& title, moxcore::Utf16String const& text) {
  using moxui::scriber::TextAlignment;
  moxui::ColorRGBA const ink = InkOn(ground);
  float const middle = wave.Center().y;
  DrawLabel(scriber, title, {wave.left, middle - 20.0f, wave.width, 20.0f}, TextAlignment::kCenter,
            FontIndex::kTitle, ink);
  DrawLabel(scriber, text, {wave.left, middle + 4.0f, wave.width, 20.0f}, TextAlignment::kCenter,
            FontIndex::kText, ink);
}

moxui::ColorRGBA GroundOf(WaveformSettings const& settings, WaveformColor ground) {
  return ColorOf(settings, PaletteOf(CurrentAppearance().theme), ground);
}

}  // namespace

void DrawNoSound(Scriber* scriber, RectT<float> const& wave, WaveformSettings const& settings) {
  moxui::utils::DrawOutline(scriber, wave.Inset(0.5f), ThemeColor(moxui::ui::ThemeColorID::kGray4), 1.0f);
  DrawNotice(scriber, wave, GroundOf(settings, WaveformColor::kControl),
             Text16("$$$/playground/audio/emptyTitle=Drop a sound here"),
             Text16("$$$/playground/audio/emptyText=WAV, AIFF, FLAC, Ogg, Opus, MP3 or .dat peaks, or open "
                    "one with Ctrl+O."));
}

void DrawTooManyChannels(Scriber* scriber, RectT<float> const& wave, WaveformSettings const& settings,
                         std::size_t channels) {
  DrawNotice(
      scriber, wave, GroundOf(settings, WaveformColor::kBackground),
      Text16("$$$/playground/audio/tooManyTitle=There is no room for @0 channels",
             {std::to_string(channels)}),
      Text16("$$$/playground/audio/tooManyText=Make the window higher, or put the channels in one layer."));
}

}  // namespace playground
