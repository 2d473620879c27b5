// Lists of presets that are converted on many threads. Without the toolkit, so that the thread sanitizer
// knows everything that runs.
#include <moxmediaui/Preset.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <any>
#include <chrono>
#include <cstdint>
#include <future>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

// A payload that tells on which thread it was read.
struct Traveller {
  std::uint64_t number = 0;
  std::thread::id thread;
};

// A payload of which all but the last wait for the last to be read.
struct Patient {
  std::uint64_t number = 0;
};
constexpr std::uint64_t kLast = 512;
std::optional<std::promise<void>> sLastIsRead;
std::shared_future<void> sAfterTheLast;

}  // namespace

template <>
struct moxcore::serialization::JSONConvert<Traveller> {
  static Traveller FromJSON(std::any const& value) {
    return {std::any_cast<std::uint64_t>(value), std::this_thread::get_id()};
  }
};

template <>
struct moxcore::serialization::JSONConvert<Patient> {
  static Patient FromJSON(std::any const& value) {
    auto const number = std::any_cast<std::uint64_t>(value);
    if (number == kLast) {
      sLastIsRead->set_value();
    } else if (sAfterTheLast.wait_for(std::chrono::seconds(60)) != std::future_status::ready) {
      throw std::runtime_error("the last element waits for the others");
    }
    return {number};
  }
};

namespace moxappsupport::presets {
namespace {

std::string ListOf(std::size_t count, std::size_t bad = ~std::size_t{0}) {
  std::string text = "[";
  for (std::size_t i = 0; i < count; ++i) {
    text += i == 0 ? "" : ",";
    text += R"({"Guid":"11111111-2222-4333-8444-555555555555","Type":"","Name":"p)" + std::to_string(i) +
            R"(","PresetData":)" + (i == bad ? "\"bad\"" : std::to_string(i)) + "}";
  }
  return text + "]";
}

template <class T>
std::vector<Preset<T>> Parse(std::string const& text) {
  return ParsePresetListText<T>(text.data(), text.size());
}

TEST(PresetListThreads, AreNotAskedUpTo512Elements) {
  auto const presets = Parse<Traveller>(ListOf(512));
  ASSERT_EQ(presets.size(), 512u);
  for (std::size_t i = 0; i < presets.size(); ++i) {
    EXPECT_EQ(presets[i].data.number, i);
    EXPECT_EQ(presets[i].data.thread, std::this_thread::get_id());
  }
}

TEST(PresetListThreads, KeepTheOrderOf513Elements) {
  auto const presets = Parse<Traveller>(ListOf(513));
  ASSERT_EQ(presets.size(), 513u);
  for (std::size_t i = 0; i < presets.size(); ++i) {
    EXPECT_EQ(presets[i].data.number, i);
    EXPECT_EQ(presets[i].name, moxcore::Utf8String("p" + std::to_string(i)));
  }
  // What is behind the 16 chunks of 32.
  EXPECT_EQ(presets[512].data.thread, std::this_thread::get_id());
}

// On one thread the first of 513 would wait in vain.
TEST(PresetListThreads, ReadTheChunksOf513ElementsBesideTheTail) {
  sAfterTheLast = sLastIsRead.emplace().get_future().share();
  auto const presets = Parse<Patient>(ListOf(kLast + 1));
  ASSERT_EQ(presets.size(), kLast + 1);
  EXPECT_TRUE(std::ranges::all_of(
      presets, [&, i = std::uint64_t{0}](auto const& preset) mutable { return preset.data.number == i++; }));
}

TEST(PresetListThreads, KeepTheOrderOfManyElements) {
  auto const presets = Parse<Traveller>(ListOf(20'000));
  ASSERT_EQ(presets.size(), 20'000u);
  for (std::size_t i = 0; i < presets.size(); ++i) {
    ASSERT_EQ(presets[i].data.number, i);
  }
}

TEST(PresetListThreads, HandOnWhatAnElementThrows) {
  for (std::size_t const bad : {0u, 31u, 300u, 511u, 512u}) {
    EXPECT_THROW(Parse<Traveller>(ListOf(513, bad)), std::bad_any_cast) << bad;
    EXPECT_THROW(Parse<Traveller>(ListOf(512, std::min<std::size_t>(bad, 511))), std::bad_any_cast) << bad;
  }
}

}  // namespace
}  // namespace moxappsupport::presets
