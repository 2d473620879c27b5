#include "audio/ChannelNames.h"

#include "audio/AudioSession.h"
#include "channels/LayoutTexts.h"
#include "program/Localized.h"

#include <moxmediatypes/WaveChannelMask.h>

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace playground {
namespace {

struct Speaker {
  std::string_view name;
  std::string_view shortName;
};

constexpr Speaker kMono{"$$$/playground/channel/mono=Mono", "$$$/playground/channel/short/mono=M"};
constexpr Speaker kLeft{"$$$/playground/channel/left=Left", "$$$/playground/channel/short/left=L"};
constexpr Speaker kRight{"$$$/playground/channel/right=Right", "$$$/playground/channel/short/right=R"};
constexpr Speaker kCentre{"$$$/playground/channel/centre=Centre", "$$$/playground/channel/short/centre=C"};
constexpr Speaker kLowFrequency{"$$$/playground/channel/lowFrequency=Low frequency",
                                "$$$/playground/channel/short/lowFrequency=LFE"};
constexpr Speaker kLeftSurround{"$$$/playground/channel/leftSurround=Left surround",
                                "$$$/playground/channel/short/leftSurround=Ls"};
constexpr Speaker kRightSurround{"$$$/playground/channel/rightSurround=Right surround",
                                 "$$$/playground/channel/short/rightSurround=Rs"};
constexpr Speaker kLeftBack{"$$$/playground/channel/leftBack=Left back",
                            "$$$/playground/channel/short/leftBack=Lb"};
constexpr Speaker kRightBack{"$$$/playground/channel/rightBack=Right back",
                             "$$$/playground/channel/short/rightBack=Rb"};

constexpr std::array<Speaker, 1> kOne{kMono};
constexpr std::array<Speaker, 2> kTwo{kLeft, kRight};
constexpr std::array<Speaker, 3> kThree{kLeft, kRight, kCentre};
constexpr std::array<Speaker, 4> kFour{kLeft, kRight, kLeftBack, kRightBack};
constexpr std::array<Speaker, 5> kFive{kLeft, kRight, kCentre, kLeftSurround, kRightSurround};
constexpr std::array<Speaker, 6> kSix{kLeft, kRight, kCentre, kLowFrequency, kLeftSurround, kRightSurround};
constexpr std::array<Speaker, 8> kEight{kLeft,     kRight,     kCentre,       kLowFrequency,
                                        kLeftBack, kRightBack, kLeftSurround, kRightSurround};

std::span<Speaker const> SpeakersOf(std::size_t channelCount) {
  switch (channelCount) {
    case 1:
      return kOne;
    case 2:
      return kTwo;
    case 3:
      return kThree;
    case 4:
      return kFour;
    case 5:
      return kFive;
    case 6:
      return kSix;
    case 8:
      return kEight;
    default:
      return {};
  }
}

// The places of the same speakers in the mask of a WAV file; 0 where there are none.
std::uint32_t MaskOf(std::size_t channelCount) {
  constexpr std::array<std::uint32_t, 9> kMasks{0, 0, 0x3, 0x7, 0x33, 0x37, 0x3F, 0, 0x63F};
  return channelCount < kMasks.size() ? kMasks[channelCount] : 0;
}

}  // namespace

std::string ChannelName(std::size_t channel, std::size_t channelCount) {
  auto const speakers = SpeakersOf(channelCount);
  return channel < speakers.size()
             ? Text(speakers[channel].name)
             : Text("$$$/playground/channel/numbered=Channel @0", {std::to_string(channel + 1)});
}

std::string ShortChannelName(std::size_t channel, std::size_t channelCount) {
  auto const speakers = SpeakersOf(channelCount);
  return channel < speakers.size() ? Text(speakers[channel].shortName) : std::to_string(channel + 1);
}

std::string ChannelName(AudioSession const& session, std::size_t channel) {
  auto const layout = session.Layout();
  return channel < layout.size() ? ChannelText(layout, channel)
                                 : ChannelName(channel, session.Current().ChannelCount());
}

std::string ShortChannelName(AudioSession const& session, std::size_t channel) {
  auto const layout = session.Layout();
  return channel < layout.size() ? ShortChannelText(layout, channel)
                                 : ShortChannelName(channel, session.Current().ChannelCount());
}

moxmediatypes::AudioChannelLayout CustomaryLayout(std::size_t channelCount) {
  return moxmediatypes::GetLayoutOfWaveMask(MaskOf(channelCount), channelCount);
}

moxmediatypes::AudioChannelLayout LayoutOfSound(AudioSession const& session) {
  auto layout = session.Layout();
  return layout.empty() ? CustomaryLayout(session.Current().ChannelCount()) : layout;
}

}  // namespace playground
