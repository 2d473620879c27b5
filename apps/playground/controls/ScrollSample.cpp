#include "controls/ScrollSample.h"

#include "program/Localized.h"
#include "shell/Painting.h"

#include <moxui/controls/UI_Checkbox.h>
#include <moxui/controls/UI_ScrollView.h>
#include <moxui/scriber/Drawing.h>

#include <string>

namespace playground {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using moxui::RectT;
using moxui::controls::UI_Checkbox;
using moxui::controls::UI_ControlView;
using moxui::controls::UI_ScrollView;
namespace ScrollViewStyle = moxui::controls::ScrollViewStyle;

constexpr int kTakes = 12;
constexpr float kTakeHeight = 28.0f;
constexpr float kWidth = 240.0f;
constexpr float kWideWidth = 520.0f;

// A frame with the scroll view in it.
class ScrollFrame : public UI_ControlView {
 public:
  explicit ScrollFrame(bool bothWays) {
    float const width = bothWays ? kWideWidth : kWidth;
    auto content = MakeIntrusive<moxui::ui::UI_SubView>();
    for (int take = 0; take < kTakes; ++take) {
      auto box = MakeIntrusive<UI_Checkbox>();
      std::string const number = std::to_string(take + 1);
      box->SetTextLabel(
          bothWays ? Text16("$$$/playground/sample/takeLong=Take @0, recorded on the second day in the large "
                            "hall with both booms",
                            {number})
                   : Text16("$$$/playground/sample/take=Take @0", {number}));
      box->SetChecked(take % 3 == 0);
      box->SetWantsKeyboardFocus(true);
      box->UI_SetLocalRectF(
          {8.0f, 4.0f + kTakeHeight * static_cast<float>(take), width - 16.0f, kTakeHeight});
      content->ChildPushBack(box);
    }
    RectT<float> const extent{0.0f, 0.0f, width, kTakeHeight * kTakes + 8.0f};
    content->UI_SetLocalRectF(extent);
    unsigned const style = bothWays ? ScrollViewStyle::kHorizontalBar | ScrollViewStyle::kVerticalBar
                                    : ScrollViewStyle::kFitContentWidth | ScrollViewStyle::kVerticalBar;
    mScroll = MakeIntrusive<UI_ScrollView>(content, style);
    mScroll->SetContentRect(extent);
    ChildPushBack(mScroll);
  }

  void UI_SizeChanged(RectT<float> const& rect) override {
    UI_ControlView::UI_SizeChanged(rect);
    mScroll->UI_SetLocalRectF(rect.Inset(1.0f));
  }

  void UI_Draw(moxui::scriber::Scriber* scriber) const override {
    UI_ControlView::UI_Draw(scriber);
    moxui::utils::DrawOutline(scriber, UI_GetLocalRectF(false).Inset(0.5f),
                              ThemeColor(moxui::ui::ThemeColorID::kFieldOutline), 1.0f);
  }

 private:
  IntrusivePtr<UI_ScrollView> mScroll;
};

}  // namespace

IntrusivePtr<UI_ControlView> ScrollSample(bool bothWays) {
  return MakeIntrusive<ScrollFrame>(bothWays);
}

}  // namespace playground
