// What a frame of scrolling costs in a tree of a hundred thousand rows, in terms of the same in one of a
// hundred: it must not depend on how many there are.
#include "Figure.h"

#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/controls/UI_MultiColumnTree.h>
#include <moxui/controls/UI_MultiColumnTreeHeaderRow.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/testing/Stage.h>

#include <cmath>
#include <cstdint>
#include <memory>
#include <string>

namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using moxui::controls::UI_MultiColumnTree;
using moxui::controls::UI_MultiColumnTreeHeaderRow;
using moxui::controls::UI_MultiColumnTreeRow;

constexpr int kRuns = 64;
constexpr float kWidth = 360;
constexpr float kHeight = 420;

moxcore::Utf16String Number(std::int64_t number) {
  std::string const text = std::to_string(number);
  return {text.begin(), text.end()};
}

// A tree of so many rows in three columns under a header row. With nodes, a row gets a button when it comes
// into sight for the first time and keeps it.
class List {
 public:
  List(int rows, bool holdsNodes)
      : mStage(std::make_unique<moxui::testing::Stage>(moxui::ExtentT<float>{kWidth, kHeight})),
        mTree(MakeIntrusive<UI_MultiColumnTree>()) {
    mTree->SetAllowChildren(false);
    mTree->SetNumberOfColumns(3);
    auto const header = MakeIntrusive<UI_MultiColumnTreeHeaderRow>(mTree.Get());
    header->SetColumnName(0, u"Take");
    mTree->SetCellTextCallback([this](UI_MultiColumnTreeRow* row, int column) {
      return column == 2 ? moxcore::Utf16String() : Number(mTree->GetRowIndex(row) * (column + 1));
    });
    if (holdsNodes) {
      mTree->SetRowVisibilityChangedCallback([this](UI_MultiColumnTreeRow* row) {
        if (mTree->IsRowVisible(row) && row->GetCellView(2)->ChildSize() == 0) {
          auto const button = MakeIntrusive<moxui::controls::UI_TextButton>(u"Play");
          button->UI_SetLocalRectF({2, 2, 60, 24});
          row->GetCellView(2)->ChildPushBack(button);
        }
      });
    }
    for (int row = 0; row < rows; ++row) {
      mTree->CreateAndAppendRow();
    }
    mTree->UI_SetLocalRectF({0, 0, kWidth, kHeight});
    mTree->LayoutAfterAppendRow();
    mStage->GetRootView().ChildPushBack(mTree);
    mStage->PaintFrame();
  }

  // Goes on by a page and a half a frame, so that all rows are others, round the end.
  void Scroll() {
    float const viewed = mTree->GetViewedRect().height;
    float const room = static_cast<float>(mTree->CountRows()) * (mTree->GetRowHeight() + 1.0F) - viewed;
    for (int run = 0; run < kRuns; ++run) {
      mOffset = std::fmod(mOffset + 1.5F * viewed, room);
      mTree->GetScrollView()->ScrollTo({0, std::floor(mOffset)});
      mStage->PaintFrame();
    }
  }

 private:
  std::unique_ptr<moxui::testing::Stage> mStage;
  IntrusivePtr<UI_MultiColumnTree> mTree;
  float mOffset = 0;
};

void Compare(bench::Figures& figures, std::string const& name, bool holdsNodes) {
  if (!figures.Wants(name)) {
    return;
  }
  List many(100000, holdsNodes);
  List few(100, holdsNodes);
  figures.Compare({.name = name,
                   .numerator = [&many] { many.Scroll(); },
                   .denominator = [&few] { few.Scroll(); },
                   .bar = 1.5,
                   .unit = "us",
                   .numeratorRuns = kRuns,
                   .denominatorRuns = kRuns});
}

}  // namespace

int main(int argc, char** argv) {
  bench::Figures figures(argc, argv);
  Compare(figures, "tree_scroll", false);
  Compare(figures, "tree_scroll_nodes", true);
  return figures.Result();
}
