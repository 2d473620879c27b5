#include "audio/SampleSelection.h"

#include <gtest/gtest.h>

namespace playground {
namespace {

SampleSelection Of(std::int64_t frames) {
  SampleSelection selection;
  selection.SetFrames(frames);
  return selection;
}

TEST(SampleSelection, IsAPlaceAtTheBeginningAtFirst) {
  SampleSelection const selection = Of(1000);
  EXPECT_TRUE(selection.IsEmpty());
  EXPECT_EQ(selection.Head(), 0);
}

TEST(SampleSelection, ReachesFromTheAnchorToTheHeadBothWays) {
  SampleSelection selection = Of(1000);
  selection.PlaceAt(400);
  selection.ExtendTo(700);
  EXPECT_EQ(selection.Left(), 400);
  EXPECT_EQ(selection.Width(), 300);
  selection.ExtendTo(100);
  EXPECT_EQ(selection.Left(), 100);
  EXPECT_EQ(selection.Width(), 300);
}

TEST(SampleSelection, StaysWithinTheSound) {
  SampleSelection selection = Of(1000);
  selection.Select(-50, 5000);
  EXPECT_EQ(selection.Left(), 0);
  EXPECT_EQ(selection.Width(), 1000);
}

TEST(SampleSelection, ClearedKeepsThePlaceOfItsHead) {
  SampleSelection selection = Of(1000);
  selection.Select(200, 300);
  selection.Clear();
  EXPECT_TRUE(selection.IsEmpty());
  EXPECT_EQ(selection.Head(), 300);
}

TEST(SampleSelection, IsTakenAtItsNearerEnd) {
  SampleSelection selection = Of(1000);
  selection.Select(200, 600);
  selection.TakeNearerEnd(250);
  selection.ExtendTo(250);
  EXPECT_EQ(selection.Left(), 250);
  EXPECT_EQ(selection.Width(), 350);
  selection.TakeNearerEnd(590);
  selection.ExtendTo(590);
  EXPECT_EQ(selection.Left(), 250);
  EXPECT_EQ(selection.Width(), 340);
}

TEST(SampleSelection, EndsWithItsSound) {
  SampleSelection selection = Of(1000);
  selection.SelectAll();
  EXPECT_EQ(selection.Width(), 1000);
  selection.SetFrames(10);
  EXPECT_TRUE(selection.IsEmpty());
}

}  // namespace
}  // namespace playground
