#pragma once

#include "shell/Page.h"

#include <moxcore/messaging/Message.h>

namespace playground {

class BenchPane;
class GridPane;
class StateTable;

// Timecode fields: all formats at all rates, which show one time and are moved together; what fields can be
// told; one to try it all on; and fields frozen in each of their states.
class TimecodePage : public Page {
 public:
  explicit TimecodePage(PageContext const& context);
  ~TimecodePage() override;

  void ShowState(std::size_t state) override;
  float GetScrollOffset() const override;
  void SetScrollOffset(float offset) override;

  GridPane& Formats() const;
  GridPane& Options() const;
  BenchPane& Bench() const;
  StateTable& States() const;

  void UI_SizeChanged(moxui::RectT<float> const& rect) override;

 private:
  void ShowTextSizes();

  EventLog& mLog;
  moxcore::utility::IntrusivePtr<GridPane> mFormats;
  moxcore::utility::IntrusivePtr<GridPane> mOptions;
  moxcore::utility::IntrusivePtr<BenchPane> mBench;
  moxcore::utility::IntrusivePtr<StateTable> mStates;
};

// Its entry in the list of pages.
PageDescriptor TimecodePageDescriptor();

}  // namespace playground
