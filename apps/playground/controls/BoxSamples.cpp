#include "controls/BoxSamples.h"

#include "program/Localized.h"
#include "shell/Painting.h"

#include <moxui/controls/UI_StaticText.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/ui/UI_LayoutView.h>

#include <utility>

namespace playground {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using moxui::RectT;
using moxui::controls::UI_ControlView;
using moxui::controls::UI_OutlineBox;
using moxui::controls::UI_StaticText;
using moxui::controls::UI_TextButton;
using moxui::ui::UI_LayoutView;

// Shows a view that is no control in its whole extent.
class Frame : public UI_ControlView {
 public:
  explicit Frame(IntrusivePtr<moxui::ui::UI_SubView> view) : mView(std::move(view)) { ChildPushBack(mView); }
  void UI_SizeChanged(RectT<float> const& rect) override {
    UI_ControlView::UI_SizeChanged(rect);
    mView->UI_SetLocalRectF(rect);
  }

 private:
  IntrusivePtr<moxui::ui::UI_SubView> mView;
};

}  // namespace

IntrusivePtr<UI_ControlView> BoxSample(moxui::controls::ChromeType chrome, float innerLine) {
  auto box = MakeIntrusive<UI_OutlineBox>();
  box->SetChromeType(chrome);
  box->SetStrokeSize2(innerLine);
  auto text = MakeIntrusive<UI_StaticText>(Text16("$$$/playground/sample/boxText=What belongs together"));
  text->SetAlignment(Leading());
  text->UI_SetLocalRectF({12.0f, 12.0f, 216.0f, 20.0f});
  box->ChildPushBack(text);
  return MakeIntrusive<Frame>(std::move(box));
}

IntrusivePtr<UI_ControlView> ButtonRowSample(bool atRight) {
  auto row = MakeIntrusive<UI_LayoutView>();
  row->UI_SetLayoutsChildren(true);
  row->UI_SetLocalRectF({0.0f, 0.0f, 280.0f, 24.0f});
  float left = atRight ? 220.0f : 0.0f;
  for (std::string_view const label :
       {"$$$/playground/sample/ok=OK", "$$$/playground/sample/cancel=Cancel"}) {
    auto button = MakeIntrusive<UI_TextButton>(Text16(label));
    button->SetWantsKeyboardFocus(true);
    button->UI_SetLocalRectF({left, 0.0f, 24.0f, ControlHeight()});
    if (atRight) {
      button->UI_SetLayoutBinding(moxui::ui::LayoutBinding::kFreeLeft | moxui::ui::LayoutBinding::kBindRight);
    }
    row->ChildPushBack(button);
    left += 36.0f;
  }
  return MakeIntrusive<Frame>(std::move(row));
}

}  // namespace playground
