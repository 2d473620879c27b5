// The formats that a timecode field offers, and how fields follow each other.
#include "../../src/timecode/SupportedVideoFormats.h"
#include "WorkedField.h"

#include <moxui/testing/ModalAnswers.h>

namespace timecode_tests {
namespace {

using moxui::testing::ModalAnswers;

// The formats of a rate

struct RateCase {
  std::int64_t rate;
  std::vector<int> codes;
};

class SupportedFormats : public ::testing::TestWithParam<RateCase> {};

TEST_P(SupportedFormats, AreThoseOfTheRate) {
  std::vector<int> codes;
  for (TimeDisplay const display : moxmediaui::ListSupportedVideoFormats(FrameRate(GetParam().rate))) {
    codes.push_back(display.GetType());
  }
  EXPECT_EQ(codes, GetParam().codes);
}

INSTANTIATE_TEST_SUITE_P(
    Rates, SupportedFormats,
    ::testing::Values(
        RateCase{16934400000, {104, 108, 109}}, RateCase{10594584000, {110, 103, 111, 112, 109}},
        RateCase{10584000000, {100, 103, 111, 112, 109}}, RateCase{10160640000, {101, 111, 112, 109}},
        RateCase{8475667200, {102, 103, 111, 112, 109}}, RateCase{8467200000, {104, 111, 112, 109}},
        RateCase{5292000000, {113, 111, 112, 109}}, RateCase{5080320000, {105, 109}},
        RateCase{4237833600, {106, 107, 109}}, RateCase{4233600000, {108, 109}},
        // 12 frames a second, and no rate at all
        RateCase{21168000000, {104, 109}}, RateCase{9223372036854775807, {102, 109}},
        RateCase{0, {102, 109}}));

/// A field that stores formats of its own and hears those of others, with a log of the same station.
class FormatField : public WorkedField {
 public:
  FormatField() {
    field->SyncToTimecodeInfo({kDropFrame, k2997, kSamples, FrameRate(5292000)});
    field->SetAllowDisplayFormatOverride(true);
    field->SetTimeDisplayChangedStationID(station);
    displays = StationLog::On(station);
  }

  /// A second right click on the field with the command key.
  void Cycle() {
    stage.AdvanceTime(1000);
    stage.SetModKeys(ModKey::kCommand);
    stage.DoubleClick(kPlace, MouseButton::kRight);
    stage.SetModKeys({});
  }
  void OpenMenu() {
    stage.AdvanceTime(1000);
    stage.Click(kPlace, MouseButton::kRight);
  }
  int Format() const { return CodeOf(*field); }
  /// The format shown, in which a field without a quantization steps.
  static int CodeOf(OpenTimecodeControl const& shown) { return shown.GetQuantizeFormat().GetType(); }
  std::vector<Heard> TakeDisplays() { return std::exchange(displays->heard, {}); }

