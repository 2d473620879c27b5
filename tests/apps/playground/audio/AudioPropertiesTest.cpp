#include "audio/AudioProperties.h"
#include "audio/WaveformView.h"
#include "playground/MadeUpSound.h"
#include "playground/StagedProgram.h"
#include "program/HexColor.h"
#include "program/Localized.h"
#include "properties/ColorField.h"
#include "properties/PropertyPanel.h"
#include "properties/PropertyRow.h"

#include <moxaudiotoolkit/peaks/PeakBuilder.h>
#include <moxmediaui/WaveformDraw.h>
#include <moxui/controls/UI_Checkbox.h>
#include <moxui/controls/UI_Slider.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/ui/UI_Container.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <variant>

namespace playground {
namespace {

using moxui::platform::Pixels;
using moxui::ui::KeyboardCode;

// The page's states, by their numbers.
enum State { kWhole, kSelection, kSamples, kLayers, kFade, kNoSound };

// The picture of the waveform alone: what stands around it would change with any value.
Pixels PictureOfWaveform(StagedProgram& program) {
  Pixels const all = program.Picture();
  auto const& waveform = program.Audio().Waveform();
  moxui::RectT<int> const rect(waveform.UI_ConvertRectTo(nullptr, waveform.UI_GetLocalRectF(false)));
  Pixels part{rect.width, rect.height, {}};
  for (int y = rect.top; y < rect.Bottom(); ++y) {
    auto const row = all.bytes.begin() + (static_cast<std::ptrdiff_t>(y) * all.width + rect.left) * 4;
    part.bytes.insert(part.bytes.end(), row, row + static_cast<std::ptrdiff_t>(rect.width) * 4);
  }
  return part;
}

// Tries values of a property until the picture changes; false if none does it.
struct Changer {
  std::function<bool()> changed;

  bool operator()(ToggleProperty const& toggle) const {
    toggle.set(!toggle.get());
    return changed();
  }
  bool operator()(ChoiceProperty const& choice) const {
    for (int item = 0; item < static_cast<int>(choice.items.size()); ++item) {
      choice.set(item);
      if (changed()) {
        return true;
      }
    }
    return false;
  }
  bool operator()(NumberProperty const& number) const {
    for (double const share : {0.2, 0.55, 0.9}) {
      number.set(number.low + (number.high - number.low) * share);
      if (changed()) {
        return true;
      }
    }
    return false;
  }
  bool operator()(ColorProperty const& color) const {
    color.set(ColorOfNumber(0xFF00FF));
    return changed();
  }
  bool operator()(ActionProperty const& action) const {
    action.run();
    return changed();
  }
};

Property FindProperty(AudioSession& session, std::string_view id) {
  for (PropertyGroup const& group : AudioProperties(session, ThemeChoice::kDark)) {
    for (Property const& property : group.properties) {
      if (property.id == id) {
        return property;
      }
    }
  }
  return {};
}

// A state in which a property can be worked; what some need besides.
void Prepare(StagedProgram& program, std::string_view id, State state) {
  program.Audio().ShowState(state);
  if (id == "clipMarks" && state == kWhole) {
    auto const sound = std::make_shared<MadeUpSound>(
        moxaudiotoolkit::SampleSourceProperties{.frames = 48000, .sampleRate = 48000, .channelCount = 1},
        MadeUpSound::Clicks{{24000, 1.0f}});
    moxaudiotoolkit::PeakBuilder builder(sound);
    builder.Wait();
    program.Session().AddDocument({"clipped", sound, builder.GetPyramid()});
  }
  program.Session().ChangeSettings([id](WaveformSettings& settings) {
    if (id == "gainWholeRange") {
      settings.gainDecibel = 12.0;
    }
    if (id == "fadeStart") {
      settings.fadeDirection = FadeDirection::kOut;
    }
    if (id == "waveColor" || id == "selectedWaveColor") {
      settings.coloredChannels = false;
    }
    if (id == "gridline") {
      settings.amplitudeDivisions = 3;
    }
  });
}

TEST(AudioProperties, EachOfThemChangesThePictureWhereItCanBeWorked) {
  std::set<std::string> ids;
  {
    StagedProgram program;
    for (PropertyGroup const& group : AudioProperties(program.Session(), ThemeChoice::kDark)) {
      for (Property const& property : group.properties) {
        EXPECT_TRUE(ids.insert(property.id).second) << property.id << " twice";
      }
    }
  }
  EXPECT_GE(ids.size(), 40u);
  for (std::string const& id : ids) {
    bool changes = false;
    for (State const state : {kWhole, kSelection, kSamples, kLayers, kFade, kNoSound}) {
      // A height that leaves rows over, for whoever places them.
      StagedProgram program("audio", {}, {900.0f, 603.0f});
      Prepare(program, id, state);
      Property const property = FindProperty(program.Session(), id);
      if (property.isEnabled && !property.isEnabled()) {
        continue;
      }
      Pixels const before = PictureOfWaveform(program);
      if (std::visit(Changer{[&] { return !(PictureOfWaveform(program) == before); }}, property.kind)) {
        changes = true;
        break;
      }
    }
    EXPECT_TRUE(changes) << id;
  }
}

TEST(AudioProperties, NothingButItsColourCanBeWorkedWithoutASound) {
  StagedProgram program;
  program.Audio().ShowState(kNoSound);
  ASSERT_GT(program.Audio().Panel().Rows().size(), 10u);
  for (auto const& row : program.Audio().Panel().Rows()) {
    EXPECT_EQ(row->UI_IsEnabled(), row->GetProperty().id == "control") << row->GetProperty().id;
  }
}

// Works the control of a row as a user would.
class PropertyRows : public testing::Test {
 protected:
  PropertyRow& Row(std::string_view id) { return *program.Audio().Panel().FindRow(id); }
  moxui::ui::UI_Node& Part(std::string_view id, std::size_t index) { return *Row(id).ChildGet(index); }

