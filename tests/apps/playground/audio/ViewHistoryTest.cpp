#include "audio/ViewHistory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace playground {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int64_t kMillisecond = 1'000'000;

// A place that is told from others by its left edge alone.
ViewPlace At(double left) {
  ViewPlace place;
  place.view.SetWidth(100);
  place.view.SetFrames(1'000'000);
  place.view.Show(left, left + 1000.0);
  return place;
}

// A user who goes through places, and what undo brings back from the last of them.
class Traveller {
 public:
  void Go(double left, ViewStep step, std::int64_t milliseconds) {
    mTime += milliseconds * kMillisecond;
    ViewPlace const to = At(left);
    history.Note(mPlace, to, step, mTime);
    mPlace = to;
  }
  bool Undo() { return Take(history.Undo(mPlace)); }
  bool Redo() { return Take(history.Redo(mPlace)); }
  std::vector<double> UndoAll() {
    std::vector<double> lefts;
    while (Undo()) {
      lefts.push_back(Left());
    }
    return lefts;
  }
  double Left() const { return mPlace.view.Left(); }
  ViewPlace const& Place() const { return mPlace; }

  ViewHistory history;

 private:
  bool Take(std::optional<ViewPlace> const& place) {
    if (place) {
      mPlace = *place;
    }
    return place.has_value();
  }

  ViewPlace mPlace = At(0.0);
  std::int64_t mTime = 0;
};

struct Step {
  double left;
  ViewStep step;
  std::int64_t milliseconds;  // since the step before
};

struct Case {
  std::string name;
  std::vector<Step> steps;
  std::vector<double> undone;  // the places that undo brings back, one after another
};

class ViewHistoryCases : public testing::TestWithParam<Case> {};

TEST_P(ViewHistoryCases, BringBack) {
  Traveller traveller;
  for (Step const& step : GetParam().steps) {
    traveller.Go(step.left, step.step, step.milliseconds);
  }
  EXPECT_EQ(traveller.UndoAll(), GetParam().undone);
}

constexpr ViewStep kSingle = ViewStep::kSingle;
constexpr ViewStep kZoom = ViewStep::kZoom;
constexpr ViewStep kScroll = ViewStep::kScroll;
constexpr ViewStep kFollow = ViewStep::kFollow;

INSTANTIATE_TEST_SUITE_P(
    ViewHistory, ViewHistoryCases,
    testing::Values(Case{"Nothing", {}, {}},
                    Case{"SinglesAreSteps", {{1, kSingle, 1}, {2, kSingle, 1}, {3, kSingle, 1}}, {2, 1, 0}},
                    Case{"BurstIsOne", {{1, kZoom, 1}, {2, kZoom, 100}, {3, kZoom, 500}}, {0}},
                    Case{"PauseEndsABurst", {{1, kZoom, 1}, {2, kZoom, 100}, {3, kZoom, 501}}, {2, 0}},
                    Case{"OtherKindEndsABurst", {{1, kZoom, 1}, {2, kScroll, 1}, {3, kZoom, 1}}, {2, 1, 0}},
                    Case{"SingleEndsABurst", {{1, kZoom, 1}, {2, kSingle, 1}, {3, kZoom, 1}}, {2, 1, 0}},
                    Case{"LongBurstStaysOne",
                         {{1, kScroll, 1}, {2, kScroll, 400}, {3, kScroll, 400}, {4, kScroll, 400}},
                         {0}},
                    Case{"FollowingIsNoStep", {{1, kFollow, 1}, {2, kSingle, 1}, {3, kFollow, 1}}, {1}},
                    Case{"FollowingDoesNotEndABurst", {{1, kZoom, 1}, {2, kFollow, 1}, {3, kZoom, 1}}, {0}},
                    Case{"StandingStillIsNoStep", {{0, kSingle, 1}, {1, kSingle, 1}, {1, kSingle, 1}}, {0}}),
    [](auto const& named) { return named.param.name; });

TEST(ViewHistory, RedoGoesForthAgainUpToTheLastPlace) {
  Traveller traveller;
  traveller.Go(1, kSingle, 1);
  traveller.Go(2, kSingle, 1);
  EXPECT_FALSE(traveller.Redo());
  EXPECT_THAT(traveller.UndoAll(), ElementsAre(1.0, 0.0));
  EXPECT_TRUE(traveller.Redo());
  EXPECT_EQ(traveller.Left(), 1.0);
  EXPECT_TRUE(traveller.Redo());
  EXPECT_EQ(traveller.Left(), 2.0);
  EXPECT_FALSE(traveller.Redo());
}

TEST(ViewHistory, NewStepAfterUndoGivesUpWhatLayAhead) {
  Traveller traveller;
  traveller.Go(1, kSingle, 1);
  traveller.Go(2, kSingle, 1);
  traveller.Undo();
  traveller.Go(3, kSingle, 1);
  EXPECT_FALSE(traveller.history.CanRedo());
  EXPECT_THAT(traveller.UndoAll(), ElementsAre(1.0, 0.0));
}

TEST(ViewHistory, BurstAfterUndoIsAStepOfItsOwn) {
  Traveller traveller;
  traveller.Go(1, kZoom, 1);
  traveller.Go(2, kScroll, 1);
  traveller.Undo();
  traveller.Go(3, kScroll, 1);
  EXPECT_THAT(traveller.UndoAll(), ElementsAre(1.0, 0.0));
}

TEST(ViewHistory, DragIsOneStep) {
  Traveller traveller;
  traveller.history.BeginDrag(traveller.Place());
  traveller.Go(1, kSingle, 1);
  traveller.Go(2, kZoom, 900);
  EXPECT_FALSE(traveller.history.CanUndo());
  EXPECT_FALSE(traveller.Undo());
  traveller.history.EndDrag(traveller.Place());
  EXPECT_THAT(traveller.UndoAll(), ElementsAre(0.0));
}

TEST(ViewHistory, DragThereAndBackIsNoStepAndKeepsWhatLiesAhead) {
  Traveller traveller;
  traveller.Go(1, kSingle, 1);
  traveller.Undo();
  traveller.history.BeginDrag(traveller.Place());
  traveller.Go(5, kSingle, 1);
  traveller.Go(0, kSingle, 1);
  traveller.history.EndDrag(traveller.Place());
  EXPECT_FALSE(traveller.history.CanUndo());
  EXPECT_TRUE(traveller.history.CanRedo());
}

TEST(ViewHistory, DragsNest) {
  Traveller traveller;
  traveller.history.BeginDrag(traveller.Place());
  traveller.Go(1, kSingle, 1);
  traveller.history.BeginDrag(traveller.Place());
  traveller.Go(2, kSingle, 1);
  traveller.history.EndDrag(traveller.Place());
  traveller.Go(3, kSingle, 1);
  traveller.history.EndDrag(traveller.Place());
  traveller.history.EndDrag(traveller.Place());
  EXPECT_THAT(traveller.UndoAll(), ElementsAre(0.0));
}

TEST(ViewHistory, KeepsTheYoungestStepsOnly) {
  Traveller traveller;
  for (std::size_t i = 1; i <= ViewHistory::kMostSteps + 10; ++i) {
    traveller.Go(static_cast<double>(i), kSingle, 1);
  }
  auto const lefts = traveller.UndoAll();
  ASSERT_EQ(lefts.size(), ViewHistory::kMostSteps);
  EXPECT_EQ(lefts.back(), 10.0);
}

}  // namespace
}  // namespace playground
