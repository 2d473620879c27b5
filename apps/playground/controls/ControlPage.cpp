#include "controls/ControlPage.h"

#include "program/Localized.h"

#include <moxui/controls/UI_ScrollBar.h>

#include <algorithm>
#include <utility>

namespace playground {
namespace {

using moxcore::utility::MakeIntrusive;
using moxui::RectT;
using moxui::controls::UI_ScrollView;
namespace ScrollViewStyle = moxui::controls::ScrollViewStyle;

}  // namespace

ControlPage::ControlPage(PageContext const& context, std::vector<ControlSample> samples,
                         std::vector<SampleState> states, std::vector<KeyLine> const& keys)
    : mSheet(MakeIntrusive<ControlSheet>(context.log, std::move(samples), keys)),
      mScroll(MakeIntrusive<UI_ScrollView>(
          mSheet, ScrollViewStyle::kFitContentWidth | ScrollViewStyle::kVerticalBar)),
      mStates(std::move(states)) {
  mScroll->SetAccessibleName(
      moxcore::Utf8String(Text("$$$/playground/controls/sheet=Controls and their keys")));
  ChildPushBack(mScroll);
  mSheet->ShowState(mStates.front());
}

ControlPage::~ControlPage() = default;

void ControlPage::ShowState(std::size_t state) {
  mSheet->ShowState(mStates[std::min(state, mStates.size() - 1)]);
}

float ControlPage::GetScrollOffset() const {
  return mScroll->GetViewedRect().top;
}

void ControlPage::SetScrollOffset(float offset) {
  mScroll->ScrollTo({0.0f, offset});
}

void ControlPage::UI_SizeChanged(RectT<float> const& rect) {
  Page::UI_SizeChanged(rect);
  mScroll->UI_SetLocalRectF(rect);
  if (rect.IsEmpty()) {
    return;
  }
  bool const scrolls = mSheet->GetHeight(rect.width) > rect.height;
  float const width = rect.width - (scrolls ? moxui::controls::UI_ScrollBar::GetThickness() : 0.0f);
  RectT<float> const extent{0.0f, 0.0f, width, mSheet->GetHeight(width)};
  mSheet->UI_SetLocalRectF(extent);
  mScroll->SetContentRect(extent);
  mScroll->Update();
}

}  // namespace playground
