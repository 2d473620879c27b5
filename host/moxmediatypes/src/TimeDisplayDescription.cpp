#include <moxcore/config/Localizer.h>
#include <moxmediatypes/TimeDisplay.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace moxmediatypes {

namespace {

struct Description {
  int code;
  std::string_view longText;
  std::string_view shortText;
};

constexpr std::array<Description, 17> kDescriptions = {{
    {TimeDisplay::kTimecode24, "$$$/moxmediatypes/TimeDisplay/Timecode24=Timecode 24 fps",
     "$$$/moxmediatypes/TimeDisplay/Short/Timecode24=24"},
    {TimeDisplay::kTimecode25, "$$$/moxmediatypes/TimeDisplay/Timecode25=Timecode 25 fps",
     "$$$/moxmediatypes/TimeDisplay/Short/Timecode25=25"},
    {TimeDisplay::kTimecode2997Drop,
     "$$$/moxmediatypes/TimeDisplay/Timecode2997Drop=Timecode 29.97 fps, Drop-Frame",
     "$$$/moxmediatypes/TimeDisplay/Short/Timecode2997Drop=29.97 DF#{comment} drop-frame"},
    {TimeDisplay::kTimecode2997NonDrop,
     "$$$/moxmediatypes/TimeDisplay/Timecode2997NonDrop=Timecode 29.97 fps, Non-Drop-Frame",
     "$$$/moxmediatypes/TimeDisplay/Short/Timecode2997NonDrop=29.97 NDF#{comment} non-drop-frame"},
    {TimeDisplay::kTimecode30, "$$$/moxmediatypes/TimeDisplay/Timecode30=Timecode 30 fps",
     "$$$/moxmediatypes/TimeDisplay/Short/Timecode30=30"},
    {TimeDisplay::kTimecode50, "$$$/moxmediatypes/TimeDisplay/Timecode50=Timecode 50 fps",
     "$$$/moxmediatypes/TimeDisplay/Short/Timecode50=50"},
    {TimeDisplay::kTimecode5994Drop,
     "$$$/moxmediatypes/TimeDisplay/Timecode5994Drop=Timecode 59.94 fps, Drop-Frame",
     "$$$/moxmediatypes/TimeDisplay/Short/Timecode5994Drop=59.94 DF#{comment} drop-frame"},
    {TimeDisplay::kTimecode5994NonDrop,
     "$$$/moxmediatypes/TimeDisplay/Timecode5994NonDrop=Timecode 59.94 fps, Non-Drop-Frame",
     "$$$/moxmediatypes/TimeDisplay/Short/Timecode5994NonDrop=59.94 NDF#{comment} non-drop-frame"},
    {TimeDisplay::kTimecode60, "$$$/moxmediatypes/TimeDisplay/Timecode60=Timecode 60 fps",
     "$$$/moxmediatypes/TimeDisplay/Short/Timecode60=60"},
    {TimeDisplay::kFrames, "$$$/moxmediatypes/TimeDisplay/Frames=Frames",
     "$$$/moxmediatypes/TimeDisplay/Short/Frames=Frames"},
    {TimeDisplay::kTimecode23976, "$$$/moxmediatypes/TimeDisplay/Timecode23976=Timecode 23.976 fps",
     "$$$/moxmediatypes/TimeDisplay/Short/Timecode23976=23.976"},
    {TimeDisplay::kFeetFrames16mm, "$$$/moxmediatypes/TimeDisplay/FeetFrames16mm=Feet + Frames, 16 mm",
     "$$$/moxmediatypes/TimeDisplay/Short/FeetFrames16mm=16 mm#{comment} feet and frames of film"},
    {TimeDisplay::kFeetFrames35mm, "$$$/moxmediatypes/TimeDisplay/FeetFrames35mm=Feet + Frames, 35 mm",
     "$$$/moxmediatypes/TimeDisplay/Short/FeetFrames35mm=35 mm#{comment} feet and frames of film"},
    {TimeDisplay::kTimecode48, "$$$/moxmediatypes/TimeDisplay/Timecode48=Timecode 48 fps",
     "$$$/moxmediatypes/TimeDisplay/Short/Timecode48=48"},
    {TimeDisplay::kAudioSamples, "$$$/moxmediatypes/TimeDisplay/AudioSamples=Audio Samples",
     "$$$/moxmediatypes/TimeDisplay/Short/AudioSamples=Samples"},
    {TimeDisplay::kMilliseconds, "$$$/moxmediatypes/TimeDisplay/Milliseconds=Milliseconds",
     "$$$/moxmediatypes/TimeDisplay/Short/Milliseconds=ms"},
    {TimeDisplay::kNone, "$$$/moxmediatypes/TimeDisplay/None=No Format",
     "$$$/moxmediatypes/TimeDisplay/Short/None=None#{comment} no time format"},
}};

constexpr Description kUnknown = {
    0, "$$$/moxmediatypes/TimeDisplay/Unknown=Unknown Format",
    "$$$/moxmediatypes/TimeDisplay/Short/Unknown=Unknown#{comment} time format"};

}  // namespace

moxcore::Utf16String TimeDisplayDescription(TimeDisplay display, bool longForm) {
  const auto* const found = std::ranges::find(kDescriptions, display.GetType(), &Description::code);
  const Description& description = found == kDescriptions.end() ? kUnknown : *found;
  return moxcore::config::Localizer::Get().GetUTF16String(longForm ? description.longText
                                                                   : description.shortText);
}

}  // namespace moxmediatypes
