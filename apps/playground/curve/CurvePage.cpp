#include "curve/CurvePage.h"

#include "curve/CurveProperties.h"
#include "curve/CurveSession.h"
#include "curve/CurveView.h"
#include "curve/PointDialog.h"
#include "curve/PointTexts.h"
#include "program/Localized.h"
#include "properties/PropertyPanel.h"
#include "shell/EventLog.h"
#include "shell/Painting.h"
#include "shell/UndoKeys.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace playground {
namespace {

using moxcore::utility::MakeIntrusive;
using moxcore::utility::RefCountedWeakPtr;
using moxui::RectT;

constexpr float kPanelShare = 0.38f;
constexpr float kNarrowestPanel = 224.0f;
constexpr float kWidestPanel = 316.0f;
constexpr float kHintLine = 16.0f;
constexpr float kWideHint = 560.0f;  // fits into two lines from here on
constexpr float kLargestView = 640.0f;

// The curve of a state, with the point that shows most.
CurvePlace CurveOf(std::size_t state) {
  switch (state) {
    case 1:
      return {ToneCurve({{0.0, 0.0}, {64.0, 40.0}, {192.0, 216.0}, {255.0, 255.0}}), 1};
    case 2:
      return {ToneCurve({{0.0, 255.0}, {255.0, 0.0}}), 0};
    case 3:
      return {ToneCurve({{24.0, 0.0}, {80.0, 128.0}, {160.0, 128.0}, {208.0, 255.0}}), 2};
    default:
      return {};
  }
}

}  // namespace

CurvePage::CurvePage(PageContext const& context) : mSession(context.curve), mLog(context.log) {
  auto const type = [weak = RefCountedWeakPtr<CurvePage>(this)] {
    if (auto const page = weak.Lock()) {
      TypeSelectedPoint(page->mSession);
    }
  };
  mView = MakeIntrusive<CurveView>(mSession, type);
  mHint = MakeIntrusive<moxui::controls::UI_StaticText>(
      Text16("$$$/playground/curve/hint=Press the curve to add a point, drag it off to remove it. Arrow keys "
             "move it, with Shift ten levels, with Ctrl a tenth. Enter or a double click: type it."));
  mHint->SetFontIndex(moxui::ui::FontIndex::kSmall);
  mHint->SetAlignment(Leading());
  mHint->SetMultiLine(true);
  mHint->SetCustomThemeColor(moxui::ui::ThemeColorID::kDefaultText, moxui::ui::ThemeColorID::kGray7);
  mPanel = MakeIntrusive<PropertyPanel>();
  mPanel->SetGroups(CurveProperties(mSession, type));
  ChildPushBack(mView);
  ChildPushBack(mHint);
  ChildPushBack(mPanel);
  mSession.SetListener(this, [this](bool isSettled) { SessionChanged(isSettled); });
}

CurvePage::~CurvePage() {
  mSession.RemoveListener(this);
}

CurveView& CurvePage::View() const {
  return *mView;
}
PropertyPanel& CurvePage::Panel() const {
  return *mPanel;
}

void CurvePage::ShowState(std::size_t state) {
  mSession.Change([state](CurvePlace& place) { place = CurveOf(state); });
}

float CurvePage::GetScrollOffset() const {
  return mPanel->GetScrollOffset();
}
void CurvePage::SetScrollOffset(float offset) {
  mPanel->SetScrollOffset(offset);
}

bool CurvePage::HandleShortcut(moxui::ui::KeyboardEvent const& event) {
  return HandleUndoKey(mSession, event);
}

void CurvePage::SessionChanged(bool isSettled) {
  mView->SessionChanged();
  mPanel->Refresh();
  if (isSettled) {
    mLog.Add(Text("$$$/playground/curve/log=@0: @1",
                  {PointName(mSession.Selected(), mSession.Curve().PointCount()),
                   PointLevels(mSession.SelectedPoint())}));
  }
}

void CurvePage::UI_SizeChanged(RectT<float> const& rect) {
  Page::UI_SizeChanged(rect);
  if (rect.IsEmpty()) {
    return;
  }
  float const panel =
      std::clamp(std::floor(rect.width * kPanelShare / 4.0f) * 4.0f, kNarrowestPanel, kWidestPanel);
  float const width = std::max(rect.width - panel, 0.0f);
  float const hintWidth = std::max(width - 2.0f * kPanelPadding, 0.0f);
  float const hint = (hintWidth < kWideHint ? 4.0f : 2.0f) * kHintLine;
  float const height = std::max(rect.height - hint - kPanelPadding, 0.0f);
  // Levels rise from left to right in every language, so that only the places are mirrored.
  mView->UI_SetLocalRectF(
      Placed({0.0f, 0.0f, std::min(width, kLargestView), std::min(height, kLargestView)}, rect.width));
  mHint->UI_SetLocalRectF(
      Placed({kPanelPadding, std::min(height, kLargestView) + 4.0f, hintWidth, hint}, rect.width));
  mPanel->UI_SetLocalRectF(Placed({width, 0.0f, panel, rect.height}, rect.width));
}

PageDescriptor CurvePageDescriptor() {
  return {
      .name = "curve",
      .title = "$$$/playground/page/curve=Curve",
      .group = "$$$/playground/group/media=Media",
      .description = "$$$/playground/page/curve/text=A tone curve from 0 to 255, smooth through its points.",
      .states = {{"line", "$$$/playground/state/curveLine=Line"},
                 {"contrast", "$$$/playground/state/curveContrast=Contrast"},
                 {"negative", "$$$/playground/state/curveNegative=Negative"},
                 {"steps", "$$$/playground/state/curveSteps=Steps"}},
      .make = [](PageContext const& context) -> moxcore::utility::IntrusivePtr<Page> {
        return MakeIntrusive<CurvePage>(context);
      }};
}

}  // namespace playground
