#include "shell/EventLogView.h"

#include "program/Localized.h"
#include "shell/EventLog.h"
#include "shell/Painting.h"

#include <moxui/scriber/Drawing.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace playground {
namespace {

using moxui::RectT;
using moxui::ui::FontIndex;
using moxui::ui::KeyboardCode;
using moxui::ui::ThemeColorID;

constexpr float kLineHeight = 16.0f;
constexpr float kCaptionHeight = 24.0f;
constexpr float kCountDistance = 8.0f;
constexpr float kWheelPixelsPerLine = 16.0f;

}  // namespace

EventLogView::EventLogView(EventLog& log, std::string_view title, std::string_view emptyText)
    : mLog(log), mTitle(Text16(title)), mEmptyText(Text16(emptyText)) {
  SetWantsKeyboardFocus(true);
  mLog.SetListener(this, [this] {
    mLinesBack = 0;
    UI_Invalidate();
  });
}

EventLogView::~EventLogView() {
  mLog.RemoveListener(this);
}

int EventLogView::VisibleLines() const {
  return std::max(static_cast<int>((UI_GetLocalRectF(false).height - kCaptionHeight - 4.0f) / kLineHeight),
                  0);
}

void EventLogView::ScrollBack(int lines) {
  int const most = std::max(static_cast<int>(mLog.Lines().size()) - VisibleLines(), 0);
  int const back = std::clamp(mLinesBack + lines, 0, most);
  if (back != mLinesBack) {
    mLinesBack = back;
    UI_Invalidate();
  }
}

void EventLogView::UI_Draw(moxui::scriber::Scriber* scriber) const {
  RectT<float> const own = UI_GetLocalRectF(false);
  moxui::utils::DrawRect(scriber, own, ThemeColor(ThemeColorID::kGray1));
  moxui::utils::DrawRect(scriber, {0.0f, 0.0f, own.width, 1.0f}, ThemeColor(ThemeColorID::kGray3));
  RectT<float> const text{kPanelPadding, 0.0f, own.width - 2.0f * kPanelPadding, kLineHeight};
  DrawLabel(scriber, mTitle, {text.left, 0.0f, text.width, kCaptionHeight}, Leading(), FontIndex::kSmall,
            ThemeColor(ThemeColorID::kGray7));
  auto const& lines = mLog.Lines();
  if (lines.empty()) {
    DrawLabel(scriber, mEmptyText, {text.left, kCaptionHeight, text.width, kLineHeight}, Leading(),
              FontIndex::kSmall, ThemeColor(ThemeColorID::kGray7));
  }
  int const last = static_cast<int>(lines.size()) - mLinesBack;
  int const first = std::max(last - VisibleLines(), 0);
  for (int i = first; i < last; ++i) {
    auto const& line = lines[static_cast<std::size_t>(i)];
    float const top = kCaptionHeight + static_cast<float>(i - first) * kLineHeight;
    bool const isNewest = i + 1 == static_cast<int>(lines.size());
    RectT<float> const body{text.left, top, text.width, kLineHeight};
    DrawLabel(scriber, line.text, body, Leading(), FontIndex::kSmall,
              ThemeColor(isNewest ? ThemeColorID::kGray9 : ThemeColorID::kGray8));
    if (line.count > 1) {
      float const left = text.left + LabelWidth(line.text, FontIndex::kSmall) + kCountDistance;
      DrawLabel(scriber, To16(std::to_string(line.count) + "\u00D7"),
                Placed({left, top, std::max(own.width - left, 0.0f), kLineHeight}, own.width), Leading(),
                FontIndex::kSmall, ThemeColor(ThemeColorID::kGray7));
    }
  }
  if (UI_HasKeyboardFocus()) {
    DrawInnerFocusRing(scriber, own);
  }
}

bool EventLogView::UI_DoPointerEvent(moxui::ui::UI_Node* node, moxui::ui::PointerEvent const& event) {
  if (auto const* const wheel = moxui::ui::WheelEvent::GetWheelEventForPointerEvent(event)) {
    // A slow finger sends less than a line at a time.
    mWheelLines += wheel->GetDistance().y / kWheelPixelsPerLine;
    float const whole = std::trunc(mWheelLines);
    mWheelLines -= whole;
    ScrollBack(static_cast<int>(whole));
    return true;
  }
  return UI_ControlView::UI_DoPointerEvent(node, event);
}

bool EventLogView::UI_DoMouseEvent(moxui::ui::UI_Node* node, moxui::ui::MouseEvent const& event) {
  UI_ControlView::UI_DoMouseEvent(node, event);
  return false;
}

bool EventLogView::UI_DoKeyboardEvent(moxui::ui::UI_Node*, moxui::ui::KeyboardEvent const& event) {
  if (!event.IsAction(moxui::ui::KeyAction::kKeyDown) || !event.GetModKey().IsEmpty()) {
    return false;
  }
  switch (event.GetCode()) {
    case KeyboardCode::kUp:
      ScrollBack(1);
      return true;
    case KeyboardCode::kDown:
      ScrollBack(-1);
      return true;
    case KeyboardCode::kPageUp:
      ScrollBack(VisibleLines());
      return true;
    case KeyboardCode::kPageDown:
      ScrollBack(-VisibleLines());
      return true;
    default:
      return false;
  }
}

moxui::ui::AccessibleRole EventLogView::UI_GetAccessibleRole() const {
  return moxui::ui::AccessibleRole::kList;
}

moxcore::Utf8String EventLogView::UI_GetAccessibleName() const {
  return moxcore::Utf8String(To8(mTitle));
}

moxcore::Utf8String EventLogView::UI_GetAccessibleValue() const {
  return mLog.Lines().empty() ? moxcore::Utf8String() : moxcore::Utf8String(To8(mLog.Lines().back().text));
}

}  // namespace playground
