// Value, formats and rates of a timecode field, as code sets them.
#include "OpenTimecodeControl.h"

#include <moxui/skins/ThemeColors.h>

namespace timecode_tests {
namespace {

using moxmediaui::TimecodeControlInfo;
using moxmediaui::TimecodeControlNotifier;

TEST(HotTimecodeControl, ShowsTimeZeroInDropFrameAtFirst) {
  OpenTimecodeControl const field;
  EXPECT_EQ(field.GetTimecodeString(), u"00;00;00;00");
  EXPECT_EQ(field.ShownText(), u"00;00;00;00");
  EXPECT_EQ(field.GetTime(), TickTime());
  EXPECT_EQ(field.GetMinTime(), TickTime());
  EXPECT_EQ(field.GetMaxTime(), kHundredHours);
  EXPECT_EQ(field.GetOffsetTime(), TickTime());
}

TEST(HotTimecodeControl, StartsWithItsDefaults) {
  OpenTimecodeControl const field;
  EXPECT_EQ(field.GetDisplayType(), DisplayType::kVideo);
  EXPECT_EQ(field.GetTimeDisplay(), TimeDisplay());
  EXPECT_EQ(field.GetFrameRate(), FrameRate(9223372036854775807));
  EXPECT_EQ(field.GetStyle(), 0u);
  EXPECT_EQ(field.GetInvalidDisplayType(), InvalidDisplay::kTimeZero);
  EXPECT_EQ(field.GetIdentifier(), 0u);
  EXPECT_FALSE(field.GetIsFixed());
  EXPECT_EQ(field.GetTextSize(), TextSize::kToolkit);
  EXPECT_FALSE(field.GetUseInvalidColor());
  EXPECT_FALSE(field.GetUseTextColorForFixed());
  EXPECT_FALSE(field.ShouldHandleRightClick());
  EXPECT_FALSE(field.IsScrubbing());
  EXPECT_FALSE(field.HasFocus());
  EXPECT_FALSE(field.GetTextControl()->UI_IsShown());
  EXPECT_EQ(field.GetInvalidColor(), moxui::skins::utilities::GetDefaultTextDisabledColor());
  EXPECT_EQ(field.GetTimeDisplayChangedStationID().ToUTF8String(),
            "moxmediaui.timecodeControl.timedisplay.changed.station.global");
}

TEST(HotTimecodeControl, HasAStationOfItsOwnWhileItLives) {
  auto field = moxcore::utility::MakeIntrusive<OpenTimecodeControl>();
  auto const other = moxcore::utility::MakeIntrusive<OpenTimecodeControl>();
  auto const station = field->GetStationID();
  EXPECT_NE(station, other->GetStationID());
  EXPECT_TRUE(moxcore::messaging::IsStationRegistered(station));
  field.Reset();
  EXPECT_FALSE(moxcore::messaging::IsStationRegistered(station));
}

// Value

TEST_F(OneField, TakesATimeAndShowsIt) {
  field->SetTime(Seconds(75), false);
  EXPECT_EQ(field->GetTime(), Seconds(75));
  EXPECT_EQ(field->ShownText(), u"00:01:15:00");
}

TEST_F(OneField, InvalidatesForAnotherTimeOnlyAndWhenAsked) {
  EXPECT_TRUE(Invalidates([&] { field->SetTime(Seconds(1), true); }));
  EXPECT_FALSE(Invalidates([&] { field->SetTime(Seconds(1), true); }));
  EXPECT_FALSE(Invalidates([&] { field->SetTime(Seconds(2), false); }));
}

TEST_F(OneField, TakesATextSilently) {
  EXPECT_FALSE(Invalidates([&] { field->SetTime(u"2:00"); }));
  EXPECT_EQ(field->GetTime(), Seconds(2));
  EXPECT_EQ(field->ShownText(), u"00:00:02:00");
}

TEST_F(OneField, ShowsTheOldTextAfterOneThatCannotBeRead) {
  field->SetTimecodeString(u"later", true);
  field->SetTime(u"later");
  EXPECT_EQ(field->GetTime(), kMinute);
  EXPECT_EQ(field->ShownText(), u"00:01:00:00");
}

TEST_F(OneField, TakesBoundsWithTheOffset) {
  field->SetOffsetTime(kHour);
  field->SetMinTime(Seconds(70));
  EXPECT_EQ(field->GetMinTime(), kHour + Seconds(70));
  EXPECT_EQ(field->GetTime(), Seconds(70));
  EXPECT_EQ(field->ShownText(), u"01:01:10:00");
  field->SetMaxTime(Seconds(65));
  EXPECT_EQ(field->GetMaxTime(), kHour + Seconds(65));
  EXPECT_EQ(field->ShownText(), u"01:01:05:00");
  EXPECT_EQ(field->GetOffsetTime(), kHour);
}

TEST_F(OneField, ShowsThePlaceholderFromTheNextTextOn) {
  field->SetTime(kNoTime, false);
  EXPECT_EQ(field->ShownText(), u"00:00:00:00");
  field->SetInvalidDisplayType(InvalidDisplay::kPlaceholder);
  EXPECT_EQ(field->GetTimecodeString(), u"--:--:--:--");
  EXPECT_EQ(field->ShownText(), u"00:00:00:00");
  field->SetTime(kNoTime, false);
  EXPECT_EQ(field->ShownText(), u"--:--:--:--");
}

TEST_F(OneField, StoresAStyle) {
  field->SetStyle(0x80000001u);
  EXPECT_EQ(field->GetStyle(), 0x80000001u);
}

// SetTimecodeString

TEST_F(OneField, AStringBecomesTheValueAndTheEditKeepsItsText) {
  EXPECT_TRUE(Invalidates([&] { field->SetTimecodeString(u"5:00", false); }));
  EXPECT_EQ(field->GetTime(), Seconds(5));
  EXPECT_EQ(field->ShownText(), u"00:01:00:00");
}

TEST_F(OneField, AnInlineStringIsTheEditsAlone) {
  EXPECT_FALSE(Invalidates([&] { field->SetTimecodeString(u"5:00", true); }));
  EXPECT_EQ(field->GetTime(), kMinute);
  EXPECT_EQ(field->ShownText(), u"5:00");
}

TEST_F(OneField, AnEmptyInlineStringDoesNothing) {
  field->SetTimecodeString(u"5:00", true);
  EXPECT_FALSE(Invalidates([&] { field->SetTimecodeString(u"", true); }));
  EXPECT_EQ(field->ShownText(), u"5:00");
}

TEST_F(OneField, AnEmptyStringBringsTheEditUpToDateElseInvalidates) {
  field->SetTimecodeString(u"5:00", true);
  EXPECT_FALSE(Invalidates([&] { field->SetTimecodeString(u"", false); }));
  EXPECT_EQ(field->ShownText(), u"00:01:00:00");
  EXPECT_TRUE(Invalidates([&] { field->SetTimecodeString(u"", false); }));
}

TEST_F(OneField, ATextThatIsOnlyParsedLeavesTheEdit) {
  EXPECT_TRUE(field->UpdateTimecodeWithString(u"5:00"));
  EXPECT_FALSE(field->UpdateTimecodeWithString(u"x"));
  EXPECT_EQ(field->GetTime(), Seconds(5));
  EXPECT_EQ(field->ShownText(), u"00:01:00:00");
}

// Formats and rates

TEST_F(OneField, AnEqualFormatTouchesNothing) {
  field->SetTimecodeString(u"5:00", true);
  EXPECT_FALSE(Invalidates([&] { field->SetFormat(kTimecode25, k25); }));
  EXPECT_EQ(field->ShownText(), u"5:00");
}

TEST_F(OneField, AnotherFormatOrRateIsShown) {
  EXPECT_TRUE(Invalidates([&] { field->SetFormat(kFrameCount, k25); }));
  EXPECT_EQ(field->ShownText(), u"1500");
  EXPECT_TRUE(Invalidates([&] { field->SetFormat(kFrameCount, FrameRate(10584000000)); }));
  EXPECT_EQ(field->ShownText(), u"1440");
}

TimecodeInfo const kInfo{kTimecode25, k25, kMilliseconds, FrameRate(5292000)};

TEST_F(OneField, FollowsTheFormatsThatTheHostTells) {
  field->OnRefreshTimecodeInfo({kFrameCount, k25, kMilliseconds, FrameRate(5292000)});
  EXPECT_EQ(field->ShownText(), u"1500");
  EXPECT_EQ(field->GetTimeDisplay(), kFrameCount);
  EXPECT_EQ(field->GetFrameRate(), k25);
  field->SetDisplayType(DisplayType::kAudio);
  EXPECT_EQ(field->ShownText(), u"60000");
  EXPECT_EQ(field->GetTimeDisplay(), kMilliseconds);
  EXPECT_EQ(field->GetFrameRate(), FrameRate(5292000));
}

TEST_F(OneField, AnEqualDisplayTypeDoesNothing) {
  field->SyncToTimecodeInfo(kInfo);
  field->SetFormat(kFrameCount, k25);
  field->SetDisplayType(DisplayType::kVideo);
  EXPECT_EQ(field->ShownText(), u"1500");
}

TEST_F(OneField, ReturnsToItsStoredFormat) {
  field->SyncToTimecodeInfo(kInfo);
  field->SetFormat(kFrameCount, k25);
  field->SetDisplay();
  EXPECT_EQ(field->ShownText(), u"00:01:00:00");
}

TEST_F(OneField, ATypeThatIsNoneHasNoPair) {
  field->SyncToTimecodeInfo(kInfo);
  field->SetDisplayType(DisplayType(2));
  EXPECT_EQ(field->GetTimeDisplay(), kNoFormat);
  EXPECT_EQ(field->GetFrameRate(), FrameRate(9223372036854775807));
  EXPECT_EQ(field->ShownText(), u"00:01:00:00");
}

TEST_F(OneField, ResetFrameRateEndsFollowingButNotSyncing) {
  field->ResetFrameRate(kFrameCount, k25, DisplayType::kVideo);
  EXPECT_EQ(field->ShownText(), u"1500");
  field->OnRefreshTimecodeInfo(kInfo);
  EXPECT_EQ(field->GetTimeDisplay(), kFrameCount);
  EXPECT_EQ(field->ShownText(), u"1500");
  field->SyncToTimecodeInfo(kInfo);
  EXPECT_EQ(field->GetTimeDisplay(), kTimecode25);
  EXPECT_EQ(field->ShownText(), u"00:01:00:00");
  field->OnRefreshTimecodeInfo({kFrameCount, k25, kMilliseconds, k25});
  EXPECT_EQ(field->ShownText(), u"00:01:00:00");
}

TEST_F(OneField, ResetFrameRateOfTheOtherTypeShowsNothingNew) {
  EXPECT_FALSE(
      Invalidates([&] { field->ResetFrameRate(kSamples, FrameRate(5292000), DisplayType::kAudio); }));
  EXPECT_EQ(field->ShownText(), u"00:01:00:00");
  field->SetDisplayType(DisplayType::kAudio);
  EXPECT_EQ(field->ShownText(), u"2880000");
}

TEST_F(OneField, StepsInAQuantizationThatIsNotShown) {
  EXPECT_EQ(field->GetQuantizeFormat(), kTimecode25);
  EXPECT_EQ(field->GetQuantizeFrameRate(), k25);
  EXPECT_FALSE(Invalidates([&] { field->SetQuantizeFrameRate(kFrameCount, k2997); }));
  EXPECT_EQ(field->GetQuantizeFormat(), kFrameCount);
  EXPECT_EQ(field->GetQuantizeFrameRate(), k2997);
  EXPECT_EQ(field->GetTimecodeString(), u"00:01:00:00");
}

// Counting from one

TEST_F(OneField, CountsFromOneInAFormatOtherThanTimecode) {
  field->SetGeneralClipMediaFrameCountOffset(1);
  EXPECT_EQ(field->GetOffsetTime(), TickTime());  // nothing yet
  TickTime const frame(1, k25);
  field->SetFormat(kFrameCount, k25);
  EXPECT_EQ(field->GetOffsetTime(), frame);
  EXPECT_EQ(field->GetMinTime(), frame);
  EXPECT_EQ(field->GetMaxTime(), kHundredHours + frame);
  EXPECT_EQ(field->GetTime(), kMinute);
  EXPECT_EQ(field->ShownText(), u"1501");
  field->SetFormat(kTimecode25, k25);
  EXPECT_EQ(field->GetOffsetTime(), TickTime());
  EXPECT_EQ(field->GetMinTime(), TickTime());
  EXPECT_EQ(field->GetMaxTime(), kHundredHours);
  EXPECT_EQ(field->GetTime(), kMinute);
  EXPECT_EQ(field->ShownText(), u"00:01:00:00");
}

TEST_F(OneField, CountsFromOneOnTopOfAnOffset) {
  field->SetOffsetTime(kHour);
  field->SetGeneralClipMediaFrameCountOffset(1);
  field->SetFormat(kFeet35, k25);
  EXPECT_EQ(field->GetOffsetTime(), kHour + TickTime(1, k25));
  field->SetFormat(kFeet16, k2997);
  EXPECT_EQ(field->GetOffsetTime(), kHour + TickTime(1, k2997));
  field->SetFormat(kDropFrame, k2997);
  EXPECT_EQ(field->GetOffsetTime(), kHour);
}

// A new offset replaces the whole of the old one.
TEST_F(OneField, AnOffsetThatIsSetWhileCountingFromOneIsTheWholeOffset) {
  field->SetGeneralClipMediaFrameCountOffset(1);
  field->SetFormat(kFrameCount, k25);
  field->SetOffsetTime(kHour);
  EXPECT_EQ(field->GetOffsetTime(), kHour);
  EXPECT_EQ(field->GetTime(), kMinute);
}

TEST_F(OneField, OnlyOneCountsFromOne) {
  for (int const other : {0, 2, -1}) {
    field->SetGeneralClipMediaFrameCountOffset(other);
    field->SetFormat(kFrameCount, k25);
    field->OnRefreshFrameCountOffset();
    EXPECT_EQ(field->GetOffsetTime(), TickTime());
  }
}

TEST_F(OneField, TheHostHasItCountAnew) {
  field->SetFormat(kFrameCount, k25);
  field->SetGeneralClipMediaFrameCountOffset(1);
  EXPECT_EQ(field->ShownText(), u"1500");
  EXPECT_TRUE(Invalidates([&] { field->OnRefreshFrameCountOffset(); }));
  EXPECT_EQ(field->ShownText(), u"1501");
  EXPECT_TRUE(Invalidates([&] { field->OnRefreshFrameCountOffset(); }));
  EXPECT_EQ(field->ShownText(), u"1501");
}

// Plain stores

TEST_F(OneField, PlainStoresInvalidateNothing) {
  EXPECT_FALSE(Invalidates([&] {
    field->SetTimecodeOptions(TimecodeOptions::kFixedList);
    field->SetInvalidDisplayType(InvalidDisplay::kNothing);
    field->SetAsFixed(true);
    field->SetIdentifier(7);
    field->SetAllowDisplayFormatOverride(true);
    field->SetHandleRightClick(true);
    field->UseCustomTextColor(true);
    field->SetGeneralClipMediaFrameCountOffset(1);
    field->SetQuantizeFrameRate(kFrameCount, k25);
    field->SetSupportedVideoFormatCallback(nullptr);
    field->SetHorizontalSymbolOffset(4);
    field->SetVerticalSymbolOffset(4);
    field->SetSymbol(nullptr, true);
    field->SetTextSize(TextSize::kLargeBold, 0.0f);
  }));
  EXPECT_EQ(field->GetIdentifier(), 7u);
  EXPECT_TRUE(field->GetIsFixed());
  EXPECT_TRUE(field->ShouldHandleRightClick());
  EXPECT_EQ(field->GetInvalidDisplayType(), InvalidDisplay::kNothing);
  EXPECT_EQ(field->GetTextSize(), TextSize::kLargeBold);
}

TEST_F(OneField, ToolTipIsTheNodes) {
  field->UI_SetToolTip("In point", 200);
  EXPECT_EQ(field->GetToolTipTextSelf(), "In point");
}

// Notifier

class Notifier : public TimecodeControlNotifier {
 public:
  using TimecodeControlNotifier::RefreshFrameCountOffset;
  using TimecodeControlNotifier::RefreshTimecodeInfo;
};

TEST_F(OneField, HearsTheNotifierItIsGiven) {
  auto const notifier = std::make_shared<Notifier>();
  notifier->RefreshTimecodeInfo(kInfo);  // to nobody
  notifier->RefreshFrameCountOffset();
  field->SetTimecodeControlInfo({kFrameCount, k25, kSamples, k25, notifier});
  EXPECT_EQ(field->ShownText(), u"1500");
  notifier->RefreshTimecodeInfo(kInfo);
  EXPECT_EQ(field->ShownText(), u"00:01:00:00");
  field->SetFormat(kFrameCount, k25);
  field->SetGeneralClipMediaFrameCountOffset(1);
  notifier->RefreshFrameCountOffset();
  EXPECT_EQ(field->ShownText(), u"1501");
  notifier->ClearListener();
  notifier->RefreshTimecodeInfo(kInfo);
  EXPECT_EQ(field->ShownText(), u"1501");
}

TEST_F(OneField, GivesItsNotifierToTheNextField) {
  auto const notifier = std::make_shared<Notifier>();
  OpenTimecodeControl next;
  field->SetTimecodeControlInfo({kTimecode25, k25, kSamples, k25, notifier});
  next.SetTimecodeControlInfo({kTimecode25, k25, kSamples, k25, notifier});
  notifier->RefreshTimecodeInfo({kFrameCount, k25, kSamples, k25});
  EXPECT_EQ(field->GetTimeDisplay(), kTimecode25);
  EXPECT_EQ(next.GetTimeDisplay(), kFrameCount);
  notifier->ClearListener();
}

TEST_F(OneField, NeedsNoNotifier) {
  field->SetTimecodeControlInfo({kFrameCount, k25, kSamples, k25, nullptr});
  EXPECT_EQ(field->ShownText(), u"1500");
}

}  // namespace
}  // namespace timecode_tests
