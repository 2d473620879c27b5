#include "audio/AudioProperties.h"

#include "audio/AudioSession.h"
#include "audio/ChannelNames.h"
#include "program/Localized.h"
#include "program/NumberText.h"
#include "properties/PropertyMaker.h"

#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>

namespace playground {
namespace {

using moxui::ColorRGBA;

constexpr char const* kColorWithoutSound = "control";

// Makes properties over the settings of one session.
class Maker : public PropertyMaker<WaveformSettings> {
 public:
  Maker(AudioSession& session, ThemeChoice theme)
      : PropertyMaker([&session]() -> WaveformSettings const& { return session.Settings(); },
                      [&session](std::function<void(WaveformSettings&)> const& change) {
                        session.ChangeSettings(change);
                      }),
        mSession(session),
        mTheme(theme) {}

  using PropertyMaker::Number;
  Property Number(std::string id, std::string label, double low, double high, double step,
                  // NOLINTNEXTLINE(performance-unnecessary-value-param): kept by the row
                  double WaveformSettings::*field, int decimals, std::string unit) const {
    NumberProperty number;
    number.low = low;
    number.high = high;
    number.step = step;
    number.format = [decimals, unit](double value) { return TextFromNumber(value, decimals) + unit; };
    number.parse = [unit](std::string const& text) { return NumberFromText(WithoutUnit(text, unit)); };
    return Number(std::move(id), std::move(label), field, std::move(number));
  }

  // The zoom goes by powers of two along its slider.
  Property Zoom() const {
    NumberProperty number;
    number.low = std::log2(kSmallestZoom);
    number.high = std::log2(kLargestZoom);
    number.step = 0.25;
    number.get = [&session = mSession] { return std::log2(session.Settings().zoom); };
    number.set = [&session = mSession](double value) {
      session.ChangeSettings([value](WaveformSettings& settings) { settings.zoom = std::exp2(value); });
    };
    number.format = [](double value) { return TextFromNumber(std::exp2(value), 2) + "\u00D7"; };
    number.parse = [](std::string const& text) -> std::optional<double> {
      auto const zoom = NumberFromText(WithoutUnit(text, "\u00D7"));
      return zoom && *zoom > 0.0 ? std::optional(std::log2(*zoom)) : std::nullopt;
    };
    return {"zoom", Text("$$$/playground/audio/zoom=Zoom"), std::move(number)};
  }

  // A sample position of a fade, in seconds along the slider.
  Property Position(std::string id, std::string label, std::int64_t WaveformSettings::*field) const {
    AudioDocument const& document = mSession.Current();
    double const rate = std::max(document.SampleRate(), 1);
    NumberProperty number;
    number.low = 0.0;
    number.high = mSession.HasSound() ? std::max(document.Duration(), 1.0 / rate) : 1.0;
    number.step = number.high / 100.0;
    number.get = [&session = mSession, field, rate] {
      return static_cast<double>(session.Settings().*field) / rate;
    };
    number.set = [&session = mSession, field, rate](double seconds) {
      auto const sample = static_cast<std::int64_t>(std::llround(seconds * rate));
      session.ChangeSettings([field, sample](WaveformSettings& settings) { settings.*field = sample; });
    };
    number.format = [](double seconds) { return TextFromNumber(seconds, 3) + " s"; };
    number.parse = [](std::string const& text) { return NumberFromText(WithoutUnit(text, "s")); };
    return {std::move(id), std::move(label), std::move(number)};
  }

  Property Color(std::string id, std::string label, WaveformColor place) const {
    auto const index = static_cast<std::size_t>(place);
    return {std::move(id), std::move(label),
            ColorProperty{
                .get = [&session = mSession, place,
                        theme = mTheme] { return ColorOf(session.Settings(), PaletteOf(theme), place); },
                .followsTheme = [&session = mSession, index] { return !session.Settings().colors[index]; },
                .set =
                    [&session = mSession, index](std::optional<ColorRGBA> color) {
                      session.ChangeSettings(
                          [index, color](WaveformSettings& settings) { settings.colors[index] = color; });
                    }}};
  }

