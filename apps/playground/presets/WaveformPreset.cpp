#include "presets/WaveformPreset.h"

#include "program/HexColor.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace playground {
namespace {

using moxcore::Utf8String;
using moxcore::serialization::AddToObject;
using moxcore::serialization::GetVariantInObject;
using moxcore::serialization::JSONObject;
using moxui::ColorRGBA;

constexpr char const* kColors = "colors";
constexpr double kLargestDrawScale = 4.0;

// What a setting of a few values is called in files.
template <class T>
using Names = std::initializer_list<std::pair<char const*, T>>;

double NumberOf(std::any const& value) {
  if (auto const* const positive = std::any_cast<std::uint64_t>(&value)) {
    return static_cast<double>(*positive);
  }
  if (auto const* const negative = std::any_cast<std::int64_t>(&value)) {
    return static_cast<double>(*negative);
  }
  return std::any_cast<double>(value);
}

// Takes settings out of an object.
class Reader {
 public:
  Reader(std::any const& object, WaveformSettings& settings) : mObject(object), mSettings(settings) {
    if (auto const colors = GetVariantInObject(object, kColors)) {
      std::any_cast<JSONObject const&>(*colors);
      mColors = *colors;
    }
  }

  void Toggle(char const* key, bool WaveformSettings::*field) {
    if (auto const value = GetVariantInObject(mObject, key)) {
      mSettings.*field = std::any_cast<bool>(*value);
    }
  }

  void Number(char const* key, double WaveformSettings::*field, double least, double most) {
    if (auto const value = GetVariantInObject(mObject, key)) {
      mSettings.*field = Within(key, *value, least, most);
    }
  }
  void Number(char const* key, std::optional<double> WaveformSettings::*field, double least, double most) {
    if (auto const value = GetVariantInObject(mObject, key)) {
      mSettings.*field = Within(key, *value, least, most);
    }
  }

  template <class T>
  void Choice(char const* key, T WaveformSettings::*field, Names<T> names) {
    if (auto const value = GetVariantInObject(mObject, key)) {
      auto const& text = std::any_cast<Utf8String const&>(*value);
      auto const found = std::ranges::find_if(names, [&](auto const& name) { return text == name.first; });
      if (found == names.end()) {
        throw std::invalid_argument(key);
      }
      mSettings.*field = found->second;
    }
  }

  void Color(char const* key, std::optional<ColorRGBA>& color) {
    if (auto const value = mColors.has_value() ? GetVariantInObject(mColors, key) : nullptr) {
      color = ColorFromHex(std::any_cast<Utf8String const&>(*value));
      if (!color) {
        throw std::invalid_argument(key);
      }
    }
  }

  WaveformSettings& Settings() { return mSettings; }

 private:
  static double Within(char const* key, std::any const& value, double least, double most) {
    double const number = NumberOf(value);
    if (!(number >= least && number <= most)) {
      throw std::invalid_argument(key);
    }
    return number;
  }

  std::any const& mObject;
  std::any mColors;
  WaveformSettings& mSettings;
};

// Puts settings into an object.
class Writer {
 public:
  explicit Writer(WaveformSettings const& settings) : mSettings(settings) {}

  void Toggle(char const* key, bool WaveformSettings::*field) { Add(key, mSettings.*field); }
  void Number(char const* key, double WaveformSettings::*field, double, double) {
    Add(key, mSettings.*field);
  }
  void Number(char const* key, std::optional<double> WaveformSettings::*field, double, double) {
    if (mSettings.*field) {
      Add(key, *(mSettings.*field));
    }
  }

  template <class T>
  void Choice(char const* key, T WaveformSettings::*field, Names<T> names) {
    auto const found =
        std::ranges::find_if(names, [&](auto const& name) { return mSettings.*field == name.second; });
    if (found == names.end()) {
      throw std::invalid_argument(key);
    }
    Add(key, Utf8String(found->first));
  }

  void Color(char const* key, std::optional<ColorRGBA> const& color) {
    if (color) {
      AddToObject(mColors, key, std::any(Utf8String(HexFromColor(*color))), false);
    }
  }

  WaveformSettings& Settings() { return mSettings; }

  std::any Object() {
    AddToObject(mObject, kColors, std::move(mColors), false);
    return std::move(mObject);
  }

 private:
  void Add(char const* key, std::any value) { AddToObject(mObject, key, std::move(value), false); }

