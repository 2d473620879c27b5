#pragma once

#include "RunningLook.h"

#include <moxui/controls/UI_MultiColumnTree.h>
#include <moxui/controls/UI_MultiColumnTreeHeaderRow.h>
#include <moxui/testing/Stage.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace moxui::testing {

inline moxcore::Utf16String Number(std::int64_t number) {
  std::string const text = std::to_string(number);
  return {text.begin(), text.end()};
}

/// A list in two columns of 100 and rows of 19 + 1 pixels, five of which are seen; it writes down what its
/// callbacks hear.
class TreeTest : public ::testing::Test {
 protected:
  using Row = controls::UI_MultiColumnTreeRow;
  using Indexes = std::vector<std::int64_t>;

  TreeTest() {
    mTree->SetAllowChildren(false);
    mTree->SetNumberOfColumns(2);
    mTree->SetRowHeight(19.0f);
    mTree->SetCellTextCallback([this](Row* row, int column) {
      return (column == 0 ? u"Row " : u"x") + Number(mTree->GetRowIndex(row));
    });
    mTree->SetRowsSelectionChangedCallback([this](auto const& rows) {
      mHeard.clear();
      for (auto const& row : rows) {
        mHeard.push_back(mTree->GetRowIndex(row.Get()));
      }
      ++mSelections;
    });
    mTree->SetCellSelectionChangedCallback([this] { ++mCellSelections; });
    mTree->SetRowVisibilityChangedCallback(
        [this](Row* row) { (mTree->IsRowVisible(row) ? mCome : mGone).push_back(mTree->GetRowIndex(row)); });
    mTree->UI_SetLocalRectF({10, 10, 220, 100});
  }

  void Fill(int rows) {
    for (int row = 0; row < rows; ++row) {
      mTree->CreateAndAppendRow();
    }
    mTree->LayoutAfterAppendRow();
  }
  void Show() {
    mStage.GetRootView().ChildPushBack(mTree);
    mStage.PaintFrame();
  }
  void FillAndShow(int rows) {
    Fill(rows);
    Show();
  }
  /// In a column of the row at a place of the viewed area.
  static PointT<float> Point(int place, int column = 0) {
    return {60.0f + 101.0f * static_cast<float>(column), 19.0f + 20.0f * static_cast<float>(place)};
  }
  void ClickWith(PointT<float> point, ui::ModKeys keys) {
    mStage.SetModKeys(keys);
    mStage.Click(point);
    mStage.SetModKeys({});
  }
  Indexes Selected() const {
    Indexes rows;
    for (auto const& row : mTree->GetSelectedRows()) {
      rows.push_back(mTree->GetRowIndex(row.Get()));
    }
    return rows;
  }
  Row* At(std::int64_t index) const { return mTree->GetRow(index).Get(); }
  float Top() const { return mTree->GetViewedRect().top; }
  void Focus() { mTree->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode); }

  RunningLook mLook{true};
  Stage mStage{ExtentT<float>(300, 200)};
  moxcore::utility::IntrusivePtr<controls::UI_MultiColumnTree> mTree =
      moxcore::utility::MakeIntrusive<controls::UI_MultiColumnTree>();
  Indexes mCome;
  Indexes mGone;
  Indexes mHeard;
  int mSelections = 0;
  int mCellSelections = 0;
};

}  // namespace moxui::testing
