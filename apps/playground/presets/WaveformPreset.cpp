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
  Reader(std::any const& object, WaveformStyle& style) : mObject(object), mStyle(style) {
    if (auto const colors = GetVariantInObject(object, kColors)) {
      std::any_cast<JSONObject const&>(*colors);
      mColors = *colors;
    }
  }

  void Toggle(char const* key, bool WaveformStyle::*field) {
    if (auto const value = GetVariantInObject(mObject, key)) {
      mStyle.*field = std::any_cast<bool>(*value);
    }
  }

  void Number(char const* key, double WaveformStyle::*field, double least, double most) {
    if (auto const value = GetVariantInObject(mObject, key)) {
      mStyle.*field = Within(key, *value, least, most);
    }
  }
  void Number(char const* key, std::optional<double> WaveformStyle::*field, double least, double most) {
    if (auto const value = GetVariantInObject(mObject, key)) {
      mStyle.*field = Within(key, *value, least, most);
    }
  }

  template <class T>
  void Choice(char const* key, T WaveformStyle::*field, Names<T> names) {
    if (auto const value = GetVariantInObject(mObject, key)) {
      auto const& text = std::any_cast<Utf8String const&>(*value);
      auto const found = std::ranges::find_if(names, [&](auto const& name) { return text == name.first; });
      if (found == names.end()) {
        throw std::invalid_argument(key);
      }
      mStyle.*field = found->second;
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

  WaveformStyle& Style() { return mStyle; }

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
  WaveformStyle& mStyle;
};

// Puts settings into an object.
class Writer {
 public:
  explicit Writer(WaveformStyle const& style) : mStyle(style) {}

  void Toggle(char const* key, bool WaveformStyle::*field) { Add(key, mStyle.*field); }
  void Number(char const* key, double WaveformStyle::*field, double, double) { Add(key, mStyle.*field); }
  void Number(char const* key, std::optional<double> WaveformStyle::*field, double, double) {
    if (mStyle.*field) {
      Add(key, *(mStyle.*field));
    }
  }

  template <class T>
  void Choice(char const* key, T WaveformStyle::*field, Names<T> names) {
    auto const found =
        std::ranges::find_if(names, [&](auto const& name) { return mStyle.*field == name.second; });
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

  WaveformStyle& Style() { return mStyle; }

  std::any Object() {
    AddToObject(mObject, kColors, std::move(mColors), false);
    return std::move(mObject);
  }

 private:
  void Add(char const* key, std::any value) { AddToObject(mObject, key, std::move(value), false); }

  WaveformStyle mStyle;
  std::any mObject = JSONObject();
  std::any mColors = JSONObject();
};

template <class Visitor>
void VisitWave(Visitor& visit) {
  using Style = WaveformStyle;
  visit.template Choice<PeakStyle>("peakStyle", &Style::peakStyle,
                                   {{"bipolar", PeakStyle::kBipolar},
                                    {"rectified", PeakStyle::kRectified},
                                    {"rectifiedFromZero", PeakStyle::kRectifiedFromZero}});
  visit.template Choice<DetailChoice>("detail", &Style::detail,
                                      {{"automatic", DetailChoice::kAutomatic},
                                       {"peaks", DetailChoice::kPeaks},
                                       {"samples", DetailChoice::kSamples}});
  visit.Toggle("squareRoot", &Style::squareRoot);
  visit.Toggle("rms", &Style::rms);
  visit.Toggle("clipMarks", &Style::clipMarks);
  visit.Toggle("sampleDots", &Style::sampleDots);
  visit.Toggle("layered", &Style::layered);
  visit.Toggle("firstLayerStrong", &Style::firstLayerStrong);
  visit.Toggle("alignBottom", &Style::alignBottom);
  visit.Number("drawScale", &Style::drawScale, 1.0, kLargestDrawScale);
  visit.Number("zoom", &Style::zoom, kSmallestZoom, kLargestZoom);
  visit.Number("gainDecibel", &Style::gainDecibel, -kLargestGainDecibel, kLargestGainDecibel);
  visit.Toggle("gainWholeRange", &Style::gainWholeRange);
}

template <class Visitor>
void VisitLines(Visitor& visit) {
  using Style = WaveformStyle;
  visit.Toggle("centerlines", &Style::centerlines);
  visit.Toggle("dividers", &Style::dividers);
  visit.template Choice<RulerUnit>("rulerUnit", &Style::rulerUnit,
                                   {{"time", RulerUnit::kTime}, {"samples", RulerUnit::kSamples}});
  visit.Toggle("timeGrid", &Style::timeGrid);
  visit.template Choice<int>(
      "timeGridSpacing", &Style::timeGridSpacing,
      {{"ruler", 0}, {"10 pixels", 10}, {"25 pixels", 25}, {"50 pixels", 50}, {"100 pixels", 100}});
  visit.template Choice<int>(
      "amplitudeGrid", &Style::amplitudeDivisions,
      {{"none", 0}, {"decibels", kDecibelGrid}, {"halves", 1}, {"quarters", 3}, {"eighths", 7}});
}

template <class Visitor>
void VisitColors(Visitor& visit) {
  visit.Toggle("coloredChannels", &WaveformStyle::coloredChannels);
  visit.Toggle("deriveSelectionColors", &WaveformStyle::deriveSelectionColors);
  auto& style = visit.Style();
  visit.Color("wave", style.waveColor);
  visit.Color("selectedWave", style.selectedWaveColor);
  auto const color = [&](char const* key, WaveformColor place) {
    visit.Color(key, style.colors[static_cast<std::size_t>(place)]);
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

}  // namespace

}  // namespace playground

namespace moxcore::serialization {

using playground::WaveformPresetData;

WaveformPresetData JSONConvert<WaveformPresetData>::FromJSON(std::any const& value) {
  std::any_cast<JSONObject const&>(value);
  WaveformPresetData data;
  playground::Reader reader(value, data.style);
  playground::VisitAll(reader);
  return data;
}

std::any JSONConvert<WaveformPresetData>::ToJSON(WaveformPresetData const& data) {
  playground::Writer writer(data.style);
  playground::VisitAll(writer);
  return writer.Object();
}

}  // namespace moxcore::serialization
