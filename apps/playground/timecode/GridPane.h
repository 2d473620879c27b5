#pragma once

#include "timecode/FieldGrid.h"

#include <moxui/controls/UI_ScrollView.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace moxcore::messaging {
class Message;
}

namespace playground {

class StationEar;

// Grids of timecode fields, side by side where there is room and else one below the other, in a view that
// scrolls. It hears what its fields tell; they are numbered from 1 in the order of reading.
class GridPane : public moxui::ui::UI_SubView {
 public:
  using Field = FieldGrid::Field;
  using HearFunction = std::function<void(Field const& field, moxcore::messaging::Message const& message)>;

  GridPane(moxcore::Utf8String name, std::vector<FieldGridContent> grids);
  ~GridPane() override;

  void SetHearFunction(HearFunction function) { mHear = std::move(function); }
  FieldGrid& Grid(std::size_t grid) const { return *mGrids[grid]; }
  std::size_t GridCount() const { return mGrids.size(); }
  // All of them, by their numbers less 1.
  std::vector<Field> const& Fields() const { return mFields; }

  float GetScrollOffset() const;
  void SetScrollOffset(float offset);

  void UI_SizeChanged(moxui::RectT<float> const& rect) override;

 private:
  void LayOut();

  moxcore::utility::IntrusivePtr<moxui::ui::UI_SubView> mContent;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_ScrollView> mScroll;
  std::vector<moxcore::utility::IntrusivePtr<FieldGrid>> mGrids;
  std::vector<Field> mFields;
  moxcore::utility::IntrusivePtr<StationEar> mEar;
  HearFunction mHear;
};

}  // namespace playground
