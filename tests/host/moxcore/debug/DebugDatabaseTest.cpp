#include <moxcore/debug/DebugDatabase.h>

#include <gtest/gtest.h>

namespace moxcore::debug {
namespace {

TEST(DebugDatabase, GivesTheDefaultUntilAnEntryIsSet) {
  auto& database = DebugDatabase::Instance();
  EXPECT_EQ(database.GetEntry("Test.HideCursorDelayinMs", "800"), "800");
  database.SetEntry("Test.HideCursorDelayinMs", "0");
  EXPECT_EQ(database.GetEntry("Test.HideCursorDelayinMs", "800"), "0");
  database.SetEntry("Test.HideCursorDelayinMs", "50");
  EXPECT_EQ(database.GetEntry("Test.HideCursorDelayinMs", "800"), "50");
  database.RemoveEntry("Test.HideCursorDelayinMs");
  database.RemoveEntry("Test.HideCursorDelayinMs");
  EXPECT_EQ(database.GetEntry("Test.HideCursorDelayinMs", "800"), "800");
}

}  // namespace
}  // namespace moxcore::debug