  Property ChannelToggle(std::size_t channel, std::string label) const {
    return {
        "channel" + std::to_string(channel + 1) + "Enabled", std::move(label),
        ToggleProperty{.get = [&session = mSession, channel] { return session.IsChannelEnabled(channel); },
                       .set =
                           [&session = mSession, channel](bool on) {
                             if (session.IsChannelEnabled(channel) != on) {
                               session.ToggleChannel(channel);
                             }
                           }}};
  }

  // A colour of all channels together; `shown` is what is in force.
  Property WaveColor(std::string id, std::string label, std::optional<ColorRGBA> WaveformSettings::*field,
                     ColorRGBA (*shown)(WaveformSettings const&, WaveformPalette const&, std::size_t)) const {
    return {
        std::move(id), std::move(label),
        ColorProperty{.get = [&session = mSession, shown,
                              theme = mTheme] { return shown(session.Settings(), PaletteOf(theme), 0); },
                      .followsTheme = [&session = mSession, field] { return !(session.Settings().*field); },
                      .set =
                          [&session = mSession, field](std::optional<ColorRGBA> color) {
                            session.ChangeSettings(
                                [field, color](WaveformSettings& settings) { settings.*field = color; });
                          }}};
  }

  // A colour of one channel.
  Property ChannelColor(std::string id, std::string label, std::size_t channel,
                        std::vector<std::optional<ColorRGBA>> WaveformSettings::*field,
                        ColorRGBA (*shown)(WaveformSettings const&, WaveformPalette const&,
                                           std::size_t)) const {
    return {std::move(id), std::move(label),
            ColorProperty{
                .get = [&session = mSession, channel, shown,
                        theme = mTheme] { return shown(session.Settings(), PaletteOf(theme), channel); },
                .followsTheme =
                    [&session = mSession, channel, field] {
                      auto const& colors = session.Settings().*field;
                      return channel >= colors.size() || !colors[channel];
                    },
                .set =
                    [&session = mSession, channel, field](std::optional<ColorRGBA> color) {
                      session.ChangeSettings([channel, field, color](WaveformSettings& settings) {
                        if (channel < (settings.*field).size()) {
                          (settings.*field)[channel] = color;
                        }
                      });
                    }}};
  }

  Property Action(std::string id, std::string label, std::function<void(AudioSession&)> run) const {
    return {std::move(id), std::move(label),
            ActionProperty{.run = [&session = mSession, run = std::move(run)] { run(session); }}};
  }

  // The property, disabled while the condition doesn't hold.
  Property When(bool (*condition)(AudioSession const&), Property property) const {
    property.isEnabled = [&session = mSession, condition] { return condition(session); };
    return property;
  }

 private:
  static std::string_view WithoutUnit(std::string_view text, std::string_view unit) {
    auto const trim = [&text] {
      text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
      text = text.substr(0, text.find_last_not_of(' ') + 1);
    };
    trim();
    auto const first = unit.find_first_not_of(' ');
    if (first != std::string_view::npos && text.ends_with(unit.substr(first))) {
      text.remove_suffix(unit.size() - first);
      trim();
    }
    return text;
  }

