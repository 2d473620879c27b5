#include <moxcore/config/Localizer.h>
#include <moxcore/string/NumberText.h>
#include <moxcore/string/TextOperations.h>
#include <moxmediatypes/AudioChannels.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace moxmediatypes {

namespace {

using moxcore::Utf8String;

struct Named {
  AudioChannelLabel label;
  std::string_view longText;
  std::string_view shortText;
};

constexpr std::array<Named, 31> kNamed = {{
    {AudioChannelLabel::kUnnamed,
     "$$$/moxmediatypes/AudioChannelLabel/Unnamed=Unnamed#{comment} a channel of sound that has no label",
     "-"},
    {AudioChannelLabel::kLeft, "$$$/moxmediatypes/AudioChannelLabel/Left=Left", "L"},
    {AudioChannelLabel::kRight, "$$$/moxmediatypes/AudioChannelLabel/Right=Right", "R"},
    {AudioChannelLabel::kCenter, "$$$/moxmediatypes/AudioChannelLabel/Center=Center", "C"},
    {AudioChannelLabel::kLowFrequency,
     "$$$/moxmediatypes/AudioChannelLabel/LowFrequency=Low-Frequency Effects", "LFE"},
    {AudioChannelLabel::kLeftSurround, "$$$/moxmediatypes/AudioChannelLabel/LeftSurround=Left Surround",
     "Ls"},
    {AudioChannelLabel::kRightSurround, "$$$/moxmediatypes/AudioChannelLabel/RightSurround=Right Surround",
     "Rs"},
    {AudioChannelLabel::kCenterSurround, "$$$/moxmediatypes/AudioChannelLabel/CenterSurround=Center Surround",
     "Cs"},
    {AudioChannelLabel::kLeftSideSurround,
     "$$$/moxmediatypes/AudioChannelLabel/LeftSideSurround=Left Side Surround", "Lss"},
    {AudioChannelLabel::kRightSideSurround,
     "$$$/moxmediatypes/AudioChannelLabel/RightSideSurround=Right Side Surround", "Rss"},
    {AudioChannelLabel::kLeftRearSurround,
     "$$$/moxmediatypes/AudioChannelLabel/LeftRearSurround=Left Rear Surround", "Lrs"},
    {AudioChannelLabel::kRightRearSurround,
     "$$$/moxmediatypes/AudioChannelLabel/RightRearSurround=Right Rear Surround", "Rrs"},
    {AudioChannelLabel::kLeftCenter, "$$$/moxmediatypes/AudioChannelLabel/LeftCenter=Left Center", "Lc"},
    {AudioChannelLabel::kRightCenter, "$$$/moxmediatypes/AudioChannelLabel/RightCenter=Right Center", "Rc"},
    {AudioChannelLabel::kLowFrequency2,
     "$$$/moxmediatypes/AudioChannelLabel/LowFrequency2=Low-Frequency Effects 2", "LFE2"},
    {AudioChannelLabel::kLeftWide, "$$$/moxmediatypes/AudioChannelLabel/LeftWide=Left Wide", "Lw"},
    {AudioChannelLabel::kRightWide, "$$$/moxmediatypes/AudioChannelLabel/RightWide=Right Wide", "Rw"},
    {AudioChannelLabel::kLeftTopFront, "$$$/moxmediatypes/AudioChannelLabel/LeftTopFront=Left Top Front",
     "Ltf"},
    {AudioChannelLabel::kCenterTopFront,
     "$$$/moxmediatypes/AudioChannelLabel/CenterTopFront=Center Top Front", "Ctf"},
    {AudioChannelLabel::kRightTopFront, "$$$/moxmediatypes/AudioChannelLabel/RightTopFront=Right Top Front",
     "Rtf"},
    {AudioChannelLabel::kLeftTopMiddle, "$$$/moxmediatypes/AudioChannelLabel/LeftTopMiddle=Left Top Middle",
     "Ltm"},
    {AudioChannelLabel::kTopCenter, "$$$/moxmediatypes/AudioChannelLabel/TopCenter=Top Center", "Tc"},
    {AudioChannelLabel::kRightTopMiddle,
     "$$$/moxmediatypes/AudioChannelLabel/RightTopMiddle=Right Top Middle", "Rtm"},
    {AudioChannelLabel::kLeftTopRear, "$$$/moxmediatypes/AudioChannelLabel/LeftTopRear=Left Top Rear", "Ltr"},
    {AudioChannelLabel::kCenterTopRear, "$$$/moxmediatypes/AudioChannelLabel/CenterTopRear=Center Top Rear",
     "Ctr"},
    {AudioChannelLabel::kRightTopRear, "$$$/moxmediatypes/AudioChannelLabel/RightTopRear=Right Top Rear",
     "Rtr"},
    {AudioChannelLabel::kLeftBottomFront,
     "$$$/moxmediatypes/AudioChannelLabel/LeftBottomFront=Left Bottom Front", "Lbf"},
    {AudioChannelLabel::kCenterBottomFront,
     "$$$/moxmediatypes/AudioChannelLabel/CenterBottomFront=Center Bottom Front", "Cbf"},
    {AudioChannelLabel::kRightBottomFront,
     "$$$/moxmediatypes/AudioChannelLabel/RightBottomFront=Right Bottom Front", "Rbf"},
    {AudioChannelLabel::kLeftTotal,
     "$$$/moxmediatypes/AudioChannelLabel/LeftTotal=Left Total#{comment} channel of a matrix-encoded pair",
     "Lt"},
    {AudioChannelLabel::kRightTotal,
     "$$$/moxmediatypes/AudioChannelLabel/RightTotal=Right Total#{comment} channel of a matrix-encoded pair",
     "Rt"},
}};

constexpr std::string_view kAmbisonic =
    "$$$/moxmediatypes/AudioChannelLabel/Ambisonic=Ambisonic Component @0#{comment} @0 is its number, from 0";
constexpr std::string_view kOther =
    "$$$/moxmediatypes/AudioChannelLabel/Other=Label @0#{comment} a label without a name; @0 is its number";

constexpr std::uint32_t Number(AudioChannelLabel label) {
  return static_cast<std::uint32_t>(label);
}

Utf8String Decimal(std::uint32_t number) {
  char digits[moxcore::string::kUInt32TextSize];
  return Utf8String(digits, moxcore::string::ConvertUInt32ToBufferT(number, digits));
}

Utf8String Numbered(std::string_view literal, std::uint32_t number) {
  auto text = moxcore::config::Localizer::Get().GetUTF8String(literal);
  moxcore::string::ReplaceInString(text, "@0", Decimal(number));
  return text;
}

}  // namespace

