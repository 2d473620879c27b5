#pragma once

#include <moxmediatypes/AudioChannels.h>
#include <moxui/controls/UI_ControlView.h>

#include <cstddef>

namespace playground {

// The channels of a layout by number and name, in as many columns as it takes; what doesn't fit is counted in
// the last place.
class ChannelList : public moxui::controls::UI_ControlView {
 public:
  ChannelList();
  ~ChannelList() override;

  void SetLayout(moxmediatypes::AudioChannelLayout layout);
  // How many channels are named; the rest is counted.
  std::size_t CountNamed() const;

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  moxui::ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;

 private:
  struct Grid {
    std::size_t rows = 0;
    std::size_t columns = 0;
    float columnWidth = 0.0f;

    std::size_t Places() const { return rows * columns; }
  };
  Grid LayOutGrid() const;
  moxui::RectT<float> PlaceRect(Grid const& grid, std::size_t place) const;

  moxmediatypes::AudioChannelLayout mLayout;
};

}  // namespace playground
