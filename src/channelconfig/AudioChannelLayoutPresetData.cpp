#include "channelconfig/LowBits.h"

#include <moxmediaui/AudioChannelLayoutPresetData.h>

#include <stdexcept>

namespace {

constexpr char const* kLayout = "audiochannellayout";
constexpr char const* kLabel = "channellabel";

}  // namespace

namespace moxcore::serialization {

using moxmediaui::AudioChannelLayoutPresetData;

AudioChannelLayoutPresetData JSONConvert<AudioChannelLayoutPresetData>::FromJSON(std::any const& value) {
  auto const& channels = std::any_cast<JSONArray const&>(GetRequiredInObject(value, kLayout));
  AudioChannelLayoutPresetData data;
  data.channelLayout.reserve(channels.size());
  for (auto const& channel : channels) {
    if (channel == nullptr) {
      throw std::bad_any_cast();
    }
    data.channelLayout.emplace_back(
        moxmediaui::channelconfig::LowBits(GetRequiredInObject(*channel, kLabel)));
  }
  if (data.channelLayout.empty()) {
    throw std::invalid_argument("invalid audiochannellayout");
  }
  return data;
}

std::any JSONConvert<AudioChannelLayoutPresetData>::ToJSON(AudioChannelLayoutPresetData const& data) {
  std::any object = JSONObject();
  std::any channels = JSONArray();
  for (auto const channel : data.channelLayout) {
    std::any label = JSONObject();
    AddToObject(label, kLabel, std::uint64_t{channel.GetNumber()}, false);
    AppendToArray(channels, std::move(label));
  }
  AddToObject(object, kLayout, std::move(channels), false);
  return object;
}

}  // namespace moxcore::serialization