  StagedProgram program;
};

TEST_F(PropertyRows, CheckboxTurnsAProperty) {
  program.stage.Click(program.stage.CenterOf(Part("layered", 0)));
  EXPECT_TRUE(program.Session().Settings().layered);
  EXPECT_THAT(To8(program.state.log.Lines().back().text), testing::HasSubstr("one layer"));
}

TEST_F(PropertyRows, PopupChoosesAnItem) {
  moxui::testing::ModalAnswers answers;
  answers.Expect(2);
  program.stage.Click(program.stage.CenterOf(Part("peakStyle", 1)));
  EXPECT_TRUE(answers.AllUsed());
  EXPECT_EQ(program.Session().Settings().peakStyle, PeakStyle::kRectified);
}

TEST_F(PropertyRows, SliderShowsItsValueWhileItIsDragged) {
  auto const middle = program.stage.CenterOf(Part("gain", 1));
  program.stage.Press(middle);
  program.stage.Move({middle.x + 20.0f, middle.y});
  double const gain = program.Session().Settings().gainDecibel;
  EXPECT_GT(gain, 0.0);
  program.stage.Key(KeyboardCode::kEscape);
  program.stage.Release(middle);
  EXPECT_NEAR(program.Session().Settings().gainDecibel, 0.0, 1e-9);
}

TEST_F(PropertyRows, NumberIsTyped) {
  auto& edit = dynamic_cast<moxui::controls::UI_TextEdit&>(Part("gain", 2));
  program.stage.Click(program.stage.CenterOf(edit));
  edit.SelectAll();
  program.stage.Type(u"-6.5");
  program.stage.Key(KeyboardCode::kReturn);
  EXPECT_EQ(program.Session().Settings().gainDecibel, -6.5);
  EXPECT_EQ(edit.GetValue(), u"-6.5 dB");
}

TEST_F(PropertyRows, NumberThatMeansNothingIsTakenBack) {
  auto& edit = dynamic_cast<moxui::controls::UI_TextEdit&>(Part("gain", 2));
  for (std::u16string_view const text : {u"loud", u"", u"1e999", u"nan"}) {
    program.stage.Click(program.stage.CenterOf(edit));
    edit.SelectAll();
    program.stage.Key(KeyboardCode::kDelete);
    program.stage.Type(text);
    program.stage.Key(KeyboardCode::kReturn);
    EXPECT_EQ(program.Session().Settings().gainDecibel, 0.0);
    EXPECT_EQ(edit.GetValue(), u"0 dB");
  }
}

TEST_F(PropertyRows, NumberBeyondItsEndsIsHeldThere) {
  auto& edit = dynamic_cast<moxui::controls::UI_TextEdit&>(Part("zoom", 2));
  program.stage.Click(program.stage.CenterOf(edit));
  edit.SelectAll();
  program.stage.Type(u"1000");
  program.stage.Key(KeyboardCode::kReturn);
  EXPECT_NEAR(program.Session().Settings().zoom, kLargestZoom, 1e-9);
}

TEST_F(PropertyRows, ColourIsTypedAndChosenAndGoesBackToTheThemes) {
  PropertyRow& row = Row("background");
  auto const back =
      ColorOf(program.Session().Settings(), PaletteOf(ThemeChoice::kDark), WaveformColor::kBackground);
  auto& field = dynamic_cast<ColorField&>(*row.ChildGet(1));
  field.Number().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kByCode);
  field.Number().SelectAll();
  program.stage.Type(u"#102030");
  program.stage.Key(KeyboardCode::kReturn);
  EXPECT_EQ(HexFromColor(field.GetValue()), "#102030");
  EXPECT_EQ(field.Popup().GetShownText(), u"Own");

