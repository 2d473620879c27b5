#include "PresetStore.h"

#include <moxcore/debug/Trace.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace moxappsupport::presets {
namespace {

using namespace layout_presets;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

// What is traced about presets while it lives.
class Traces {
 public:
  explicit Traces(int level) : mCategory("moxcore.presets") {
    mBefore = moxcore::debug::SetTraceSink([this](moxcore::debug::TraceLevel lineLevel,
                                                  moxcore::debug::TraceCategory const& category,
                                                  std::string_view text) {
      mLines.push_back(std::to_string(static_cast<int>(lineLevel)) + " " + category.GetName().data() + " " +
                       std::string(text));
    });
    moxcore::debug::EnableTrace(mCategory, moxcore::debug::TraceLevel(level));
  }
  ~Traces() {
    moxcore::debug::ResetTrace(mCategory);
    moxcore::debug::SetTraceSink(mBefore);
  }
  Traces(Traces const&) = delete;
  Traces& operator=(Traces const&) = delete;

  std::vector<std::string> const& Lines() const { return mLines; }

 private:
  moxcore::debug::TraceCategory mCategory;
  moxcore::debug::TraceSink mBefore;
  std::vector<std::string> mLines;
};

class PresetLoadTest : public testing::Test {
 protected:
  std::vector<std::pair<std::string, SkipReason>> Skipped(LayoutCache const& cache) {
    std::vector<std::pair<std::string, SkipReason>> skipped;
    for (auto const& file : cache.GetSkippedFiles()) {
      skipped.emplace_back(std::string(file.file.GetName()), file.reason);
      EXPECT_FALSE(file.detail.empty());
    }
    return skipped;
  }

  PresetStore store;
};

TEST_F(PresetLoadTest, GivesTheLaterOfTwoEqualGuidsANewOne) {
  store.Write("a.preset", TextOf("First"));
  store.Write("b.preset", TextOf("Second"));
  store.Write("c.preset", TextOf("Third"));
  auto const cache = store.Open();
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("First", "Second copy", "Third copy"));
  EXPECT_EQ(store.Read("a.preset"), TextOf("First"));
  auto const second = store.Preset("b.preset");
  auto const third = store.Preset("c.preset");
  EXPECT_EQ(second.name, "Second copy");
  EXPECT_NE(second.guid, GuidOf(kUser));
  EXPECT_NE(second.guid, third.guid);
  EXPECT_EQ(store.Open()->GetPresets(), cache->GetPresets());
  EXPECT_TRUE(cache->RemovePreset(second));
  EXPECT_FALSE(std::filesystem::exists(store.Path("b.preset")));
}

TEST_F(PresetLoadTest, TracesEachRepair) {
  store.Write("a.preset", TextOf("First"));
  store.Write("b.preset", TextOf("Second"));
  Traces const traces(2);
  store.Open();
  EXPECT_THAT(
      traces.Lines(),
      ElementsAre("2 moxcore.presets Fixing preset with duplicate GUID: " + store.Path("b.preset") + "\r\n"));
  store.Open();
  EXPECT_EQ(traces.Lines().size(), 1u);
}

TEST_F(PresetLoadTest, GoesOnWithARepairThatCannotBeWritten) {
  store.Write("a.preset", TextOf("First"));
  store.Write("b.preset", TextOf("Second"));
  Traces const traces(2);
  {
    FullMedium const full(0);
    EXPECT_THAT(NamesOf(store.Open()->GetPresets()), ElementsAre("First", "Second copy"));
  }
  EXPECT_EQ(store.Read("b.preset"), TextOf("Second"));
  EXPECT_THAT(
      traces.Lines(),
      ElementsAre("2 moxcore.presets Fixing preset with duplicate GUID: " + store.Path("b.preset") + "\r\n",
                  "2 moxcore.presets Error writing preset file: " + store.Path("b.preset") + "\r\n"));
  EXPECT_THAT(NamesOf(store.Open()->GetPresets()), ElementsAre("First", "Second copy"));
  EXPECT_EQ(store.Preset("b.preset").name, "Second copy");
}

TEST_F(PresetLoadTest, TracesNothingBelowItsLevel) {
  store.Write("a.preset", TextOf("First"));
  store.Write("b.preset", TextOf("Second"));
  Traces const traces(1);
  store.Open();
  EXPECT_THAT(traces.Lines(), IsEmpty());
}

TEST_F(PresetLoadTest, MakesThePresetOfTheDefaultNameTheDefault) {
  store.Write("a.preset", TextOf("$$$/app/Presets/DefaultPresetName=(Default)", kUser));
  store.Write("b.preset", TextOf("(Default)", kOther));
  auto const presets = store.Open()->GetPresets();
  ASSERT_EQ(presets.size(), 2u);
  EXPECT_THAT(NamesOf(presets), ElementsAre("(Default)", "(Default)"));
  for (auto const& preset : presets) {
    EXPECT_EQ(preset.flags, preset.guid == GuidOf(kUser) ? 1u : 0u);
  }
  EXPECT_EQ(store.Read("a.preset"), TextOf("$$$/app/Presets/DefaultPresetName=(Default)", kUser));
}

