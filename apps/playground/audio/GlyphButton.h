#pragma once

#include <moxui/controls/UI_Button.h>

#include <string>
#include <vector>

namespace playground {

// A small drawing: lines through points of a square of 16 by 16, each an own stroke.
using GlyphStrokes = std::vector<std::vector<moxui::PointT<float>>>;

// A button that shows a drawing; the tool tip says what it does, and on which key. Its name is for assistive
// software.
class GlyphButton : public moxui::controls::UI_Button {
 public:
  // From right to left the drawing stands mirrored where it points along the reading.
  GlyphButton(std::string const& name, std::string const& toolTip, GlyphStrokes strokes,
              bool mirrors = false);
  ~GlyphButton() override;

  moxcore::Utf8String UI_GetAccessibleName() const override { return mName; }

 protected:
  void DrawContent(moxui::scriber::Scriber* scriber, moxui::RectT<float> const& rect,
                   moxui::controls::DrawButtonParameters const& parameters) const override;

 private:
  moxcore::Utf8String mName;
  GlyphStrokes mStrokes;
  bool mMirrors;
};

}  // namespace playground
