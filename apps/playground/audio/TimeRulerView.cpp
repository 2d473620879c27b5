#include "audio/TimeRulerView.h"

#include "audio/AudioSession.h"
#include "audio/TimeRuler.h"
#include "program/Localized.h"
#include "shell/Painting.h"

#include <moxui/scriber/Drawing.h>
#include <moxui/ui/MouseEvent.h>

#include <cmath>

namespace playground {
namespace {

using moxui::RectT;
using moxui::ui::PointerAction;
using moxui::ui::ThemeColorID;

constexpr float kTickHeight = 4.0f;
constexpr float kLabelInset = 4.0f;

}  // namespace

void TimeRulerView::UI_Draw(moxui::scriber::Scriber* scriber) const {
  RectT<float> const own = UI_GetLocalRectF(false);
  UI_ClipToSelf(scriber);
  moxui::utils::DrawRect(scriber, {0.0f, own.height - 1.0f, own.width, 1.0f},
                         ThemeColor(ThemeColorID::kGray3));
  int const rate = mSession.Current().SampleRate();
  if (rate == 0 || own.width < 1.0f) {
    return;
  }
  Viewport const& view = mSession.View();
  float const columnsPerPixel = static_cast<float>(view.Width()) / own.width;
  for (RulerTick const& tick :
       RulerTicks(view, rate, kRulerLabelDistance * static_cast<double>(columnsPerPixel))) {
    float const x = std::floor(static_cast<float>(tick.column)) / columnsPerPixel;
    bool const labelled = !tick.label.empty();
    float const height = labelled ? own.height : kTickHeight;
    moxui::utils::DrawRect(scriber, {x, own.height - height, 1.0f / columnsPerPixel, height},
                           ThemeColor(labelled ? ThemeColorID::kGray5 : ThemeColorID::kGray4));
    moxcore::Utf16String const label = To16(tick.label);
    // A time that the edge would cut reads as another time.
    if (labelled && x + kLabelInset + LabelWidth(label, moxui::ui::FontIndex::kSmall) <= own.width) {
      DrawLabel(scriber, label,
                {x + kLabelInset, 0.0f, static_cast<float>(kRulerLabelDistance), own.height - kTickHeight},
                moxui::scriber::TextAlignment::kLeft, moxui::ui::FontIndex::kSmall,
                ThemeColor(ThemeColorID::kGray7));
    }
  }
}

bool TimeRulerView::UI_DoMouseEvent(moxui::ui::UI_Node*, moxui::ui::MouseEvent const& event) {
  float const x = event.GetPosition().x;
  if (event.IsAction(PointerAction::kPress) && !event.IsButton(moxui::ui::MouseButton::kRight)) {
    mIsDragged = true;
    mDragX = x;
    return true;
  }
  if (event.IsAction(PointerAction::kMove) && mIsDragged) {
    double const columns = static_cast<double>(mDragX - x) * GetViewScaleFactor();
    mSession.ChangeView([columns](Viewport& view) { view.ScrollBy(columns); });
    mDragX = x;
    return true;
  }
  if (event.IsAction(PointerAction::kRelease) || event.IsAction(PointerAction::kCancel)) {
    mIsDragged = false;
    return true;
  }
  return false;
}

}  // namespace playground
