#include <moxmediatypes/WaveChannelMask.h>

#include <algorithm>
#include <array>
#include <vector>

namespace moxmediatypes {

namespace {

using Label = AudioChannelLabel;

constexpr int kNoPlace = -1;
constexpr int kBackLeft = 4;
constexpr int kBackRight = 5;
constexpr int kSideLeft = 9;
constexpr int kSideRight = 10;

// By their bits, as they are called where a file has both back and side channels.
constexpr std::array<Label, kWavePlaceCount> kLabels = {Label::kLeft,
                                                        Label::kRight,
                                                        Label::kCenter,
                                                        Label::kLowFrequency,
                                                        Label::kLeftRearSurround,
                                                        Label::kRightRearSurround,
                                                        Label::kLeftCenter,
                                                        Label::kRightCenter,
                                                        Label::kCenterSurround,
                                                        Label::kLeftSideSurround,
                                                        Label::kRightSideSurround,
                                                        Label::kTopCenter,
                                                        Label::kLeftTopFront,
                                                        Label::kCenterTopFront,
                                                        Label::kRightTopFront,
                                                        Label::kLeftTopRear,
                                                        Label::kCenterTopRear,
                                                        Label::kRightTopRear};

bool Has(const AudioChannelLayout& layout, Label label) {
  return std::ranges::find(layout, AudioChannelDescription(label)) != layout.end();
}

int PlaceOf(Label label, bool hasRear) {
  if (label == Label::kLeftSurround) {
    return hasRear ? kSideLeft : kBackLeft;
  }
  if (label == Label::kRightSurround) {
    return hasRear ? kSideRight : kBackRight;
  }
  const auto* const found = std::ranges::find(kLabels, label);
  return found == kLabels.end() ? kNoPlace : static_cast<int>(found - kLabels.begin());
}

WaveMaskResult Failed(WaveMaskFault fault, std::size_t channel, std::size_t earlier = 0) {
  return {.mask = 0, .fault = fault, .channel = channel, .earlier = earlier};
}

}  // namespace

WaveMaskResult GetWaveChannelMask(const AudioChannelLayout& layout) {
  const auto isUnnamed = [](AudioChannelDescription channel) {
    return channel.GetLabel() == Label::kUnnamed;
  };
  if (std::ranges::all_of(layout, isUnnamed)) {
    return {};
  }
  const bool hasRear = Has(layout, Label::kLeftRearSurround) || Has(layout, Label::kRightRearSurround);
  WaveMaskResult result;
  std::vector<int> places;
  for (std::size_t channel = 0; channel < layout.size(); ++channel) {
    if (isUnnamed(layout[channel])) {
      return Failed(WaveMaskFault::kUnnamed, channel);
    }
    const int place = PlaceOf(layout[channel].GetLabel(), hasRear);
    if (place == kNoPlace) {
      return Failed(WaveMaskFault::kNoPlace, channel);
    }
    if (const auto before = std::ranges::find(places, place); before != places.end()) {
      return Failed(WaveMaskFault::kTwice, channel, static_cast<std::size_t>(before - places.begin()));
    }
    if (!places.empty() && place < places.back()) {
      return Failed(WaveMaskFault::kOrder, channel, channel - 1);
    }
    places.push_back(place);
    result.mask |= std::uint32_t{1} << place;
  }
  return result;
}

const std::set<AudioChannelDescription>& GetWaveChannelDescriptions() {
  static const std::set<AudioChannelDescription> kDescriptions = [] {
    std::set<AudioChannelDescription> all(kLabels.begin(), kLabels.end());
    all.insert(Label::kLeftSurround);
    all.insert(Label::kRightSurround);
    return all;
  }();
  return kDescriptions;
}

AudioChannelLayout GetLayoutOfWavePlaces(std::span<const int> places) {
  const auto has = [places](int left, int right) {
    return std::ranges::find(places, left) != places.end() ||
           std::ranges::find(places, right) != places.end();
  };
  const bool hasBoth = has(kBackLeft, kBackRight) && has(kSideLeft, kSideRight);
  AudioChannelLayout layout;
  for (const int place : places) {
    if (place < 0 || place >= kWavePlaceCount) {
      layout.emplace_back(Label::kUnnamed);
    } else if (!hasBoth && (place == kBackLeft || place == kSideLeft)) {
      layout.emplace_back(Label::kLeftSurround);
    } else if (!hasBoth && (place == kBackRight || place == kSideRight)) {
      layout.emplace_back(Label::kRightSurround);
    } else {
      layout.emplace_back(kLabels[static_cast<std::size_t>(place)]);
    }
  }
  return layout;
}

AudioChannelLayout GetLayoutOfWaveMask(std::uint32_t mask, std::size_t channelCount) {
  std::vector<int> places;
  for (int bit = 0; bit < 32 && places.size() < channelCount; ++bit) {
    if ((mask >> bit & 1) != 0) {
      places.push_back(bit);
    }
  }
  places.resize(channelCount, kNoPlace);
  return GetLayoutOfWavePlaces(places);
}

}  // namespace moxmediatypes