  moxcore::ImmutableString station = moxcore::messaging::UniqueStationID();
  IntrusivePtr<StationLog> displays;
};

using Texts = std::vector<moxcore::Utf16String>;
Texts TextsOf(ModalAnswers const& answers) {
  Texts texts;
  for (auto const& item : answers.GetRecords().at(0).menuItems) {
    texts.push_back(item.id == 0 ? u"-" : item.text);
  }
  return texts;
}
/// Ids of the items that are checked.
std::vector<int> CheckedIn(ModalAnswers const& answers) {
  std::vector<int> ids;
  for (auto const& item : answers.GetRecords().at(0).menuItems) {
    if (item.isChecked) {
      ids.push_back(item.id);
    }
  }
  return ids;
}

// Cycling

TEST_F(FormatField, CyclesThroughTheFormatsOfTheRate) {
  for (int const next : {103, 111, 112, 109, 102}) {
    Cycle();
    EXPECT_EQ(Format(), next);
    EXPECT_THAT(TakeDisplays(), ElementsAre(VideoDisplay(TimeDisplay(next))));
  }
  EXPECT_THAT(TakeHeard(), IsEmpty());
}

TEST_F(FormatField, CyclesFromAForeignFormatToFrames) {
  field->SetFormat(TimeDisplay(105), k2997);
  Cycle();
  EXPECT_EQ(Format(), 109);
}

TEST_F(FormatField, CyclesThroughTheFormatsOfItsOwner) {
  std::vector<FrameRate> asked;
  field->SetSupportedVideoFormatCallback(
      std::make_shared<UI_HotTimecodeControl::SupportedVideoFormatCallback>(
          [&](FrameRate rate, auto& formats) {
            asked.push_back(rate);
            EXPECT_TRUE(formats.empty());
            formats = {TimeDisplay(102), TimeDisplay(201)};
          }));
  Cycle();
  EXPECT_EQ(Format(), 201);
  Cycle();
  EXPECT_EQ(Format(), 102);
  EXPECT_THAT(asked, ElementsAre(k2997, k2997));
}

TEST_F(FormatField, CyclesToFramesWhenThereAreNoFormats) {
  field->SetSupportedVideoFormatCallback(
      std::make_shared<UI_HotTimecodeControl::SupportedVideoFormatCallback>([](FrameRate, auto&) {}));
  Cycle();
  EXPECT_EQ(Format(), 109);
  Cycle();
  EXPECT_EQ(Format(), 109);
  EXPECT_EQ(TakeDisplays().size(), 2u);
}

TEST_F(FormatField, CyclesSamplesAndMilliseconds) {
  field->SetDisplayType(DisplayType::kAudio);
  Cycle();
  EXPECT_EQ(Format(), 201);
  Cycle();
  EXPECT_EQ(Format(), 200);
  EXPECT_THAT(TakeDisplays(), ElementsAre(AudioDisplay(kMilliseconds), AudioDisplay(kSamples)));
  field->SetFormat(kFrameCount, k25);
  Cycle();
  EXPECT_EQ(Format(), 109);
  EXPECT_THAT(TakeDisplays(), ElementsAre(AudioDisplay(kFrameCount)));
}

TEST_F(FormatField, CyclesOnlyWhenAllowed) {
  field->SetAllowDisplayFormatOverride(false);
  Cycle();
  field->SetAllowDisplayFormatOverride(true);
  field->SetDisplayType(DisplayType(2));
  Cycle();
  EXPECT_EQ(Format(), 102);
  EXPECT_THAT(TakeDisplays(), IsEmpty());
}

// Menus

TEST_F(FormatField, OffersTheFormatsOfTheRate) {
  ModalAnswers answers;
  answers.Expect(4);
  OpenMenu();
  EXPECT_EQ(TextsOf(answers), (Texts{moxmediatypes::TimeDisplayDescription(TimeDisplay(102), true),
                                     moxmediatypes::TimeDisplayDescription(TimeDisplay(103), true),
                                     moxmediatypes::TimeDisplayDescription(TimeDisplay(111), true),
                                     moxmediatypes::TimeDisplayDescription(TimeDisplay(112), true),
                                     moxmediatypes::TimeDisplayDescription(TimeDisplay(109), true)}));
  EXPECT_THAT(CheckedIn(answers), ElementsAre(1));
  EXPECT_EQ(answers.GetRecords()[0].position, kPlace);
  EXPECT_EQ(Format(), 112);
  EXPECT_EQ(field->GetTimeDisplay(), kDropFrame);
  EXPECT_THAT(TakeDisplays(), ElementsAre(VideoDisplay(kFeet35)));
}

TEST_F(FormatField, AMenuThatIsLeftChangesNothing) {
  ModalAnswers answers;
  OpenMenu();
  EXPECT_EQ(answers.GetRecords().size(), 1u);
  EXPECT_EQ(Format(), 102);
  EXPECT_THAT(TakeDisplays(), IsEmpty());
}

TEST_F(FormatField, AFieldThatDoesNotAllowItHasNoMenu) {
  ModalAnswers answers;
  field->SetAllowDisplayFormatOverride(false);
  OpenMenu();
  field->SetAllowDisplayFormatOverride(true);
  field->UI_SetDisabled();
  OpenMenu();
  EXPECT_TRUE(answers.GetRecords().empty());
}

TEST_F(FormatField, TheKeyboardOpensTheMenuToo) {
  ModalAnswers answers;
  answers.Expect(5);
  stage.Tab();
  EXPECT_TRUE(stage.Key(KeyboardCode::kContextMenu));
  EXPECT_EQ(answers.GetRecords().at(0).position, PointT<float>(20, 64));
  EXPECT_EQ(Format(), 109);
}

TEST_F(FormatField, OffersSamplesAndMilliseconds) {
  field->SetDisplayType(DisplayType::kAudio);
  ModalAnswers answers;
  answers.ExpectItem(u"Milliseconds");
  answers.ExpectItem(u"Audio Samples");
  answers.ExpectItem(u"Audio Samples");
  OpenMenu();
  EXPECT_EQ(TextsOf(answers), (Texts{u"Audio Samples", u"Milliseconds"}));
  EXPECT_THAT(CheckedIn(answers), ElementsAre(1));
  EXPECT_EQ(Format(), 201);
  OpenMenu();
  OpenMenu();  // the one that is checked already is told again
  EXPECT_THAT(TakeDisplays(),
              ElementsAre(AudioDisplay(kMilliseconds), AudioDisplay(kSamples), AudioDisplay(kSamples)));
}

TEST_F(FormatField, OffersAFixedList) {
  field->SetTimecodeOptions(TimecodeOptions::kFixedList);
  ModalAnswers answers;
  answers.ExpectItem(u"Feet + Frames 16mm");
  OpenMenu();
  EXPECT_EQ(TextsOf(answers), (Texts{u"Timecode", u"Feet + Frames 16mm", u"Feet + Frames 35mm", u"Frames"}));
  EXPECT_THAT(CheckedIn(answers), ElementsAre(1));
  EXPECT_EQ(Format(), 111);
}

struct FixedCase {
  int before;
  char16_t const* item;
  int after;
  int stored;
};

class FixedMenu : public FormatField, public ::testing::WithParamInterface<FixedCase> {};

TEST_P(FixedMenu, LeadsToTheFormat) {
  field->SetTimecodeOptions(TimecodeOptions::kFixedListWithDropFrame);
  field->SetFormat(TimeDisplay(GetParam().before), k2997);
  ModalAnswers answers;
  answers.ExpectItem(GetParam().item);
  OpenMenu();
  EXPECT_EQ(Format(), GetParam().after);
  EXPECT_EQ(field->GetTimeDisplay(), TimeDisplay(GetParam().stored));
  EXPECT_THAT(TakeDisplays(), ElementsAre(VideoDisplay(TimeDisplay(GetParam().after))));
}

INSTANTIATE_TEST_SUITE_P(
    Items, FixedMenu,
    ::testing::Values(FixedCase{109, u"Timecode", 103, 102}, FixedCase{102, u"Timecode", 102, 102},
                      FixedCase{102, u"Feet + Frames 16mm", 111, 102},
                      FixedCase{102, u"Feet + Frames 35mm", 112, 102}, FixedCase{103, u"Frames", 109, 102},
                      FixedCase{102, u"Non-Drop-Frame", 103, 103}, FixedCase{103, u"Drop-Frame", 102, 102},
                      FixedCase{102, u"Drop-Frame", 102, 102}));

TEST_F(FormatField, ChecksAndEnablesTheFixedItemsByFormat) {
  struct CheckCase {
    int format;
    std::vector<int> checked;
    bool offersDropFrame;
  };
  field->SetTimecodeOptions(TimecodeOptions::kFixedListWithDropFrame);
  for (CheckCase const& test :
       {CheckCase{102, {1, 6}, true}, CheckCase{103, {1, 7}, true}, CheckCase{106, {1, 6}, true},
        CheckCase{107, {1, 7}, true}, CheckCase{101, {1}, false}, CheckCase{109, {4}, false},
        CheckCase{111, {2}, false}, CheckCase{112, {3}, false}}) {
    ModalAnswers answers;
    field->SetFormat(TimeDisplay(test.format), k2997);
    OpenMenu();
    EXPECT_EQ(TextsOf(answers), (Texts{u"Timecode", u"Feet + Frames 16mm", u"Feet + Frames 35mm", u"Frames",
                                       u"-", u"Drop-Frame", u"Non-Drop-Frame"}));
    EXPECT_EQ(CheckedIn(answers), test.checked) << test.format;
    EXPECT_EQ(answers.GetRecords()[0].menuItems[5].isEnabled, test.offersDropFrame) << test.format;
    EXPECT_EQ(answers.GetRecords()[0].menuItems[6].isEnabled, test.offersDropFrame) << test.format;
  }
}

TEST_F(FormatField, OptionsThatAreNoneOfferNothing) {
  ModalAnswers answers;
  answers.SetDefault(1);
  field->SetTimecodeOptions(TimecodeOptions(3));
  OpenMenu();
  field->SetDisplayType(DisplayType(2));
  OpenMenu();
  EXPECT_EQ(Format(), 102);
  EXPECT_THAT(TakeDisplays(), IsEmpty());
}

// Fields that follow

TEST_F(FormatField, OtherFieldsOnTheStationFollow) {
  OpenTimecodeControl video;
  OpenTimecodeControl audio;
  OpenTimecodeControl apart;
  for (OpenTimecodeControl* const other : {&video, &audio, &apart}) {
    other->SyncToTimecodeInfo({kDropFrame, k2997, kSamples, FrameRate(5292000)});
  }
  audio.SetDisplayType(DisplayType::kAudio);
  video.SetTimeDisplayChangedStationID(station);
  audio.SetTimeDisplayChangedStationID(station);
  Cycle();
  EXPECT_EQ(CodeOf(video), 103);
  EXPECT_EQ(CodeOf(audio), 200);
  EXPECT_EQ(CodeOf(apart), 102);
  field->SetDisplayType(DisplayType::kAudio);
  Cycle();
  EXPECT_EQ(CodeOf(video), 103);
  EXPECT_EQ(CodeOf(audio), 201);
  // Each has kept its own format.
  EXPECT_EQ(video.GetTimeDisplay(), kDropFrame);
  video.SetDisplay();
  EXPECT_EQ(CodeOf(video), 102);
}

TEST_F(FormatField, LeavesAStationForAnother) {
  OpenTimecodeControl other;
  other.SetTimeDisplayChangedStationID(station);
  other.SetTimeDisplayChangedStationID({});
  EXPECT_TRUE(other.GetTimeDisplayChangedStationID().empty());
  Cycle();
  EXPECT_EQ(CodeOf(other), 102);
  field->SetTimeDisplayChangedStationID({});
  TakeDisplays();
  Cycle();
  EXPECT_THAT(TakeDisplays(), IsEmpty());
}

TEST_F(FormatField, DoesNotHearTheProgramsStationUntilTold) {
  auto const everyone = OpenTimecodeControl().GetTimeDisplayChangedStationID();
  OpenTimecodeControl other;
  moxmediaui::HotTimecodeVideoTimeDisplayChangedMessage const frames(kFrameCount);
  moxcore::messaging::RegisterStation(everyone);
  moxcore::messaging::BroadcastMessageOnMainThread(everyone, frames);
  EXPECT_EQ(CodeOf(other), 102);
  other.SetTimeDisplayChangedStationID(everyone);
  moxcore::messaging::BroadcastMessageOnMainThread(everyone, frames);
  EXPECT_EQ(CodeOf(other), 109);
  moxcore::messaging::DisposeStation(everyone);
}

TEST_F(FormatField, TheCurrentFormatInvalidatesNothing) {
  moxmediaui::HotTimecodeVideoTimeDisplayChangedMessage const same(kDropFrame);
  moxmediaui::HotTimecodeVideoTimeDisplayChangedMessage const other(kFrameCount);
  EXPECT_FALSE(Invalidates([&] { field->ListenToMessage(same); }));
  EXPECT_TRUE(Invalidates([&] { field->ListenToMessage(other); }));
}

}  // namespace
}  // namespace timecode_tests
