#pragma once

#include "controls/ControlKeys.h"

#include <moxui/controls/UI_StaticText.h>
#include <moxui/ui/UI_SubView.h>

#include <vector>

namespace playground {

// A heading and a line for each key: its name in a column of `keyWidth`, what it does behind it.
class KeyTable : public moxui::ui::UI_SubView {
 public:
  KeyTable(std::vector<KeyLine> const& keys, float keyWidth);
  ~KeyTable() override;

  float GetHeight() const;

  void UI_SizeChanged(moxui::RectT<float> const& rect) override;

 private:
  struct Line {
    moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> keys;
    moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> text;
  };

  moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> AddText(moxcore::Utf16String text,
                                                                         moxui::ui::ThemeColorID colour);

  float mKeyWidth;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> mHeading;
  std::vector<Line> mLines;
};

}  // namespace playground
