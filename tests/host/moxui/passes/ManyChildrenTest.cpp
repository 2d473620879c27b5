#include "LoggingNode.h"

#include <moxui/testing/Stage.h>

#include <gmock/gmock.h>

#include <cmath>
#include <random>

namespace moxui {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;

/// Says how often it was drawn, and reaches out of its rectangle.
class Tile : public ui::UI_SubView {
 public:
  void UI_Draw(scriber::Scriber*) const override { ++drawCount; }
  PaddingT<float> UI_GetDrawOverhang() const override { return overhang; }

  mutable int drawCount = 0;
  PaddingT<float> overhang;
};

/// Many tiles at random places, and what a plain walk over all of them would find.
class ManyChildren : public ::testing::Test {
 protected:
  ManyChildren() {
    for (int i = 0; i < 400; ++i) {
      auto tile = MakeIntrusive<Tile>();
      tile->UI_SetLocalRectF(RandomRect());
      if (i % 7 == 0) {
        tile->overhang = {Random(10), Random(10), Random(10), Random(10)};
      }
      stage.GetRootView().ChildPushBack(tile);
      tiles.push_back(tile);
    }
    stage.PaintFrame();
  }

  float Random(float below) { return std::uniform_real_distribution<float>(0, below)(random); }
  RectT<float> RandomRect() {
    bool const isLarge = Random(1) < 0.02F;
    return {Random(380) - 20, Random(280) - 20, Random(isLarge ? 300 : 30), Random(isLarge ? 300 : 30)};
  }

  ui::UI_Node* PlainHit(PointT<float> point) {
    for (auto child = stage.GetRootView().ChildEnd(); child != stage.GetRootView().ChildBegin();) {
      --child;
      if ((*child)->UI_IsShown() && (*child)->UI_GetLocalRectF(ui::RectSpace::kParent).Contains(point)) {
        return child->Get();
      }
    }
    return stage.GetRoot();
  }

  void ExpectSameHits() {
    for (int i = 0; i < 200; ++i) {
      PointT<float> const point{Random(400), Random(300)};
      ASSERT_EQ(stage.GetTree().FindNode(point), PlainHit(point)) << point.x << ", " << point.y;
    }
  }

  void ExpectSamePaint() {
    stage.PaintFrame();
    for (int i = 0; i < 50; ++i) {
      RectT<float> const rect{std::floor(Random(390)), std::floor(Random(290)), 5, 5};
      for (auto const& tile : tiles) {
        tile->drawCount = 0;
      }
      stage.GetTree().AddDamage(rect);
      stage.PaintFrame();
      for (auto const& tile : tiles) {
        bool const isThere = tile->UI_GetParentNode() != nullptr && tile->UI_IsShown();
        RectT<float> const place = tile->UI_GetLocalRectF(ui::RectSpace::kParent).Grown(tile->overhang);
        ASSERT_EQ(tile->drawCount > 0, isThere && place.Intersects(rect));
      }
    }
  }

  std::mt19937 random{42};
  testing::Stage stage{{400, 300}};
  std::vector<IntrusivePtr<Tile>> tiles;
};

TEST_F(ManyChildren, AreHitAsByAPlainWalk) {
  ExpectSameHits();
}

TEST_F(ManyChildren, ArePaintedAsByAPlainWalk) {
  ExpectSamePaint();
}

TEST_F(ManyChildren, AreFoundAfterTheyHaveMoved) {
  for (int round = 0; round < 5; ++round) {
    for (auto const& tile : tiles) {
      if (Random(1) < 0.4F) {
        tile->UI_SetLocalRectF(RandomRect());
      }
    }
    ExpectSameHits();
  }
  ExpectSamePaint();
}

TEST_F(ManyChildren, AreFoundFarFromWhereTheyWere) {
  for (auto const& tile : tiles) {
    tile->UI_SetLocalRectF({Random(100) + 300, Random(100) + 200, 10, 10});
  }

  ExpectSameHits();
  ExpectSamePaint();
}

TEST_F(ManyChildren, AreFoundAfterSomeHaveGoneComeOrChangedTheirOrder) {
  for (std::size_t i = 0; i < tiles.size(); ++i) {
    if (i % 3 == 0) {
      stage.GetRootView().ChildRemove(tiles[i]);
    } else if (i % 5 == 0) {
      stage.GetRootView().ChildPushBack(tiles[i]);
    } else if (i % 11 == 0) {
      stage.GetRootView().ChildInsert(i / 3, tiles[i]);
    } else if (i % 13 == 0) {
      tiles[i]->UI_Hide();
    }
  }
  ExpectSameHits();
  for (std::size_t i = 0; i < tiles.size(); i += 3) {
    stage.GetRootView().ChildPushBack(tiles[i]);
  }

  ExpectSameHits();
  ExpectSamePaint();
}

TEST_F(ManyChildren, AreFoundByWhatTheirOwnChildrenReach) {
  auto const far = MakeIntrusive<Tile>();
  far->UI_SetLocalRectF({500, 0, 20, 20});
  tiles[3]->UI_SetLocalRectF({10, 10, 5, 5});
  tiles[3]->ChildPushBack(far);
  stage.GetRootView().ChildPushBack(tiles[3]);
  tiles[3]->UI_SetLocalRectF({-400, 100, 5, 5});

  EXPECT_EQ(stage.GetTree().FindNode({105, 105}), far.Get());
  far->UI_SetLocalRectF({600, 0, 20, 20});
  EXPECT_EQ(stage.GetTree().FindNode({205, 105}), far.Get());
}

}  // namespace
}  // namespace moxui
