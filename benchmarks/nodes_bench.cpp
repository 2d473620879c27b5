// What a pointer's move, a change of hover and a repaint cost in a tree of many nodes, in terms of the same
// in a tree of a hundred: both must not depend on how many there are.
#include "Figure.h"

#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/UI_SubView.h>

#include <cstddef>
#include <memory>

namespace {

using moxui::PointT;
using moxui::RectT;

constexpr float kSide = 16;
constexpr int kRuns = 64;

class Tile : public moxui::ui::UI_SubView {
 public:
  void UI_Draw(moxui::scriber::Scriber* scriber) const override {
    scriber->GetSurface()->FillRect(UI_GetLocalRectF(moxui::ui::RectSpace::kOwn), {0.4F, 0.5F, 0.6F, 1});
  }
  bool UI_InvalidateOnMouseOverChange(bool) override { return repaints; }
  bool repaints = false;
};

// A square of so many tiles, some pixels of ground between them.
class Board {
 public:
  explicit Board(int columns)
      : mColumns(columns),
        mStage(std::make_unique<moxui::testing::Stage>(moxui::ExtentT<float>{
            static_cast<float>(columns) * kSide, static_cast<float>(columns) * kSide})) {
    for (int row = 0; row < columns; ++row) {
      for (int column = 0; column < columns; ++column) {
        auto tile = moxcore::utility::MakeIntrusive<Tile>();
        tile->UI_SetLocalRectF(
            {static_cast<float>(column) * kSide, static_cast<float>(row) * kSide, kSide - 2, kSide - 2});
        mStage->GetRootView().ChildPushBack(tile);
        mTiles.push_back(tile);
      }
    }
    mStage->PaintFrame();
  }

  void SetRepaints(bool repaints) {
    for (auto const& tile : mTiles) {
      tile->repaints = repaints;
    }
  }

  // Moves within one tile: no hover changes.
  void MoveWithin() {
    for (int run = 0; run < kRuns; ++run) {
      mStage->Move(Place(mColumns / 2, 2 + static_cast<float>(run % 8)));
    }
  }

  // Moves from tile to tile.
  void MoveAcross() {
    for (int run = 0; run < kRuns; ++run) {
      mStage->Move(Place(run % mColumns, 4));
    }
  }

  // Moves from tile to tile, which repaints the two.
  void MoveAndRepaint() {
    for (int run = 0; run < kRuns; ++run) {
      mStage->Move(Place(run % mColumns, 4));
      mStage->PaintFrame();
    }
  }

  // One tile changes and is repainted.
  void RepaintOne() {
    for (int run = 0; run < kRuns; ++run) {
      mTiles[static_cast<std::size_t>(run) % mTiles.size()]->UI_Invalidate();
      mStage->PaintFrame();
    }
  }

  // One tile goes to and fro, and is repainted.
  void ShiftOne() {
    auto const& tile = mTiles[mTiles.size() / 2];
    for (int run = 0; run < kRuns; ++run) {
      RectT<float> place = tile->UI_GetLocalRectF(moxui::ui::RectSpace::kParent);
      place.left += run % 2 == 0 ? 1.0F : -1.0F;
      tile->UI_SetLocalRectF(place);
      mStage->PaintFrame();
    }
  }

 private:
  PointT<float> Place(int column, float inset) const {
    return {static_cast<float>(column) * kSide + inset, static_cast<float>(mColumns / 2) * kSide + 4};
  }

  int mColumns;
  std::unique_ptr<moxui::testing::Stage> mStage;
  std::vector<moxcore::utility::IntrusivePtr<Tile>> mTiles;
};

void Compare(bench::Figures& figures, std::string const& name, Board& many, Board& few,
             void (Board::*work)()) {
  figures.Compare({.name = "nodes_" + name + "_10000_against_100",
                   .numerator = [&many, work] { (many.*work)(); },
                   .denominator = [&few, work] { (few.*work)(); },
                   .bar = 2.0,
                   .unit = "us",
                   .numeratorRuns = kRuns,
                   .denominatorRuns = kRuns});
}

}  // namespace

int main(int argc, char** argv) {
  bench::Figures figures(argc, argv);
  Board few(10);
  Board many(100);
  Compare(figures, "move", many, few, &Board::MoveWithin);
  Compare(figures, "hover", many, few, &Board::MoveAcross);
  few.SetRepaints(true);
  many.SetRepaints(true);
  Compare(figures, "hover_repaint", many, few, &Board::MoveAndRepaint);
  few.SetRepaints(false);
  many.SetRepaints(false);
  Compare(figures, "repaint", many, few, &Board::RepaintOne);
  Compare(figures, "shift", many, few, &Board::ShiftOne);
  return figures.Result();
}
