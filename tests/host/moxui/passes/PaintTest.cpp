#include "LoggingNode.h"

#include <moxui/testing/Stage.h>

#include <gmock/gmock.h>

#include <utility>

namespace moxui {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

ColorRGBA const kRed{1, 0, 0, 1};
ColorRGBA const kGreen{0, 1, 0, 1};

std::uint32_t PixelAt(platform::Pixels const& pixels, int x, int y) {
  auto const at = static_cast<std::size_t>((y * pixels.width + x) * 4);
  return static_cast<std::uint32_t>(pixels.bytes[at + 2]) << 16 |
         static_cast<std::uint32_t>(pixels.bytes[at + 1]) << 8 | pixels.bytes[at];
}

constexpr std::uint32_t kRedPixel = 0xff0000;
constexpr std::uint32_t kGreenPixel = 0x00ff00;
constexpr std::uint32_t kBlackPixel = 0;

class Paint : public ::testing::Test {
 protected:
  Log log;
  testing::Stage stage{{100, 80}};
  LoggingNodePtr outer = AddNode(stage.GetRootView(), log, "outer", {10, 10, 60, 60});
  LoggingNodePtr inner = AddNode(*outer, log, "inner", {5, 5, 20, 20});
};

TEST_F(Paint, DrawsChildrenInOwnCoordinatesOverTheirParent) {
  outer->colour = kRed;
  inner->colour = kGreen;

  auto const picture = stage.TakePicture();

  EXPECT_EQ(PixelAt(picture, 9, 9), kBlackPixel);
  EXPECT_EQ(PixelAt(picture, 10, 10), kRedPixel);
  EXPECT_EQ(PixelAt(picture, 15, 15), kGreenPixel);
  EXPECT_EQ(PixelAt(picture, 34, 34), kGreenPixel);
  EXPECT_EQ(PixelAt(picture, 35, 35), kRedPixel);
}

TEST_F(Paint, HoldsNoFrameWithinAPictureOfAll) {
  inner->onDraw = [this](scriber::Scriber*) { inner->UI_UpdateNow(1); };
  inner->UI_Invalidate();

  stage.TakePicture();

  EXPECT_EQ(inner->drawCount, 1);
}

TEST_F(Paint, DrawsTheChildrenOnce) {
  stage.PaintFrame();

  EXPECT_EQ(inner->drawCount, 1);
}

TEST_F(Paint, DrawsLaterChildrenOnTop) {
  inner->colour = kRed;
  auto const above = AddNode(*outer, log, "above", {5, 5, 20, 20});
  above->colour = kGreen;

  EXPECT_EQ(PixelAt(stage.TakePicture(), 16, 16), kGreenPixel);
}

TEST_F(Paint, LeavesHiddenNodesOut) {
  inner->UI_Hide();

  stage.PaintFrame();

  EXPECT_EQ(inner->drawCount, 0);
}

TEST_F(Paint, DoesNotClipANodeToItsRectangleUnlessItAsks) {
  inner->onDraw = [](scriber::Scriber* scriber) {
    scriber->GetSurface()->FillRect({-10, 0, 10, 20}, kGreen);
  };
  EXPECT_EQ(PixelAt(stage.TakePicture(), 7, 20), kGreenPixel);

  inner->onDraw = [this](scriber::Scriber* scriber) {
    inner->UI_ClipToSelf(scriber);
    scriber->GetSurface()->FillRect({-10, 0, 10, 20}, kGreen);
  };
  EXPECT_EQ(PixelAt(stage.TakePicture(), 7, 20), kBlackPixel);
}

TEST_F(Paint, ClipsWhatANodeDrawsToTheRectangleThatItAsksFor) {
  inner->onDraw = [this](scriber::Scriber* scriber) {
    inner->UI_ClipToRect(scriber, {4, 6, 8, 10});
    scriber->GetSurface()->FillRect({0, 0, 20, 20}, kGreen);
  };
  auto const picture = stage.TakePicture();
  // The node's corner is at 15, 15.
  for (auto const& [x, y] : {std::pair(19, 21), std::pair(26, 30)}) {
    EXPECT_EQ(PixelAt(picture, x, y), kGreenPixel) << x << " " << y;
  }
  for (auto const& [x, y] : {std::pair(18, 21), std::pair(19, 20), std::pair(27, 30), std::pair(26, 31)}) {
    EXPECT_EQ(PixelAt(picture, x, y), kBlackPixel) << x << " " << y;
  }
}

TEST_F(Paint, ClipsChildrenOfANodeThatClips) {
  inner->UI_SetLocalRectF({-5, 5, 20, 20});
  inner->colour = kGreen;
  EXPECT_EQ(PixelAt(stage.TakePicture(), 7, 20), kGreenPixel);

  outer->UI_SetClipsChildren(true);

  EXPECT_EQ(PixelAt(stage.TakePicture(), 7, 20), kBlackPixel);
  EXPECT_EQ(PixelAt(stage.TakePicture(), 12, 20), kGreenPixel);
}

TEST_F(Paint, RestoresTheStateAfterEachNode) {
  auto const next = AddNode(*outer, log, "next", {30, 5, 20, 20});
  std::vector<int> states;
  inner->onDraw = [](scriber::Scriber* scriber) {
    scriber->GetSurface()->SetSmoothing(scriber::Smoothing::kOff);
    scriber->GetSurface()->SetDrawingMode(scriber::DrawingMode::kMedia);
    scriber->GetSurface()->ClipToRect({0, 0, 1, 1});
    scriber->GetSurface()->Translate({100, 100});
  };
  next->onDraw = [&](scriber::Scriber* scriber) {
    states = {static_cast<int>(scriber->GetSurface()->GetSmoothing()),
              static_cast<int>(scriber->GetSurface()->GetDrawingMode())};
  };
  next->colour = kGreen;

  auto const picture = stage.TakePicture();

  EXPECT_THAT(states, ElementsAre(1, 1));
  EXPECT_EQ(PixelAt(picture, 45, 20), kGreenPixel);
}

TEST_F(Paint, LetsACustomFunctionDrawInPlaceOfTheNode) {
  ui::UI_Node* drawn = nullptr;
  outer->UI_SetCustomDrawFunction([&](ui::UI_Node* node, scriber::Scriber* scriber) {
    drawn = node;
    scriber->GetSurface()->FillRect({0, 0, 5, 5}, kGreen);
  });

  auto const picture = stage.TakePicture();

  EXPECT_EQ(drawn, outer.Get());
  EXPECT_EQ(outer->drawCount, 0);
  EXPECT_EQ(inner->drawCount, 0);
  EXPECT_EQ(PixelAt(picture, 12, 12), kGreenPixel);
}

TEST_F(Paint, ANewCustomFunctionReplacesTheOldOne) {
  int first = 0;
  int second = 0;
  outer->UI_SetCustomDrawFunction([&](ui::UI_Node*, scriber::Scriber*) { ++first; });
  outer->UI_SetCustomDrawFunction([&](ui::UI_Node*, scriber::Scriber*) { ++second; });

  stage.PaintFrame();

  EXPECT_EQ(first, 0);
  EXPECT_EQ(second, 1);
}

TEST_F(Paint, GoesToAnySurface) {
  outer->colour = kRed;
  auto const target = platform::NewPaintTarget(60, 60, 1);

  ui::PaintNode(*outer, target->BeginPaint());
  target->EndPaint();

  EXPECT_EQ(PixelAt(target->GetPixels(), 0, 0), kRedPixel);
  EXPECT_EQ(PixelAt(target->GetPixels(), 59, 59), kRedPixel);
}

TEST_F(Paint, FillsTheSameNodesAtScaleTwo) {
  outer->colour = kRed;

  auto const picture = stage.TakePicture(2);

  EXPECT_EQ(picture.width, 200);
  EXPECT_EQ(PixelAt(picture, 19, 20), kBlackPixel);
  EXPECT_EQ(PixelAt(picture, 20, 20), kRedPixel);
  EXPECT_EQ(PixelAt(picture, 139, 139), kRedPixel);
  EXPECT_EQ(PixelAt(picture, 140, 139), kBlackPixel);
}

class Damage : public Paint {
 protected:
  Damage() {
    stage.PaintFrame();
    outer->drawCount = inner->drawCount = 0;
  }
  auto Rects() { return stage.GetTree().GetDamage(); }
};

TEST_F(Damage, IsTheNodesRectangle) {
  inner->UI_Invalidate();

  EXPECT_THAT(Rects(), ElementsAre(RectT<float>(15, 15, 20, 20)));
  EXPECT_TRUE(stage.FrameRequested());
}

TEST_F(Damage, GrowsByTheOverhang) {
  inner->overhang = {1, 2, 3, 4};

  inner->UI_Invalidate();

  EXPECT_THAT(Rects(), ElementsAre(RectT<float>(14, 13, 24, 26)));
}

TEST_F(Damage, OfOverhangIsPaintedByItsNode) {
  inner->overhang = {10, 0, 0, 0};
  inner->UI_Invalidate();
  stage.PaintFrame();
  inner->drawCount = 0;

  outer->UI_Invalidate({-8, 10, 2, 2});
  stage.PaintFrame();
  EXPECT_EQ(inner->drawCount, 0);
  outer->UI_Invalidate({-1, 10, 2, 2});
  stage.PaintFrame();
  EXPECT_EQ(inner->drawCount, 1);
}

TEST_F(Damage, IsTheGivenRectangleInOwnCoordinates) {
  inner->UI_Invalidate({2, 3, 4, 5});

  EXPECT_THAT(Rects(), ElementsAre(RectT<float>(17, 18, 4, 5)));
}

TEST_F(Damage, IsNoneForHiddenNodes) {
  outer->UI_Hide();
  stage.PaintFrame();

  inner->UI_Invalidate();

  EXPECT_THAT(Rects(), IsEmpty());
}

TEST_F(Damage, EndsAtTheWindowsEdges) {
  outer->UI_Invalidate({-100, -100, 1000, 1000});

  EXPECT_THAT(Rects(), ElementsAre(RectT<float>(0, 0, 100, 80)));
}

TEST_F(Damage, EndsAtClips) {
  outer->UI_SetClipsChildren(true);
  stage.PaintFrame();

  inner->UI_Invalidate({-100, 0, 200, 10});

  EXPECT_THAT(Rects(), ElementsAre(RectT<float>(10, 15, 60, 10)));
}

TEST_F(Damage, IsAllThatIsPaintedAnew) {
  auto const apart = AddNode(stage.GetRootView(), log, "apart", {80, 0, 10, 10});
  stage.PaintFrame();
  apart->drawCount = outer->drawCount = inner->drawCount = 0;
  outer->colour = kRed;

  inner->UI_Invalidate();
  stage.PaintFrame();

  EXPECT_EQ(inner->drawCount, 1);
  EXPECT_EQ(apart->drawCount, 0);
  EXPECT_EQ(PixelAt(stage.GetFramePixels(), 16, 16), kRedPixel);
  EXPECT_EQ(PixelAt(stage.GetFramePixels(), 12, 12), kBlackPixel);
}

TEST_F(Damage, OfTwoPlacesLeavesWhatLiesBetweenAlone) {
  outer->UI_Invalidate({0, 0, 5, 5});
  outer->UI_Invalidate({50, 50, 5, 5});
  outer->colour = kRed;

  EXPECT_EQ(Rects().size(), 2u);
  stage.PaintFrame();

  EXPECT_EQ(PixelAt(stage.GetFramePixels(), 12, 12), kRedPixel);
  EXPECT_EQ(PixelAt(stage.GetFramePixels(), 40, 40), kBlackPixel);
  EXPECT_EQ(PixelAt(stage.GetFramePixels(), 62, 62), kRedPixel);
}

TEST_F(Damage, JoinsRectanglesThatMeetAndKeepsAHandful) {
  outer->UI_Invalidate({0, 0, 20, 20});
  outer->UI_Invalidate({10, 10, 20, 20});
  EXPECT_THAT(Rects(), ElementsAre(RectT<float>(10, 10, 30, 30)));

  for (float y = 0; y < 80; y += 8) {
    for (float x = 0; x < 100; x += 8) {
      stage.GetTree().AddDamage({x, y, 1, 1});
    }
  }
  EXPECT_LE(Rects().size(), 8u);
}

TEST_F(Damage, CoversBothPlacesOfANodeThatMoved) {
  inner->UI_SetLocalRectF({35, 35, 20, 20});

  EXPECT_THAT(Rects(), ElementsAre(RectT<float>(15, 15, 20, 20), RectT<float>(45, 45, 20, 20)));
}

TEST_F(Damage, OfAMoveTakesChildrenOutsideAlong) {
  inner->UI_SetLocalRectF({70, 0, 10, 10});
  stage.PaintFrame();

  outer->UI_SetLocalRectF({0, 10, 60, 60});

  EXPECT_TRUE(Rects()[0].Contains(RectT<float>(80, 10, 10, 10)));
}

TEST_F(Damage, IsNoneForAnEqualRectangle) {
  inner->UI_SetLocalRectF({5, 5, 20, 20});

  EXPECT_THAT(Rects(), IsEmpty());
  EXPECT_FALSE(stage.FrameRequested());
}

TEST_F(Damage, ComesWithShowingAndHiding) {
  inner->UI_Hide();
  EXPECT_THAT(Rects(), ElementsAre(RectT<float>(15, 15, 20, 20)));
  stage.PaintFrame();
  inner->UI_Hide();
  EXPECT_THAT(Rects(), IsEmpty());
  inner->UI_Show();
  EXPECT_THAT(Rects(), ElementsAre(RectT<float>(15, 15, 20, 20)));
}

TEST_F(Damage, ComesWithAddingAndRemovingChildren) {
  auto const child = AddNode(*outer, log, "child", {40, 40, 5, 5});
  EXPECT_THAT(Rects(), ElementsAre(RectT<float>(50, 50, 5, 5)));
  stage.PaintFrame();
  outer->ChildRemove(child);
  EXPECT_THAT(Rects(), ElementsAre(RectT<float>(50, 50, 5, 5)));
}

TEST_F(Damage, MadeWhilePaintingWaitsForTheNextFrame) {
  outer->onDraw = [this](scriber::Scriber*) { inner->UI_SetLocalRectF({6, 6, 20, 20}); };
  outer->UI_Invalidate();

  stage.PaintFrame();

  EXPECT_THAT(Rects(), ElementsAre(RectT<float>(15, 15, 21, 21)));
  EXPECT_TRUE(stage.FrameRequested());
  stage.PaintFrame();
  EXPECT_THAT(Rects(), IsEmpty());
  EXPECT_FALSE(stage.FrameRequested());
}

TEST_F(Damage, AsksForOneFrameOnly) {
  int const before = stage.FrameRequestCount();

  inner->UI_Invalidate();
  outer->UI_Invalidate();

  EXPECT_EQ(stage.FrameRequestCount(), before + 1);
}

TEST_F(Damage, IsRoundedOutToDevicePixels) {
  testing::Stage fine({20, 20});
  fine.SetScale(2);
  Log none;
  auto const node = AddNode(fine.GetRootView(), none, "node", {0, 0, 20, 20});
  fine.PaintFrame();

  node->UI_Invalidate({1.2F, 1.2F, 1, 1});
  fine.PaintFrame();

  EXPECT_EQ(node->clip, RectT<float>(1, 1, 1.5F, 1.5F));
}

TEST_F(Damage, IsPaintedAtOnceByUpdateNow) {
  inner->UI_Invalidate();

  inner->UI_UpdateNow(ui::kUpdateAll);

  EXPECT_EQ(inner->drawCount, 1);
  EXPECT_THAT(Rects(), IsEmpty());
}

TEST_F(Damage, AskedForWhilePaintingIsNotPaintedInside) {
  outer->onDraw = [this](scriber::Scriber*) {
    inner->UI_Invalidate();
    inner->UI_UpdateNow();
  };
  outer->UI_Invalidate();

  stage.PaintFrame();

  EXPECT_EQ(inner->drawCount, 1);
  EXPECT_EQ(Rects().size(), 1u);
}

TEST_F(Damage, OfAHiddenViewIsNoLargerThanWhatItShowed) {
  inner->UI_SetLocalRectF({50, 50, 20, 20});
  inner->UI_SetLocalRectF({5, 5, 20, 20});
  stage.PaintFrame();

  outer->UI_Hide();

  EXPECT_THAT(Rects(), ElementsAre(RectT<float>(10, 10, 60, 60)));
}

TEST_F(Damage, OfATreeWithoutTheNodeIsNone) {
  auto const loose = moxcore::utility::MakeIntrusive<LoggingNode>(log, "loose");

  loose->UI_SetLocalRectF({0, 0, 10, 10});
  loose->UI_Invalidate();
  loose->UI_UpdateNow();

  EXPECT_THAT(Rects(), IsEmpty());
}

}  // namespace
}  // namespace moxui