  WaveformSettings mSettings;
  std::any mObject = JSONObject();
  std::any mColors = JSONObject();
};

template <class Visitor>
void VisitWave(Visitor& visit) {
  using Settings = WaveformSettings;
  visit.template Choice<PeakStyle>("peakStyle", &Settings::peakStyle,
                                   {{"bipolar", PeakStyle::kBipolar},
                                    {"rectified", PeakStyle::kRectified},
                                    {"rectifiedFromZero", PeakStyle::kRectifiedFromZero}});
  visit.template Choice<DetailChoice>("detail", &Settings::detail,
                                      {{"automatic", DetailChoice::kAutomatic},
                                       {"peaks", DetailChoice::kPeaks},
                                       {"samples", DetailChoice::kSamples}});
  visit.Toggle("squareRoot", &Settings::squareRoot);
  visit.Toggle("rms", &Settings::rms);
  visit.Toggle("clipMarks", &Settings::clipMarks);
  visit.Toggle("sampleDots", &Settings::sampleDots);
  visit.Toggle("layered", &Settings::layered);
  visit.Toggle("firstLayerStrong", &Settings::firstLayerStrong);
  visit.Toggle("alignBottom", &Settings::alignBottom);
  visit.Number("drawScale", &Settings::drawScale, 1.0, kLargestDrawScale);
  visit.Number("zoom", &Settings::zoom, kSmallestZoom, kLargestZoom);
  visit.Number("gainDecibel", &Settings::gainDecibel, -kLargestGainDecibel, kLargestGainDecibel);
  visit.Toggle("gainWholeRange", &Settings::gainWholeRange);
}

template <class Visitor>
void VisitLines(Visitor& visit) {
  using Settings = WaveformSettings;
  visit.Toggle("centerlines", &Settings::centerlines);
  visit.Toggle("dividers", &Settings::dividers);
  visit.template Choice<RulerUnit>("rulerUnit", &Settings::rulerUnit,
                                   {{"time", RulerUnit::kTime}, {"samples", RulerUnit::kSamples}});
  visit.Toggle("timeGrid", &Settings::timeGrid);
  visit.template Choice<int>(
      "timeGridSpacing", &Settings::timeGridSpacing,
      {{"ruler", 0}, {"10 pixels", 10}, {"25 pixels", 25}, {"50 pixels", 50}, {"100 pixels", 100}});
  visit.template Choice<int>(
      "amplitudeGrid", &Settings::amplitudeDivisions,
      {{"none", 0}, {"decibels", kDecibelGrid}, {"halves", 1}, {"quarters", 3}, {"eighths", 7}});
}

template <class Visitor>
void VisitColors(Visitor& visit) {
  visit.Toggle("coloredChannels", &WaveformSettings::coloredChannels);
  visit.Toggle("deriveSelectionColors", &WaveformSettings::deriveSelectionColors);
  auto& settings = visit.Settings();
  visit.Color("wave", settings.waveColor);
  visit.Color("selectedWave", settings.selectedWaveColor);
  auto const color = [&](char const* key, WaveformColor place) {
    visit.Color(key, settings.colors[static_cast<std::size_t>(place)]);
  };
  color("background", WaveformColor::kBackground);
  color("selectionBackground", WaveformColor::kSelectionBackground);
  color("centerline", WaveformColor::kCenterline);
  color("gridline", WaveformColor::kGridline);
  color("divider", WaveformColor::kDivider);
  color("control", WaveformColor::kControl);
}

template <class Visitor>
void VisitAll(Visitor& visit) {
  VisitWave(visit);
  VisitLines(visit);
  VisitColors(visit);
}

void CopyWhatIsAboutASound(WaveformSettings const& from, WaveformSettings& to) {
  to.channelColors = from.channelColors;
  to.selectedChannelColors = from.selectedChannelColors;
  to.enabledChannels = from.enabledChannels;
  to.fadeDirection = from.fadeDirection;
  to.fadeFamily = from.fadeFamily;
  to.fadeStart = from.fadeStart;
  to.fadeEnd = from.fadeEnd;
  to.fadeAmount = from.fadeAmount;
  to.playheadInMilliseconds = from.playheadInMilliseconds;
}

}  // namespace

WaveformPresetData PresetDataOf(WaveformSettings const& settings) {
  WaveformPresetData data{settings};
  CopyWhatIsAboutASound(WaveformSettings(), data.settings);
  return data;
}

void ApplyPresetData(WaveformPresetData const& data, WaveformSettings& settings) {
  WaveformSettings const before = settings;
  settings = data.settings;
  CopyWhatIsAboutASound(before, settings);
}

}  // namespace playground

namespace moxcore::serialization {

using playground::WaveformPresetData;

WaveformPresetData JSONConvert<WaveformPresetData>::FromJSON(std::any const& value) {
  std::any_cast<JSONObject const&>(value);
  WaveformPresetData data;
  playground::Reader reader(value, data.settings);
  playground::VisitAll(reader);
  return data;
}

std::any JSONConvert<WaveformPresetData>::ToJSON(WaveformPresetData const& data) {
  playground::Writer writer(data.settings);
  playground::VisitAll(writer);
  return writer.Object();
}

}  // namespace moxcore::serialization