AudioChannelLayout CreateMonoChannelLayout() {
  return {AudioChannelLabel::kUnnamed};
}

AudioChannelLayout CreateStereoChannelLayout() {
  return {AudioChannelLabel::kLeft, AudioChannelLabel::kRight};
}

const std::set<AudioChannelDescription>& GetSupportedAudioChannelDescriptions() {
  static const std::set<AudioChannelDescription> kSupported = [] {
    std::set<AudioChannelDescription> all;
    for (const Named& named : kNamed) {
      all.insert(named.label);
    }
    for (auto i = Number(AudioChannelLabel::kAmbisonic0); i <= Number(AudioChannelLabel::kAmbisonic15); ++i) {
      all.insert(AudioChannelDescription(i));
    }
    return all;
  }();
  return kSupported;
}

Utf8String AudioChannelLabelDescription(AudioChannelLabel label, bool shortForm) {
  const auto* const named = std::ranges::find(kNamed, label, &Named::label);
  if (named != kNamed.end()) {
    return shortForm ? Utf8String(named->shortText)
                     : moxcore::config::Localizer::Get().GetUTF8String(named->longText);
  }
  if (label >= AudioChannelLabel::kAmbisonic0 && label <= AudioChannelLabel::kAmbisonic15) {
    const auto component = Number(label) - Number(AudioChannelLabel::kAmbisonic0);
    return shortForm ? "ACN " + Decimal(component) : Numbered(kAmbisonic, component);
  }
  return shortForm ? Decimal(Number(label)) : Numbered(kOther, Number(label));
}

}  // namespace moxmediatypes
