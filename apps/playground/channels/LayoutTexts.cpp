#include "channels/LayoutTexts.h"

#include "program/Localized.h"

namespace playground {
namespace {

using moxappsupport::presets::SkipReason;
using moxmediatypes::AudioChannelLabel;
using moxmediatypes::AudioChannelLabelDescription;
using moxmediatypes::AudioChannelLayout;

std::string Joined(AudioChannelLayout const& layout, std::string const& separator,
                   std::string (*text)(AudioChannelLayout const&, std::size_t)) {
  std::string joined;
  for (std::size_t channel = 0; channel < layout.size(); ++channel) {
    joined += (channel == 0 ? std::string() : separator) + text(layout, channel);
  }
  return joined;
}

std::string ReasonText(SkipReason reason) {
  switch (reason) {
    case SkipReason::kGone:
      return Text("$$$/playground/channels/skipped/gone=It vanished while the folder was read.");
    case SkipReason::kUnreadable:
      return Text("$$$/playground/channels/skipped/unreadable=It can't be read.");
    case SkipReason::kTooLong:
      return Text("$$$/playground/channels/skipped/tooLong=It is too long for a preset.");
    case SkipReason::kNoGuid:
      return Text("$$$/playground/channels/skipped/noGuid=It has no GUID.");
    case SkipReason::kMalformed:
      break;
  }
  return Text("$$$/playground/channels/skipped/malformed=It holds no channel layout.");
}

}  // namespace

std::string ChannelText(AudioChannelLayout const& layout, std::size_t channel) {
  AudioChannelLabel const label = layout[channel].GetLabel();
  return label == AudioChannelLabel::kUnnamed
             ? Text("$$$/playground/channel/numbered=Channel @0", {std::to_string(channel + 1)})
             : std::string(AudioChannelLabelDescription(label, false));
}

std::string ShortChannelText(AudioChannelLayout const& layout, std::size_t channel) {
  AudioChannelLabel const label = layout[channel].GetLabel();
  return label == AudioChannelLabel::kUnnamed ? std::to_string(channel + 1)
                                              : std::string(AudioChannelLabelDescription(label, true));
}

std::string LayoutText(AudioChannelLayout const& layout) {
  return Joined(layout, ", ", ChannelText);
}

std::string ShortLayoutText(AudioChannelLayout const& layout) {
  return Joined(layout, "  ", ShortChannelText);
}

std::string ChannelCountText(std::size_t count) {
  return count == 1 ? Text("$$$/playground/audio/oneChannel=1 channel")
                    : Text("$$$/playground/audio/channels=@0 channels", {std::to_string(count)});
}

std::string WaveFaultText(AudioChannelLayout const& layout, moxmediatypes::WaveMaskResult const& result) {
  using moxmediatypes::WaveMaskFault;
  std::string const number = std::to_string(result.channel + 1);
  std::string const earlier = std::to_string(result.earlier + 1);
  switch (result.fault) {
    case WaveMaskFault::kUnnamed:
      return Text("$$$/playground/channels/fault/unnamed=Channel @0 has no label while others have.",
                  {number});
    case WaveMaskFault::kNoPlace:
      return Text("$$$/playground/channels/fault/noPlace=A WAV file has no place for @1 (channel @0).",
                  {number, ChannelText(layout, result.channel)});
    case WaveMaskFault::kTwice:
      return Text(
          "$$$/playground/channels/fault/twice=In a WAV file @1 (channel @0) and @3 (channel @2) have the "
          "same place.",
          {number, ChannelText(layout, result.channel), earlier, ChannelText(layout, result.earlier)});
    case WaveMaskFault::kOrder:
      return Text(
          "$$$/playground/channels/fault/order=A WAV file keeps @1 (channel @0) before @3 (channel @2).",
          {number, ChannelText(layout, result.channel), earlier, ChannelText(layout, result.earlier)});
    case WaveMaskFault::kNone:
      break;
  }
  return {};
}

std::string SkippedFileText(moxappsupport::presets::SkippedFile const& skipped) {
  return Text("$$$/playground/channels/skipped/file=@0: @1",
              {std::string(skipped.file.GetName()), ReasonText(skipped.reason)});
}

}  // namespace playground