TEST_F(PresetLoadTest, TellsWhichFilesItSkippedAndWhyButTracesNothing) {
  store.Write("a.preset", TextOf("Foo"));
  store.Write("b.preset", "");
  store.Write("c.preset", TextOf("Nil", "00000000-0000-0000-0000-000000000000"));
  store.Write("d.preset", "5");
  store.Write("e.preset", TextOf("No layout", kOther, R"({"audiochannellayout":[]})"));
  store.Write("f.preset", R"({"Name":"x"})");
  store.Write("g.txt", "no preset");
  Traces const traces(9);
  auto const cache = store.Open();
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("Foo"));
  EXPECT_THAT(
      Skipped(*cache),
      ElementsAre(std::pair("b.preset", SkipReason::kMalformed), std::pair("c.preset", SkipReason::kNoGuid),
                  std::pair("d.preset", SkipReason::kNoGuid), std::pair("e.preset", SkipReason::kMalformed),
                  std::pair("f.preset", SkipReason::kMalformed)));
  EXPECT_EQ(cache->GetSkippedFiles()[0].detail, "JSON not well-formed");
  EXPECT_EQ(cache->GetSkippedFiles()[3].detail, "invalid audiochannellayout");
  EXPECT_EQ(cache->GetSkippedFiles()[4].detail, "missing key: Guid");
  EXPECT_THAT(traces.Lines(), IsEmpty());
  std::filesystem::remove(store.Path("b.preset"));
  cache->Reload();
  EXPECT_EQ(cache->GetSkippedFiles().size(), 4u);
}

TEST_F(PresetLoadTest, SkipsEveryKindOfBadFileAndLoadsItsSiblings) {
  auto const good = TextOf("Good");
  store.Write("m.preset", good);
  std::string utf16;
  for (char const unit : "\xff" + good) {
    utf16 += unit;
    utf16 += '\0';
  }
  std::vector<std::string> const bad = {
      "",
      " ",
      good.substr(0, good.size() - 1),
      good.substr(1),
      good + good,
      utf16,
      std::string(1000, '\0'),
      std::string(1'000'000, '['),
      std::string("\x7f"
                  "ELF\x02\x01\x01\0\0\0",
                  10),
      "{}",
      "[]",
      "[" + good + "]",
      TextOf("x", kOther, R"({"audiochannellayout":[{"channellabel":1e400}]})"),
      TextOf("x", kOther, R"({"audiochannellayout":[{"channellabel":99999999999999999999}]})"),
      TextOf("\xff", kOther),
      TextOf("x", "not a guid"),
      R"({"SerializerWrappedObject":[]})",
      "\xef\xbb\xbf" + TextOf("BOM", kOther)};
  for (std::size_t i = 0; i < bad.size(); ++i) {
    store.Write("bad" + std::to_string(i) + ".preset", bad[i]);
    store.Write("zbad" + std::to_string(i) + ".preset", bad[i]);
  }
  std::filesystem::create_directory(store.Path("dir.preset"));
  std::filesystem::create_symlink(store.Path("m.preset"), store.Path("link.preset"));
  std::filesystem::create_symlink("/dev/zero", store.Path("zero.preset"));
  ASSERT_EQ(mkfifo(store.Path("pipe.preset").c_str(), 0600), 0);
  auto const cache = store.Open();
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("Good"));
  EXPECT_EQ(cache->GetSkippedFiles().size(), 2 * bad.size());
}

TEST_F(PresetLoadTest, RefusesAFileOfTooManyBytesBeforeItReadsIt) {
  store.Write("a.preset", TextOf("Good"));
  store.Write("b.preset", "");
  std::filesystem::resize_file(store.Path("b.preset"), 4294967296);
  auto const cache = store.Open();
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("Good"));
  EXPECT_THAT(Skipped(*cache), ElementsAre(std::pair("b.preset", SkipReason::kTooLong)));
}

TEST_F(PresetLoadTest, ReadsFilesOfAnyNameAndLength) {
  store.Write("\xff\xfe.preset", TextOf("Strange", kUser));
  store.Write(std::string(248, 'n') + ".preset",
              TextOf("Long", kOther, R"({"audiochannellayout":[{"channellabel":1}]})",
                     R"(,"Note":")" + std::string(3 << 20, 'x') + "\""));
  EXPECT_THAT(NamesOf(store.Open()->GetPresets()), ElementsAre("Long", "Strange"));
}

}  // namespace
}  // namespace moxappsupport::presets
