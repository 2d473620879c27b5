#pragma once

#include "controls/ControlKeys.h"
#include "controls/SampleState.h"

#include <moxui/controls/UI_ControlView.h>
#include <moxui/ui/UI_SubView.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace playground {

class EventLog;
class KeyTable;
class StatePreview;

// One control of a page: what it is called, how it is made, and its size where the recommended one would not
// do (0: the recommended one). `pointer` is where it is pointed at, as PreviewAim has it.
// A control that opens a box has that box's inside as its preview, in a size of its own, and `open`, which
// opens it over the window of a node and gives the answer in words.
struct ControlSample {
  std::string_view title;  // literal
  std::function<moxcore::utility::IntrusivePtr<moxui::controls::UI_ControlView>()> make;
  float width = 0.0f;
  float height = 0.0f;
  moxui::PointT<float> pointer{0.5f, 0.5f};
  std::function<moxcore::utility::IntrusivePtr<moxui::ui::UI_Node>()> inside = {};
  std::function<std::string(moxui::ui::UI_Node& parent)> open = {};
};

// A row for each control: its name, the control itself to be tried, and the same control frozen in a state;
// below them the keys that work them. The log, which outlives it, hears what the live ones tell.
class ControlSheet : public moxui::ui::UI_SubView {
 public:
  ControlSheet(EventLog& log, std::vector<ControlSample> samples, std::vector<KeyLine> const& keys);
  ~ControlSheet() override;

  void ShowState(SampleState state);
  // In a width.
  float GetHeight(float width) const;

  std::size_t SampleCount() const { return mRows.size(); }
  moxui::controls::UI_ControlView& LiveControl(std::size_t row) const { return *mRows[row].live; }
  StatePreview& Preview(std::size_t row) const;
  // Null where nothing is worked by keys.
  KeyTable* Keys() const { return mKeys.Get(); }

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;

 private:
  struct Row {
    ControlSample sample;
    moxcore::Utf16String title;
    moxui::RectT<float> rect;
    moxcore::utility::IntrusivePtr<moxui::controls::UI_ControlView> live;
    moxcore::utility::IntrusivePtr<StatePreview> preview;

    moxui::ExtentT<float> inside;  // of a box; empty where the preview is as large as the control

    moxui::ExtentT<float> Size() const;
    // Small controls stand in the middle of a row that is as high as others.
    float InnerHeight() const;
    moxui::ExtentT<float> PreviewSize() const { return sample.inside ? inside : Size(); }
  };
  // Where the previews stand: beside the controls, or, boxes that have no room there, below them.
  struct PreviewColumn {
    float left;
    bool isBelow;
  };
  PreviewColumn FindPreviewColumn(float width) const;
  static float RowHeight(Row const& row, PreviewColumn const& column);
  void PlaceRow(Row& row, float top, float width, PreviewColumn const& column);
  void Listen(moxui::controls::UI_ControlView& control, moxcore::Utf16String const& title);
  void OpenWhenPressed(Row const& row);
  void LayOut();

  EventLog& mLog;
  std::vector<Row> mRows;
  moxcore::utility::IntrusivePtr<KeyTable> mKeys;
  SampleState mState{};
};

}  // namespace playground
