#include "audio/SelectionZoom.h"

#include <gtest/gtest.h>

namespace playground {
namespace {

class SelectionZoomTest : public testing::Test {
 protected:
  SelectionZoomTest() {
    view.SetWidth(100);
    view.SetFrames(100'000);
    view.Show(10'000.0, 50'000.0);
    selection.SetFrames(100'000);
    selection.Select(20'000, 30'000);
  }
  bool Toggle() { return Take(zoom.Toggle(view, selection)); }
  bool Back() { return Take(zoom.Back(view)); }
  bool Take(std::optional<Viewport> const& target) {
    view = target.value_or(view);
    return target.has_value();
  }

  SelectionZoom zoom;
  Viewport view;
  SampleSelection selection;
};

TEST_F(SelectionZoomTest, GoesToTheSelectionAndBackAndThereAgain) {
  Viewport const before = view;
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(Toggle());
    EXPECT_EQ(view.Left(), 20'000.0);
    EXPECT_EQ(view.VisibleSamples(), 10'000.0);
    EXPECT_TRUE(Toggle());
    EXPECT_EQ(view, before);
  }
}

TEST_F(SelectionZoomTest, BackIsAWayForOnce) {
  Viewport const before = view;
  EXPECT_FALSE(Back());
  Toggle();
  EXPECT_TRUE(Back());
  EXPECT_EQ(view, before);
  EXPECT_FALSE(Back());
}

TEST_F(SelectionZoomTest, ViewMovedSinceGoesToTheSelectionAgain) {
  Toggle();
  view.ScrollBy(20.0);
  Viewport const moved = view;
  EXPECT_TRUE(Toggle());
  EXPECT_EQ(view.Left(), 20'000.0);
  EXPECT_TRUE(Toggle());
  EXPECT_EQ(view, moved);
}

TEST_F(SelectionZoomTest, OtherSelectionIsGoneToFromTheFirst) {
  Toggle();
  selection.Select(22'000, 23'000);
  EXPECT_TRUE(Toggle());
  EXPECT_EQ(view.Left(), 22'000.0);
  EXPECT_TRUE(Toggle());
  EXPECT_EQ(view.Left(), 20'000.0);
}

TEST_F(SelectionZoomTest, WithoutASelectionOnlyTheWayBackIsThere) {
  Viewport const before = view;
  selection.Clear();
  EXPECT_FALSE(zoom.CanToggle(selection));
  EXPECT_FALSE(Toggle());
  selection.Select(20'000, 30'000);
  Toggle();
  selection.Clear();
  EXPECT_TRUE(zoom.CanToggle(selection));
  EXPECT_TRUE(Toggle());
  EXPECT_EQ(view, before);
}

TEST_F(SelectionZoomTest, WhoeverShowsTheSelectionAnotherWayGoesBackToTheWhole) {
  view.Show(20'000.0, 30'000.0);
  EXPECT_TRUE(Toggle());
  EXPECT_TRUE(view.ShowsAll());
}

TEST_F(SelectionZoomTest, ViewThatGrewWithItsWindowStillGoesBack) {
  Toggle();
  Viewport const zoomed = view;
  view.SetWidth(120);
  zoom.Follow(zoomed, view);
  EXPECT_TRUE(Toggle());
  EXPECT_EQ(view.Left(), 10'000.0);
  EXPECT_DOUBLE_EQ(view.VisibleSamples(), 40'000.0);
  EXPECT_EQ(view.Width(), 120);
}

}  // namespace
}  // namespace playground