  moxui::testing::ModalAnswers answers;
  answers.Expect(4);
  field.Popup().OpenMenu();
  EXPECT_EQ(HexFromColor(field.GetValue()), "#FFFFFF");

  answers.Expect(1);
  field.Popup().OpenMenu();
  EXPECT_EQ(field.GetValue(), back);
  EXPECT_EQ(field.Popup().GetShownText(), u"Theme");
}

TEST_F(PropertyRows, OneColourForAllOrOneForEachChannelCanBeChosen) {
  EXPECT_FALSE(Row("waveColor").UI_IsEnabled());
  EXPECT_TRUE(Row("channel1Color").UI_IsEnabled());
  program.Session().ChangeSettings([](WaveformSettings& settings) { settings.coloredChannels = false; });
  EXPECT_TRUE(Row("waveColor").UI_IsEnabled());
  EXPECT_FALSE(Row("channel1Color").UI_IsEnabled());
}

TEST_F(PropertyRows, SelectedColoursCanBeChosenWhileSomethingIsSelectedAndNothingDerivesThem) {
  EXPECT_FALSE(Row("channel2SelectedColor").UI_IsEnabled());
  program.Audio().ShowState(kSelection);
  EXPECT_TRUE(Row("channel2SelectedColor").UI_IsEnabled());
  EXPECT_FALSE(Row("selectedWaveColor").UI_IsEnabled());
  program.Session().ChangeSettings([](WaveformSettings& settings) { settings.deriveSelectionColors = true; });
  EXPECT_FALSE(Row("channel2SelectedColor").UI_IsEnabled());
}

TEST(WaveformSettings, HandsTheChosenColoursToTheDrawing) {
  WaveformPalette const palette = PaletteOf(ThemeChoice::kDark);
  WaveformSettings settings;
  settings.SetChannelCount(3);
  auto const red = ColorOfNumber(0xFF0000);
  settings.selectedChannelColors[1] = red;
  settings.channelColors[2] = red;
  moxmediaui::WaveformDraw draw;
  Apply(settings, palette, draw);
  EXPECT_EQ(draw.GetSelectionChannelColors(),
            (std::vector{palette.selectedChannels[0], red, Mixed(red, palette.ink, kSelectedShare)}));
  settings.coloredChannels = false;
  settings.waveColor = ColorOfNumber(0x00FF00);
  settings.selectedWaveColor = ColorOfNumber(0x0000FF);
  Apply(settings, palette, draw);
  EXPECT_EQ(draw.GetChannelColors().front(), *settings.waveColor);
  EXPECT_EQ(draw.GetSelectionChannelColors().front(), *settings.selectedWaveColor);
}

TEST_F(PropertyRows, AreAsManyAsTheChannelsAsk) {
  EXPECT_NE(program.Audio().Panel().FindRow("channel6Enabled"), nullptr);
  EXPECT_EQ(program.Audio().Panel().FindRow("channel7Enabled"), nullptr);
}

}  // namespace
}  // namespace playground
