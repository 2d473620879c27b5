#pragma once

#include <moxaudiotoolkit/waveform/QueryPyramid.h>
#include <moxui/geometry/ColorRGBA.h>
#include <moxui/ui/UI_Node.h>

#include <cstdint>
#include <memory>

namespace moxaudiotoolkit::waveform {
class WaveformData;
}
namespace moxaudiotoolkit {
class PeakPyramid;
}

namespace playground {

class AudioSession;
class ViewDrag;

// The whole sound in small, with a frame around the part that the view above shows: a scroll bar that shows
// what it scrolls over. The frame is dragged; a press beside it brings it there.
class OverviewBar : public moxui::ui::UI_Node {
 public:
  explicit OverviewBar(AudioSession& session);
  ~OverviewBar() override;

  // The frame, in own coordinates.
  moxui::RectT<float> ThumbRect() const;
  // Takes a drag back. False when none goes on.
  bool CancelDrag();

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  moxui::PaddingT<float> UI_GetDrawOverhang() const override;
  bool UI_WantsKeyboardFocus() const override;
  void UI_FocusChanged(moxui::ui::FocusChangeReason reason) override;
  bool UI_DoKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) override;
  bool UI_DoMouseEvent(moxui::ui::UI_Node* node, moxui::ui::MouseEvent const& event) override;
  bool UI_InvalidateOnMouseOverChange(bool over) override;
  moxui::ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;

 private:
  double SampleAt(float x) const;
  void EndDrag();
  // Draws the whole sound, a column to each of the surface's units.
  void DrawSound(moxui::scriber::Scriber& scriber, moxui::ColorRGBA const& ground, int columns, int rows,
                 float scale) const;
  void DrawFocus(moxui::scriber::Scriber* scriber) const;

  AudioSession& mSession;
  mutable std::shared_ptr<moxaudiotoolkit::PeakPyramid const> mDrawnPeaks;
  mutable std::int64_t mDrawnPages = 0;
  mutable std::shared_ptr<moxaudiotoolkit::waveform::WaveformData> mData;
  mutable moxaudiotoolkit::waveform::ColumnLevels mLevels;  // of the data's columns; none once all is read
  mutable int mDrawnWidth = 0;
  std::unique_ptr<ViewDrag> mDrag;  // while the frame is dragged
  bool mIsHovered = false;
  double mGrab = 0.0;  // samples from the left of the view to where the frame was taken
};

}  // namespace playground
