#include "audio/TimeRulerView.h"

#include "audio/AudioSession.h"
#include "audio/TimeRuler.h"
#include "audio/ViewDrag.h"
#include "audio/WaveformWheel.h"
#include "program/Localized.h"
#include "shell/Painting.h"

#include <moxui/scriber/Drawing.h>
#include <moxui/skins/Look.h>
#include <moxui/ui/MouseEvent.h>
#include <moxui/ui/OS_Menu.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace playground {
namespace {

using moxui::RectT;
using moxui::ui::PointerAction;
using moxui::ui::ThemeColorID;

constexpr float kTickHeight = 4.0f;
constexpr float kLabelInset = 4.0f;

}  // namespace

TimeRulerView::TimeRulerView(AudioSession& session) : mSession(session) {
  UI_SetToolTip(moxcore::Utf8String(Text("$$$/playground/audio/rulerTip=Drag to scroll, wheel to zoom. "
                                         "Right click for time or samples.")),
                moxui::skins::GetToolTipDelay());
}

TimeRulerView::~TimeRulerView() = default;

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
  RulerStyle const style{mSession.Settings().rulerUnit, static_cast<double>(columnsPerPixel)};
  for (RulerTick const& tick : RulerTicks(view, rate, style)) {
    float const x = static_cast<float>(view.PixelOf(tick.sample)) / columnsPerPixel;
    bool const labelled = !tick.label.empty();
    float const height = labelled ? own.height : kTickHeight;
    moxui::utils::DrawRect(scriber, {x, own.height - height, 1.0f / columnsPerPixel, height},
                           ThemeColor(labelled ? ThemeColorID::kGray5 : ThemeColorID::kGray4));
    moxcore::Utf16String const label = To16(tick.label);
    float const width = labelled ? LabelWidth(label, moxui::ui::FontIndex::kSmall) : 0.0f;
    // A time that the edge would cut reads as another time.
    if (labelled && x + kLabelInset + width <= own.width) {
      DrawLabel(scriber, label, {x + kLabelInset, 0.0f, width + 1.0f, own.height - kTickHeight},
                moxui::scriber::TextAlignment::kLeft, moxui::ui::FontIndex::kSmall,
                ThemeColor(ThemeColorID::kGray7));
    }
  }
}

bool TimeRulerView::UI_DoPointerEvent(moxui::ui::UI_Node* node, moxui::ui::PointerEvent const& event) {
  return HandleWaveformWheel(mSession, event, GetViewScaleFactor()) ||
         UI_Node::UI_DoPointerEvent(node, event);
}

void TimeRulerView::OpenMenu(moxui::PointT<float> point) {
  constexpr int kTime = 1;
  constexpr int kSamples = 2;
  auto const menu = moxui::ui::CreateOSMenu();
  menu->AddItem(kTime, Text16("$$$/playground/audio/rulerUnit/time=Time"));
  menu->AddItem(kSamples, Text16("$$$/playground/audio/rulerUnit/samples=Samples"));
  menu->CheckItem(mSession.Settings().rulerUnit == RulerUnit::kSamples ? kSamples : kTime, true);
  moxcore::utility::IntrusivePtr<TimeRulerView> const alive(this);  // anything may happen while it is open
  if (int const id = UI_DoContextMenu(menu.Get(), this, point); id != 0) {
    mSession.ChangeSettings([id](WaveformSettings& settings) {
      settings.rulerUnit = id == kSamples ? RulerUnit::kSamples : RulerUnit::kTime;
    });
  }
}

bool TimeRulerView::UI_DoMouseEvent(moxui::ui::UI_Node*, moxui::ui::MouseEvent const& event) {
  float const x = event.GetPosition().x;
  if (event.IsAction(PointerAction::kPress) && mDrag) {
    return true;  // a second button changes nothing about the drag of the first
  }
  if (event.IsAction(PointerAction::kPress) && event.IsButton(moxui::ui::MouseButton::kRight)) {
    OpenMenu(event.GetPosition());
    return true;
  }
  if (event.IsAction(PointerAction::kPress)) {
    mDrag = std::make_unique<ViewDrag>(mSession, event.GetButton());
    mDragX = x;
    UI_SetCapture();  // without the focus it would not hear that the window is left
    return true;
  }
  if (event.IsAction(PointerAction::kMove) && mDrag) {
    double const columns = static_cast<double>(mDragX - x) * GetViewScaleFactor();
    mSession.ChangeView([columns](Viewport& view) { view.ScrollBy(columns); });
    mDragX = x;
    return true;
  }
  if (event.IsAction(PointerAction::kRelease) && mDrag && mDrag->EndsWith(event)) {
    EndDrag();
    return true;
  }
  return false;
}

void TimeRulerView::EndDrag() {
  if (mDrag) {
    mDrag.reset();
    UI_ReleaseCapture();
  }
}

bool TimeRulerView::CancelDrag() {
  if (!mDrag) {
    return false;
  }
  mDrag->Cancel();
  EndDrag();
  return true;
}

void TimeRulerView::UI_FocusChanged(moxui::ui::FocusChangeReason reason) {
  UI_Node::UI_FocusChanged(reason);
  if (reason == moxui::ui::FocusChangeReason::kDeactivated) {
    EndDrag();
  }
}

moxui::ui::AccessibleRole TimeRulerView::UI_GetAccessibleRole() const {
  return moxui::ui::AccessibleRole::kStaticText;
}

moxcore::Utf8String TimeRulerView::UI_GetAccessibleName() const {
  return moxcore::Utf8String(Text("$$$/playground/audio/rulerUnit=Ruler"));
}

moxcore::Utf8String TimeRulerView::UI_GetAccessibleValue() const {
  double const rate = mSession.Current().SampleRate();
  if (rate < 1.0) {
    return {};
  }
  Viewport const& view = mSession.View();
  double const end = std::min(view.Left() + view.VisibleSamples(), static_cast<double>(view.Frames()));
  if (mSession.Settings().rulerUnit == RulerUnit::kSamples) {
    return moxcore::Utf8String(Text("$$$/playground/audio/rulerSamples=Samples @0 to @1",
                                    {std::to_string(static_cast<std::int64_t>(std::floor(view.Left()))),
                                     std::to_string(static_cast<std::int64_t>(std::ceil(end)))}));
  }
  double const resolution = std::clamp(view.SamplesPerPixel() / rate, 1e-6, 1e-3);
  return moxcore::Utf8String(
      Text("$$$/playground/audio/overviewValue=@0 to @1",
           {TimeText(view.Left() / rate, resolution), TimeText(end / rate, resolution)}));
}

}  // namespace playground
