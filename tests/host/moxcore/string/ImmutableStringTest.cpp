#include <moxcore/string/ImmutableString.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>
#include <unordered_set>
#include <vector>

namespace moxcore {
namespace {

auto const sStation = ImmutableString::_PrivateCreateStatic("moxcore.test.station");

TEST(ImmutableString, IsOneObjectForEqualTexts) {
  auto const a = ImmutableString::Create("abc");
  auto const b = ImmutableString::Create(std::string("ab") + "c");
  EXPECT_EQ(a, b);
  EXPECT_EQ(a.data(), b.data());
  EXPECT_NE(a, ImmutableString::Create("abd"));
  EXPECT_EQ(a.ToUTF8String(), "abc");
  EXPECT_EQ(a.size(), 3u);
  EXPECT_STREQ(a.data(), "abc");
}

TEST(ImmutableString, MadeInStaticInitialisationIsTheSame) {
  EXPECT_EQ(sStation, ImmutableString::Create("moxcore.test.station"));
}

TEST(ImmutableString, IsEmptyByDefault) {
  ImmutableString const none;
  EXPECT_EQ(none, ImmutableString::Create(""));
  EXPECT_EQ(none.size(), 0u);
  EXPECT_TRUE(none.empty());
  EXPECT_STREQ(none.data(), "");
  EXPECT_EQ(none.ToUTF8String(), "");
}

TEST(ImmutableString, KeepsNulCharacters) {
  auto const text = ImmutableString::Create(std::string_view("a\0b", 3));
  EXPECT_EQ(text.size(), 3u);
  EXPECT_NE(text, ImmutableString::Create("a"));
}

TEST(ImmutableString, OrdersByTheAddressOfTheText) {
  std::vector<ImmutableString> texts;
  for (int i = 0; i < 100; ++i) {
    texts.push_back(ImmutableString::Create("order " + std::to_string(i)));
  }
  std::ranges::sort(texts);
  EXPECT_TRUE(std::ranges::is_sorted(texts, std::less<void const*>(),
                                     [](ImmutableString text) -> void const* { return text.data(); }));
  EXPECT_LT(ImmutableString(), texts.front());
}

TEST(ImmutableString, Hashes) {
  std::unordered_set<ImmutableString> const set{ImmutableString::Create("a"), ImmutableString::Create("b"),
                                                ImmutableString::Create("a")};
  EXPECT_EQ(set.size(), 2u);
}

TEST(ImmutableString, IsOneObjectWhenThreadsMakeItAtOnce) {
  constexpr int kThreads = 4;
  constexpr int kTexts = 2000;
  std::vector<std::vector<ImmutableString>> made(kThreads);
  std::vector<std::thread> threads;
  for (auto& texts : made) {
    threads.emplace_back([&texts] {
      for (int i = 0; i < kTexts; ++i) {
        texts.push_back(ImmutableString::Create("race " + std::to_string(i)));
      }
    });
  }
  for (auto& thread : threads) {
    thread.join();
  }
  for (auto const& texts : made) {
    EXPECT_EQ(texts, made.front());
  }
  EXPECT_EQ(made.front()[1999].ToUTF8String(), "race 1999");
}

}  // namespace
}  // namespace moxcore
