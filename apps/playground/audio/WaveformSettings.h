#pragma once

#include "audio/TimeRuler.h"
#include "audio/WaveformPalette.h"

#include <moxui/geometry/ColorRGBA.h>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace moxmediaui {
class WaveformDraw;
}

namespace playground {

class Viewport;

enum class FadeFamily { kExponential, kCosine };
enum class FadeDirection { kNone, kIn, kOut };
enum class PeakStyle { kBipolar, kRectified, kRectifiedFromZero };
// Which data the picture is drawn from; automatic: samples once they can be told apart.
enum class DetailChoice { kAutomatic, kPeaks, kSamples };

// Instead of a number of lines of the level grid: one every 6 dB.
inline constexpr int kDecibelGrid = -1;

// How waveforms are drawn, whatever the sound; a preset keeps all of it. What has no value follows the theme.
struct WaveformStyle {
  std::array<std::optional<moxui::ColorRGBA>, kWaveformColorCount> colors;
  bool coloredChannels = true;
  std::optional<moxui::ColorRGBA> waveColor;  // of every channel while they share a colour
  std::optional<moxui::ColorRGBA> selectedWaveColor;
  bool deriveSelectionColors = false;  // the waveform's own way instead of the theme's

  bool layered = false;
  bool firstLayerStrong = false;
  PeakStyle peakStyle = PeakStyle::kBipolar;
  bool squareRoot = false;
  bool rms = true;
  bool clipMarks = true;
  bool sampleDots = true;
  DetailChoice detail = DetailChoice::kAutomatic;
  RulerUnit rulerUnit = RulerUnit::kTime;

  bool centerlines = true;
  bool dividers = true;
  bool timeGrid = true;
  int timeGridSpacing = 0;                // logical pixels between two lines; 0: at the ruler's labels
  int amplitudeDivisions = kDecibelGrid;  // lines between silence and full scale; 0: none
  bool alignBottom = false;
  std::optional<double> drawScale;  // nothing: the scale of the screen

  double zoom = 1.0;  // of the amplitude
  double gainDecibel = 0.0;
  bool gainWholeRange = false;

  bool operator==(WaveformStyle const&) const = default;
};

// What is about one sound; no preset keeps any of it.
struct WaveformOfSound {
  std::vector<std::optional<moxui::ColorRGBA>> channelColors;  // one per channel
  std::vector<std::optional<moxui::ColorRGBA>> selectedChannelColors;
  std::vector<bool> enabledChannels;  // one per channel

  FadeDirection fadeDirection = FadeDirection::kNone;
  FadeFamily fadeFamily = FadeFamily::kExponential;
  std::int64_t fadeStart = 0;  // samples
  std::int64_t fadeEnd = 0;
  double fadeAmount = 0.0;
  bool playheadInMilliseconds = false;  // the field of its position; else in samples

  // All channels enabled and in the theme's colours.
  void SetChannelCount(std::size_t count);
  bool operator==(WaveformOfSound const&) const = default;
};

// Everything about a waveform picture that a user can set by hand, apart from the view and the selection.
struct WaveformSettings : WaveformStyle, WaveformOfSound {
  bool operator==(WaveformSettings const&) const = default;
};

inline constexpr double kSmallestZoom = 0.125;
inline constexpr double kLargestZoom = 32.0;
inline constexpr double kLargestGainDecibel = 24.0;
inline constexpr double kLargestFadeAmount = 10.0;

moxui::ColorRGBA ColorOf(WaveformSettings const& settings, WaveformPalette const& palette,
                         WaveformColor place);
moxui::ColorRGBA ChannelColorOf(WaveformSettings const& settings, WaveformPalette const& palette,
                                std::size_t channel);
// The same inside a selection. Where none was chosen it follows a colour that was chosen for outside.
moxui::ColorRGBA SelectedChannelColorOf(WaveformSettings const& settings, WaveformPalette const& palette,
                                        std::size_t channel);

// Where the grid of times lies in a view drawn at `scale`, in device pixels.
std::vector<std::int32_t> TimeGrid(WaveformSettings const& settings, Viewport const& view, int sampleRate,
                                   double scale);

// Hands all of it to `draw`. The channels' bits are set for every channel, which selections and fades need.
void Apply(WaveformSettings const& settings, WaveformPalette const& palette, moxmediaui::WaveformDraw& draw);

}  // namespace playground
