#include "PresetStore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace moxappsupport::presets {
namespace {

using namespace layout_presets;

// Files for each directory that is loaded.
constexpr int kBatch = 100;

// How many files are tried; the script that tries them all says more.
int FileCount() {
  auto const* const count = std::getenv("MOX_BAD_PRESETS");
  return count == nullptr ? 400 : std::atoi(count);
}

class BadText {
 public:
  explicit BadText(unsigned seed) : mRandom(seed) {}

  std::string Next() {
    auto text = Valid();
    switch (Below(14)) {
      case 0:
        return text.substr(0, Below(text.size()));
      case 1:
        return text.substr(1 + Below(text.size() - 1));
      case 2:
        return Flipped(text, 1 + Below(8));
      case 3:
        return Noise(Below(4000));
      case 4:
        return Wide(text);
      case 5:
        return Nested();
      case 6:
        return Replaced(text, Number());
      case 7:
        return Replaced(text, Other());
      case 8:
        return WithoutAKey(text);
      case 9:
        return text + (Below(2) == 0 ? text : std::string(1 + Below(3), '\0') + "x");
      case 10:
        return text.insert(Below(text.size()), Noise(1 + Below(5)));
      case 11:
        return TwiceAKey(text);
      case 12:
        return R"({"SerializerWrappedObject":)" + Other() + "}";
      default:
        return Swapped(text);
    }
  }

 private:
  std::size_t Below(std::size_t limit) { return limit == 0 ? 0 : mRandom() % limit; }

  std::string Valid() {
    return TextOf("Name \u00e9", Guid::CreateUnique().AsUTF8String(),
                  R"({"audiochannellayout":[{"channellabel":100},{"channellabel":101}]})",
                  R"(,"Flags":2,"SortOrder":100,"Version":1)");
  }

  std::string Flipped(std::string text, std::size_t bits) {
    for (; bits > 0; --bits) {
      text[Below(text.size())] ^= static_cast<char>(1 << Below(8));
    }
    return text;
  }

  std::string Noise(std::size_t length) {
    std::string text(length, ' ');
    std::ranges::generate(text, [&] { return static_cast<char>(mRandom()); });
    return text;
  }

  static std::string Wide(std::string const& text) {
    std::string wide = "\xff\xfe";
    for (char const unit : text) {
      wide += unit;
      wide += '\0';
    }
    return wide;
  }

  std::string Nested() {
    std::string text;
    for (auto depth = 200 + Below(100'000); depth > 0; --depth) {
      text += Below(2) == 0 ? "[" : "{\"Guid\":";
    }
    return text;
  }

  std::string Number() {
    char const* const kNumbers[] = {
        "1e999", "-1e999", "1e-999", "99999999999999999999",  "-99999999999999999999", "0.5", "-0.0", "01",
        "1.",    "NaN",    "0x1f",   "1e99999999999999999999"};
    return Below(4) == 0 ? std::string(1 + Below(5000), '9') : kNumbers[Below(std::size(kNumbers))];
  }

  std::string Other() {
    char const* const kValues[] = {"null",         "true",       "[]",
                                   "{}",           "\"\"",       "\"\\ud800\"",
                                   "\"\xc0\x80\"", "[[]]",       "{\"channellabel\":{}}",
                                   "-1",           "\"\\u0000\""};
    return kValues[Below(std::size(kValues))];
  }

  // A value of some member becomes another.
  std::string Replaced(std::string text, std::string const& value) {
    std::vector<std::size_t> colons;
    for (auto at = text.find(':'); at != std::string::npos; at = text.find(':', at + 1)) {
      colons.push_back(at + 1);
    }
    auto const begin = colons[Below(colons.size())];
    auto const end = text.find_first_of(",}]", begin);
    return text.replace(begin, end - begin, value);
  }

  std::string WithoutAKey(std::string text) {
    char const* const kKeys[] = {"Guid", "Type", "Name", "PresetData", "audiochannellayout", "channellabel"};
    auto const at = text.find(std::string("\"") + kKeys[Below(std::size(kKeys))] + "\"");
    return text.replace(at + 1, 1, "_");
  }

  std::string TwiceAKey(std::string text) {
    char const* const kKeys[] = {"Guid", "Type", "Name", "PresetData", "Flags"};
    return text.insert(text.size() - 1,
                       std::string(",\"") + kKeys[Below(std::size(kKeys))] + "\":" + Other());
  }

  std::string Swapped(std::string text) {
    for (int i = 0; i < 3; ++i) {
      std::swap(text[Below(text.size())], text[Below(text.size())]);
    }
    return text;
  }

  std::mt19937 mRandom;
};

// At the beginning, in the middle and at the end of the directory.
std::vector<LayoutPreset> Siblings() {
  return {MakePreset("first", "0a000000-0000-4000-8000-000000000001", {1}, 0, 4000000001),
          MakePreset("middle", "0b000000-0000-4000-8000-000000000002", {1, 2}, 0, 4000000002),
          MakePreset("last", "0c000000-0000-4000-8000-000000000003", {1, 2, 3}, 0, 4000000003)};
}

TEST(BadPresets, NeverKeepTheirSiblingsFromBeingLoaded) {
  auto const siblings = Siblings();
  int skipped = 0;
  BadText bad(1);
  auto const count = FileCount();
  for (int done = 0; done < count; done += kBatch) {
    PresetStore const store;
    for (auto const& [file, preset] :
         {std::pair("0.preset", siblings[0]), std::pair("b050x.preset", siblings[1]),
          std::pair("z.preset", siblings[2])}) {
      store.Write(file, std::string(moxcore::serialization::GetJSONUTF8String(PresetToJSON(preset))));
    }
    for (int i = 0; i < kBatch; ++i) {
      store.Write("b" + std::to_string(1000 + i).substr(1) + ".preset", bad.Next());
    }
    auto const cache = store.Open();
    auto const presets = cache->GetPresets();
    for (auto const& sibling : siblings) {
      ASSERT_NE(std::ranges::find(presets, sibling), presets.end()) << "behind file " << done;
    }
    ASSERT_EQ(presets.size() + cache->GetSkippedFiles().size(), siblings.size() + kBatch);
    skipped += static_cast<int>(cache->GetSkippedFiles().size());
  }
  // Some changes leave a preset that can be read.
  EXPECT_GT(skipped, count * 3 / 4);
}

}  // namespace
}  // namespace moxappsupport::presets
