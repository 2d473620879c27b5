#pragma once

#include <moxui/ui/UI_Node.h>

#include <optional>

namespace playground {

class Viewport;

// The line over a waveform at the sample that is heard, with a mark at its upper end. It lies over the
// waveform, takes nothing from it by hand, and when it moves only the narrow strips of both places are
// painted anew. It stands on whole device pixels, at the column in which its sample is drawn.
class Playhead : public moxui::ui::UI_Node {
 public:
  // The column of the view, a device pixel; nothing when there is no playhead or it is out of sight.
  void SetColumn(std::optional<int> column);
  std::optional<int> Column() const { return mColumn; }

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  bool UI_ContainsPoint(moxui::PointT<float> point) const override;

 private:
  moxui::RectT<float> Strip(int column) const;
  moxui::RectT<float> Line(int column, float scale) const;

  std::optional<int> mColumn;
};

}  // namespace playground
