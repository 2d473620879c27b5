#pragma once

#include "controls/ControlSheet.h"
#include "shell/Page.h"

#include <moxui/controls/UI_ScrollView.h>

#include <vector>

namespace playground {

// A sheet of controls, their previews in the state of the page. It scrolls where it has no room.
class ControlPage : public Page {
 public:
  ControlPage(PageContext const& context, std::vector<ControlSample> samples, std::vector<SampleState> states,
              std::vector<KeyLine> const& keys = {});
  ~ControlPage() override;

  void ShowState(std::size_t state) override;
  float GetScrollOffset() const override;
  void SetScrollOffset(float offset) override;

  std::size_t SampleCount() const { return mSheet->SampleCount(); }
  moxui::controls::UI_ControlView& LiveControl(std::size_t row) const { return mSheet->LiveControl(row); }
  StatePreview& Preview(std::size_t row) const { return mSheet->Preview(row); }
  // Null where nothing is worked by keys.
  KeyTable* Keys() const { return mSheet->Keys(); }

  void UI_SizeChanged(moxui::RectT<float> const& rect) override;

 private:
  moxcore::utility::IntrusivePtr<ControlSheet> mSheet;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_ScrollView> mScroll;
  std::vector<SampleState> mStates;
};

}  // namespace playground
