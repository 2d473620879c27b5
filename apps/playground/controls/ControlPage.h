#pragma once

#include "controls/ControlKeys.h"
#include "controls/SampleState.h"
#include "shell/Page.h"

#include <moxui/controls/UI_ControlView.h>

#include <functional>
#include <string_view>
#include <vector>

namespace playground {

class KeyTable;
class StatePreview;

// One control of a page: what it is called, how it is made, and its size where the recommended one would not
// do (0: the recommended one). `pointer` is where it is pointed at, by shares of its extent.
struct ControlSample {
  std::string_view title;  // literal
  std::function<moxcore::utility::IntrusivePtr<moxui::controls::UI_ControlView>()> make;
  float width = 0.0f;
  float height = 0.0f;
  moxui::PointT<float> pointer{0.5f, 0.5f};
};

// A row for each control: its name, the control itself to be tried, and the same control frozen in the state
// of the page; below them the keys that work them, where there is room. The log hears what the live ones
// tell.
class ControlPage : public Page {
 public:
  ControlPage(PageContext const& context, std::vector<ControlSample> samples, std::vector<SampleState> states,
              std::vector<KeyLine> const& keys = {});
  ~ControlPage() override;

  void ShowState(std::size_t state) override;

  std::size_t SampleCount() const { return mRows.size(); }
  moxui::controls::UI_ControlView& LiveControl(std::size_t row) const { return *mRows[row].live; }
  StatePreview& Preview(std::size_t row) const;

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;

 private:
  struct Row {
    ControlSample sample;
    moxcore::Utf16String title;
    moxui::RectT<float> rect;
    moxcore::utility::IntrusivePtr<moxui::controls::UI_ControlView> live;
    moxcore::utility::IntrusivePtr<StatePreview> preview;
  };
  void Listen(moxui::controls::UI_ControlView& control, moxcore::Utf16String const& title);
  void LayOut();

  EventLog& mLog;
  std::vector<Row> mRows;
  moxcore::utility::IntrusivePtr<KeyTable> mKeys;
  std::vector<SampleState> mStates;
  std::size_t mState = 0;
};

}  // namespace playground
