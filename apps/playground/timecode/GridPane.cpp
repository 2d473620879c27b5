#include "timecode/GridPane.h"

#include "shell/Painting.h"
#include "timecode/StationEar.h"
#include "timecode/StationMessages.h"

#include <moxmediaui/HotTimecodeControl.h>
#include <moxui/controls/UI_ScrollBar.h>

#include <algorithm>
#include <utility>

namespace playground {
namespace {

using moxcore::utility::MakeIntrusive;
using moxui::RectT;
using moxui::controls::UI_ScrollView;
namespace ScrollViewStyle = moxui::controls::ScrollViewStyle;

constexpr float kGridGap = 32.0f;

}  // namespace

GridPane::GridPane(moxcore::Utf8String name, std::vector<FieldGridContent> grids)
    : mContent(MakeIntrusive<moxui::ui::UI_SubView>()) {
  mScroll = MakeIntrusive<UI_ScrollView>(mContent,
                                         ScrollViewStyle::kFitContentWidth | ScrollViewStyle::kVerticalBar);
  mScroll->SetAccessibleName(std::move(name));
  ChildPushBack(mScroll);
  // Held for the time of a message, since a listener may take the pane away.
  auto const hear = [weak = moxcore::utility::RefCountedWeakPtr<GridPane>(this)](
                        moxcore::messaging::Message const& message) {
    auto const pane = weak.Lock();
    auto const told = FindToldTime(message);
    if (pane && pane->mHear && told && told->field > 0 && told->field <= pane->mFields.size()) {
      pane->mHear(pane->mFields[told->field - 1], message);
    }
  };
  mEar = MakeIntrusive<StationEar>(hear);
  for (FieldGridContent& content : grids) {
    auto grid = MakeIntrusive<FieldGrid>(std::move(content));
    for (std::size_t row = 0; row < grid->RowCount(); ++row) {
      for (std::size_t column = 0; column < grid->ColumnCount(); ++column) {
        if (Field const& field = grid->GetField(row, column)) {
          mFields.push_back(field);
          field->SetIdentifier(static_cast<std::uint32_t>(mFields.size()));
          mEar->Hear(field->GetStationID());
        }
      }
    }
    mContent->ChildPushBack(grid);
    mGrids.push_back(std::move(grid));
  }
}

GridPane::~GridPane() = default;

float GridPane::GetScrollOffset() const {
  return mScroll->GetViewedRect().top;
}

void GridPane::SetScrollOffset(float offset) {
  mScroll->ScrollTo({0.0f, offset});
}

void GridPane::LayOut() {
  RectT<float> const own = UI_GetLocalRectF(false);
  if (own.IsEmpty()) {
    return;
  }
  float const width = std::max(own.width - moxui::controls::UI_ScrollBar::GetThickness(), 0.0f);
  float left = kPanelPadding;
  float top = 0.0f;
  float lineBottom = 0.0f;
  for (auto const& grid : mGrids) {
    auto const size = grid->GetNaturalSize();
    if (left > kPanelPadding && left + size.width + kPanelPadding > width) {
      left = kPanelPadding;
      top = lineBottom + kGroupGap;
    }
    grid->UI_SetLocalRectF(Placed({left, top, size.width, size.height}, width));
    left += size.width + kGridGap;
    lineBottom = std::max(lineBottom, top + size.height);
  }
  RectT<float> const extent{0.0f, 0.0f, width, lineBottom + kPanelPadding};
  mContent->UI_SetLocalRectF(extent);
  mScroll->SetContentRect(extent);
  mScroll->Update();
}

void GridPane::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  mScroll->UI_SetLocalRectF(rect);
  LayOut();
}

}  // namespace playground