  AudioSession& mSession;
  ThemeChoice mTheme;
};

bool DrawsSamples(AudioSession const& session) {
  return session.DrawsSamples();
}
bool DrawsPeaks(AudioSession const& session) {
  return session.HasSound() && !session.DrawsSamples();
}
bool DrawsRms(AudioSession const& session) {
  auto const& pyramid = session.Current().Pyramid();
  return DrawsPeaks(session) && !session.Settings().layered && (!pyramid || pyramid->GetFormat().hasRms);
}
bool HasSelection(AudioSession const& session) {
  return !session.Selection().IsEmpty();
}
bool SharesColor(AudioSession const& session) {
  return !session.Settings().coloredChannels;
}
bool HasChannelColors(AudioSession const& session) {
  return session.Settings().coloredChannels;
}
bool ChoosesSelectedColors(AudioSession const& session) {
  return HasSelection(session) && !session.Settings().deriveSelectionColors;
}
bool SharesSelectedColor(AudioSession const& session) {
  return SharesColor(session) && ChoosesSelectedColors(session);
}
bool HasSelectedChannelColors(AudioSession const& session) {
  return HasChannelColors(session) && ChoosesSelectedColors(session);
}
bool HasFade(AudioSession const& session) {
  return session.Settings().fadeDirection != FadeDirection::kNone;
}
// Peaks fade in from the view's left edge and out to its right edge, whatever the other end of the fade.
bool FadeHasStart(AudioSession const& session) {
  return HasFade(session) &&
         (session.Settings().fadeDirection == FadeDirection::kOut || session.DrawsSamples());
}
bool FadeHasEnd(AudioSession const& session) {
  return HasFade(session) &&
         (session.Settings().fadeDirection == FadeDirection::kIn || session.DrawsSamples());
}
bool HasTimeGrid(AudioSession const& session) {
  return session.Settings().timeGrid;
}
bool IsLayered(AudioSession const& session) {
  return session.Settings().layered;
}
bool IsNotLayered(AudioSession const& session) {
  return !session.Settings().layered;
}
bool HasNoSound(AudioSession const& session) {
  return !session.HasSound();
}

PropertyGroup Wave(Maker const& make) {
  return {
      Text("$$$/playground/audio/group/wave=Waveform"),
      {make.When(DrawsPeaks,
                 make.Choice("peakStyle", Text("$$$/playground/audio/peakStyle=Peaks"),
                             &WaveformSettings::peakStyle,
                             {PeakStyle::kBipolar, PeakStyle::kRectified, PeakStyle::kRectifiedFromZero},
                             {Text("$$$/playground/audio/peakStyle/bipolar=Around the centre"),
                              Text("$$$/playground/audio/peakStyle/rectified=Rectified"),
                              Text("$$$/playground/audio/peakStyle/rectifiedFromZero=Rectified from zero")})),
       make.Choice("detail", Text("$$$/playground/audio/detail=Drawn from"), &WaveformSettings::detail,
                   {DetailChoice::kAutomatic, DetailChoice::kPeaks, DetailChoice::kSamples},
                   {Text("$$$/playground/audio/detail/automatic=As the zoom asks"),
                    Text("$$$/playground/audio/detail/peaks=Peaks"),
                    Text("$$$/playground/audio/detail/samples=Samples")}),
       make.Toggle("squareRoot", Text("$$$/playground/audio/squareRoot=Square root scaling"),
                   &WaveformSettings::squareRoot),
       make.When(DrawsRms, make.Toggle("rms", Text("$$$/playground/audio/rms=RMS within the peaks"),
                                       &WaveformSettings::rms)),
       make.Toggle("clipMarks", Text("$$$/playground/audio/clipMarks=Marks where it clips"),
                   &WaveformSettings::clipMarks),
       make.When(DrawsSamples,
                 make.Toggle("sampleDots", Text("$$$/playground/audio/sampleDots=Dots on samples"),
                             &WaveformSettings::sampleDots)),
       make.Toggle("layered", Text("$$$/playground/audio/layered=Channels in one layer"),
                   &WaveformSettings::layered),
       make.When(IsLayered,
                 make.Choice("layerStyle", Text("$$$/playground/audio/layerStyle=Layers"),
                             &WaveformSettings::firstLayerStrong, {false, true},
                             {Text("$$$/playground/audio/layerStyle/alike=All alike"),
                              Text("$$$/playground/audio/layerStyle/firstStrong=First one strong")})),
       make.Choice("alignment", Text("$$$/playground/audio/alignment=Spare rows"),
                   &WaveformSettings::alignBottom, {false, true},
                   {Text("$$$/playground/audio/alignment/below=Below the channels"),
                    Text("$$$/playground/audio/alignment/above=Above the channels")}),
       make.Choice("drawScale", Text("$$$/playground/audio/drawScale=Scale"), &WaveformSettings::drawScale,
                   {std::nullopt, 1.0, 1.5, 2.0, 3.0},
                   {Text("$$$/playground/audio/drawScale/screen=As the screen"), "1", "1.5", "2", "3"})}};
}

PropertyGroup Level(Maker const& make) {
  return {Text("$$$/playground/audio/group/level=Level"),
          {make.Zoom(),
           make.Number("gain", Text("$$$/playground/audio/gain=Gain"), -kLargestGainDecibel,
                       kLargestGainDecibel, 1.0, &WaveformSettings::gainDecibel, 1, " dB"),
           // Worked before there is a selection as well: it is about the next one then.
           make.Toggle("gainWholeRange",
                       Text("$$$/playground/audio/gainWholeRange=Gain outside the selection too"),
                       &WaveformSettings::gainWholeRange)}};
}

PropertyGroup Fade(Maker const& make) {
  return {
      Text("$$$/playground/audio/group/fade=Fade"),
      {make.Choice(
           "fadeType", Text("$$$/playground/audio/fadeType=Direction"), &WaveformSettings::fadeDirection,
           {FadeDirection::kNone, FadeDirection::kIn, FadeDirection::kOut},
           {Text("$$$/playground/audio/fadeType/none=None"), Text("$$$/playground/audio/fadeType/in=Fade in"),
            Text("$$$/playground/audio/fadeType/out=Fade out")}),
       make.When(HasFade,
                 make.Choice("fadeFamily", Text("$$$/playground/audio/fadeFamily=Curve"),
                             &WaveformSettings::fadeFamily, {FadeFamily::kExponential, FadeFamily::kCosine},
                             {Text("$$$/playground/audio/fadeFamily/exponential=Exponential"),
                              Text("$$$/playground/audio/fadeFamily/cosine=Raised cosine")})),
       make.When(HasFade, make.Number("fadeAmount", Text("$$$/playground/audio/fadeAmount=Amount"),
                                      -kLargestFadeAmount, kLargestFadeAmount, 0.5,
                                      &WaveformSettings::fadeAmount, 2, "")),
       make.When(FadeHasStart, make.Position("fadeStart", Text("$$$/playground/audio/fadeStart=Start"),
                                             &WaveformSettings::fadeStart)),
       make.When(FadeHasEnd, make.Position("fadeEnd", Text("$$$/playground/audio/fadeEnd=End"),
                                           &WaveformSettings::fadeEnd)),
       make.When(HasSelection,
                 make.Action("fadeFromSelection",
                             Text("$$$/playground/audio/fadeFromSelection=Fade over the selection"),
                             [](AudioSession& session) {
                               SampleSelection const selection = session.Selection();
                               if (selection.IsEmpty()) {
                                 return;
                               }
                               session.ChangeSettings([&selection](WaveformSettings& settings) {
                                 settings.fadeStart = selection.Left();
                                 settings.fadeEnd = selection.Left() + selection.Width();
                                 if (settings.fadeDirection == FadeDirection::kNone) {
                                   settings.fadeDirection = FadeDirection::kIn;
                                 }
                               });
                             }))}};
}

PropertyGroup Lines(Maker const& make) {
  auto const pixels = [](int count) {
    return Text("$$$/playground/audio/pixels=@0 pixels", {std::to_string(count)});
  };
  return {
      Text("$$$/playground/audio/group/lines=Lines"),
      {make.Toggle("centerlines", Text("$$$/playground/audio/centerlines=Centre lines"),
                   &WaveformSettings::centerlines),
       make.When(IsNotLayered, make.Toggle("dividers", Text("$$$/playground/audio/dividers=Dividers"),
                                           &WaveformSettings::dividers)),
       make.Choice("rulerUnit", Text("$$$/playground/audio/rulerUnit=Ruler"), &WaveformSettings::rulerUnit,
                   {RulerUnit::kTime, RulerUnit::kSamples},
                   {Text("$$$/playground/audio/rulerUnit/time=Time"),
                    Text("$$$/playground/audio/rulerUnit/samples=Samples")}),
       make.Toggle("timeGrid", Text("$$$/playground/audio/timeGrid=Time grid"), &WaveformSettings::timeGrid),
       make.When(HasTimeGrid,
                 make.Choice("timeGridSpacing", Text("$$$/playground/audio/timeGridSpacing=Time spacing"),
                             &WaveformSettings::timeGridSpacing, {0, 10, 25, 50, 100},
                             {Text("$$$/playground/audio/timeGridSpacing/ruler=As the ruler"), pixels(10),
                              pixels(25), pixels(50), pixels(100)})),
       make.Choice("amplitudeGrid", Text("$$$/playground/audio/amplitudeGrid=Level grid"),
                   &WaveformSettings::amplitudeDivisions, {0, kDecibelGrid, 1, 3, 7},
                   {Text("$$$/playground/audio/amplitudeGrid/none=None"),
                    Text("$$$/playground/audio/amplitudeGrid/decibels=Decibels"),
                    Text("$$$/playground/audio/amplitudeGrid/halves=Halves"),
                    Text("$$$/playground/audio/amplitudeGrid/quarters=Quarters"),
                    Text("$$$/playground/audio/amplitudeGrid/eighths=Eighths")})}};
}

PropertyGroup Colors(Maker const& make) {
  return {
      Text("$$$/playground/audio/group/colors=Colours"),
      {make.Color("background", Text("$$$/playground/audio/color/background=Background"),
                  WaveformColor::kBackground),
       make.Color("selectionBackground", Text("$$$/playground/audio/color/selection=Selection"),
                  WaveformColor::kSelectionBackground),
       make.Color("centerline", Text("$$$/playground/audio/color/centerline=Centre line"),
                  WaveformColor::kCenterline),
       make.Color("gridline", Text("$$$/playground/audio/color/gridline=Grid"), WaveformColor::kGridline),
       make.Color("divider", Text("$$$/playground/audio/color/divider=Divider"), WaveformColor::kDivider),
       make.When(HasNoSound,
                 make.Color(kColorWithoutSound, Text("$$$/playground/audio/color/control=Without a sound"),
                            WaveformColor::kControl)),
       make.When(HasSelection,
                 make.Toggle("deriveSelectionColors",
                             Text("$$$/playground/audio/deriveSelectionColors=Derive waves in the selection"),
                             &WaveformSettings::deriveSelectionColors))}};
}

PropertyGroup Channels(Maker const& make, AudioSession const& session) {
  PropertyGroup group{
      Text("$$$/playground/audio/group/channels=Channels"),
      {make.Toggle("coloredChannels", Text("$$$/playground/audio/coloredChannels=A colour for each channel"),
                   &WaveformSettings::coloredChannels),
       make.When(SharesColor, make.WaveColor("waveColor", Text("$$$/playground/audio/waveColor=All channels"),
                                             &WaveformSettings::waveColor, ChannelColorOf)),
       make.When(SharesSelectedColor,
                 make.WaveColor("selectedWaveColor", Text("$$$/playground/audio/selectedWaveColor=Selected"),
                                &WaveformSettings::selectedWaveColor, SelectedChannelColorOf))}};
  // Thousands of rows would be no panel; the gutter beside the waveform has switches and colours for all.
  constexpr std::size_t kMostChannels = 32;
  for (std::size_t channel = 0; channel < std::min(session.Current().ChannelCount(), kMostChannels);
       ++channel) {
    std::string const name = ChannelName(session, channel);
    std::string const id = "channel" + std::to_string(channel + 1);
    group.properties.push_back(make.ChannelToggle(channel, name));
    group.properties.push_back(
        make.When(HasChannelColors,
                  make.ChannelColor(id + "Color", Text("$$$/playground/audio/channelColor=@0 colour", {name}),
                                    channel, &WaveformSettings::channelColors, ChannelColorOf)));
    group.properties.push_back(make.When(
        HasSelectedChannelColors,
        make.ChannelColor(id + "SelectedColor",
                          Text("$$$/playground/audio/selectedChannelColor=@0 selected", {name}), channel,
                          &WaveformSettings::selectedChannelColors, SelectedChannelColorOf)));
  }
  return group;
}

}  // namespace

std::vector<PropertyGroup> AudioProperties(AudioSession& session, ThemeChoice theme) {
  Maker const make(session, theme);
  std::vector<PropertyGroup> groups{Wave(make),  Level(make),  Fade(make),
                                    Lines(make), Colors(make), Channels(make, session)};
  // Without a sound only the colour that stands for that shows.
  for (PropertyGroup& group : groups) {
    for (Property& property : group.properties) {
      if (property.id != kColorWithoutSound) {
        property.isEnabled = [&session, inner = property.isEnabled] {
          return session.HasSound() && (!inner || inner());
        };
      }
    }
  }
  return groups;
}

}  // namespace playground
