#include "../../../../host/moxui/src/ui/EndlessMotion.h"

#include <gtest/gtest.h>

namespace moxui::ui {
namespace {

using Point = PointT<float>;

TEST(EndlessMotion, IsThePlatformsPlaceAtFirst) {
  EndlessMotion motion;
  EXPECT_EQ(motion.Follow({5, 6}), Point(5, 6));
  EXPECT_FALSE(motion.HasWarped());
}

TEST(EndlessMotion, GoesOnWhereThePlatformsPointerIsPutElsewhere) {
  EndlessMotion motion;
  motion.Follow({390, 10});
  motion.Warp({390, 10}, {200, 150});
  EXPECT_EQ(motion.Follow({200, 150}), Point(390, 10));
  EXPECT_EQ(motion.Follow({203, 148}), Point(393, 8));
  motion.Warp({203, 148}, {200, 150});
  EXPECT_EQ(motion.Follow({201, 150}), Point(394, 8));
  EXPECT_EQ(motion.GetOffset(), Point(193, -142));
}

TEST(EndlessMotion, CountsEventsThatWereOnTheirWay) {
  EndlessMotion motion;
  motion.Follow({390, 10});
  motion.Warp({390, 10}, {200, 150});
  EXPECT_EQ(motion.Follow({395, 10}), Point(395, 10));
  EXPECT_EQ(motion.Follow({398, 12}), Point(398, 12));
  EXPECT_TRUE(motion.IsWarpPending());
  // The pointer was put to the middle from there.
  EXPECT_EQ(motion.Follow({200, 150}), Point(398, 12));
  EXPECT_FALSE(motion.IsWarpPending());
  EXPECT_EQ(motion.Follow({210, 150}), Point(408, 12));
  // From now on all is told of the new place, however far it goes.
  EXPECT_EQ(motion.Follow({390, 150}), Point(588, 12));
}

TEST(EndlessMotion, TakesAWarpBackThatDidNotHappen) {
  EndlessMotion motion;
  motion.Follow({390, 10});
  motion.Warp({390, 10}, {200, 150});
  motion.UndoWarp();
  EXPECT_FALSE(motion.HasWarped());
  EXPECT_EQ(motion.Follow({399, 10}), Point(399, 10));
}

TEST(EndlessMotion, AllowsForAPointerThatIsPutBesideItsMark) {
  EndlessMotion motion;
  motion.Follow({390, 10});
  motion.Warp({390, 10}, {200, 150});
  motion.CorrectWarp({200, 150}, {199.5F, 150.25F});
  EXPECT_EQ(motion.Follow({199.5F, 150.25F}), Point(390, 10));
}

}  // namespace
}  // namespace moxui::ui
