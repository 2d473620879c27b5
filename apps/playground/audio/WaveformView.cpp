#include "audio/WaveformView.h"

#include "audio/AudioSession.h"
#include "audio/TimeRuler.h"
#include "audio/ViewDrag.h"
#include "audio/WaveformKeys.h"
#include "audio/WaveformPainter.h"
#include "audio/WaveformWheel.h"
#include "program/Localized.h"
#include "shell/Painting.h"

#include <moxui/scriber/Drawing.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/ThemeColors.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace playground {
namespace {

using moxui::RectT;
using moxui::ui::ModKeys;
using moxui::ui::MouseButton;
using moxui::ui::PointerAction;
namespace ModKey = moxui::ui::ModKey;

// While a selection is drawn beyond an edge the view follows every so many milliseconds.
constexpr int kScrollTimer = 1;
constexpr float kScrollPeriod = 30.0f;
constexpr double kLargestScrollStep = 48.0;
constexpr float kFocusRingDistance = 1.0f;
constexpr float kFocusRingWidth = 2.0f;

}  // namespace

WaveformView::WaveformView(AudioSession& session)
    : mSession(session), mPainter(std::make_unique<WaveformPainter>(session, [this] { UI_Invalidate(); })) {
  mCursor = session.Selection().Head();
}

WaveformView::~WaveformView() = default;

int WaveformView::Columns(float scale) const {
  return std::max(static_cast<int>(std::lround(UI_GetLocalRectF(false).width * scale)), 0);
}

void WaveformView::UI_Draw(moxui::scriber::Scriber* scriber) const {
  mPainter->Draw(*scriber, UI_GetLocalRectF(false));
  float const scale = scriber->GetSurface()->GetScale();
  Viewport view = mSession.View();
  if (int const columns = Columns(scale); columns > 0 && columns != view.Width()) {
    view.StretchTo(columns);
  }
  DrawCursor(scriber, view, scale);
  DrawFocus(scriber);
}

RectT<float> WaveformView::CursorRect(std::int64_t sample) const {
  float const scale = GetViewScaleFactor();
  auto const column = mSession.View().PixelOf(static_cast<double>(sample));
  auto const x = static_cast<float>(std::clamp<std::int64_t>(column, -16, 1'000'000)) / scale;
  return {x - 1.0f, 0.0f, 3.0f, UI_GetLocalRectF(false).height};
}

void WaveformView::DrawCursor(moxui::scriber::Scriber* scriber, Viewport const& view, float scale) const {
  if (!mSession.HasSound() || !mSession.Selection().IsEmpty()) {
    return;
  }
  auto const column = view.PixelOf(static_cast<double>(mSession.Selection().Head()));
  if (column < 0 || column > view.Width()) {
    return;
  }
  float const x = static_cast<float>(std::min<std::int64_t>(column, view.Width() - 1)) / scale;
  scriber->GetSurface()->FillRect({x, 0.0f, 1.0f / scale, UI_GetLocalRectF(false).height},
                                  moxui::skins::utilities::GetInteractiveControlColor());
}

void WaveformView::DrawFocus(moxui::scriber::Scriber* scriber) const {
  if (UI_HasKeyboardFocus()) {
    float const distance = kFocusRingDistance + kFocusRingWidth / 2.0f;
    moxui::utils::DrawOutline(scriber, UI_GetLocalRectF(false).Inset(-distance),
                              moxui::skins::utilities::GetFocusColor(), kFocusRingWidth);
  }
}

moxui::PaddingT<float> WaveformView::UI_GetDrawOverhang() const {
  float const reach = kFocusRingDistance + kFocusRingWidth;
  return {reach, reach, reach, reach};
}

float WaveformView::AmplitudeAt(std::size_t channel, int column) const {
  if (!mSession.HasSound()) {
    return 0.0f;
  }
  Viewport const& view = mSession.View();
  moxmediaui::WaveformDraw& wave = mPainter->Wave();
  wave.SetViewRange(view.Left(), view.SamplesPerPixel());
  return wave.GetAmplitudeFromPixelOffset(channel, column, mPainter->DataFor(view));
}

float WaveformView::RmsAt(std::size_t channel, int column) const {
  if (!mSession.HasSound()) {
    return 0.0f;
  }
  auto const& levels = mPainter->LevelsFor(mSession.View());
  bool const isThere = column >= 0 && static_cast<std::size_t>(column) < levels.slots &&
                       channel < mSession.Current().ChannelCount();
  return isThere ? levels.rms[channel * levels.slots + static_cast<std::size_t>(column)] : 0.0f;
}

void WaveformView::Settle() {
  mPainter->DataFor(mSession.View());
  mPainter->Settle();
  UI_Invalidate();
}

void WaveformView::SelectionChanged() {
  SampleSelection const& selection = mSession.Selection();
  float const scale = GetViewScaleFactor();
  RectT<float> const own = UI_GetLocalRectF(false);
  RectT<int> const pixels{0, 0, Columns(scale), static_cast<int>(std::lround(own.height * scale))};
  RectT<int> changed;
  moxmediaui::WaveformDraw& wave = mPainter->Wave();
  Viewport const& view = mSession.View();
  wave.SetViewRange(view.Left(), view.SamplesPerPixel());
  // What the gain of all columns depends on, of samples and of peaks.
  auto const isThereAndInView = [&wave, &view] {
    return std::pair(wave.GetSelectionWidth() > 0,
                     !SelectedColumns(view, wave.GetSelectionLeft(), wave.GetSelectionWidth()).IsEmpty());
  };
  auto const before = isThereAndInView();
  wave.SetSelection(pixels, selection.Left(), selection.Width(), changed);
  bool const changesGain = mSession.Settings().gainDecibel != 0.0 && isThereAndInView() != before;
  if (changesGain || (!changed.IsEmpty() && mSession.DrawsSamples())) {
    UI_Invalidate();  // a curve through samples is drawn anew from end to end
  } else if (!changed.IsEmpty()) {
    RectT<float> const pixelsChanged(changed);
    UI_Invalidate({pixelsChanged.left / scale, pixelsChanged.top / scale, pixelsChanged.width / scale,
                   pixelsChanged.height / scale});
  }
  UI_Invalidate(CursorRect(mCursor));
  mCursor = selection.Head();
  UI_Invalidate(CursorRect(mCursor));
}

void WaveformView::ViewChanged() {
  mCursor = mSession.Selection().Head();
  UI_Invalidate();
}

void WaveformView::UI_SizeChanged(RectT<float> const&) {
  if (int const columns = Columns(GetViewScaleFactor()); columns > 0) {
    mSession.ChangeView([columns](Viewport& view) { view.SetWidth(columns); });
  }
}

void WaveformView::UI_ScaleChanged(float scale) {
  if (int const columns = Columns(scale); columns > 0) {
    mSession.ChangeView([columns](Viewport& view) { view.StretchTo(columns); });
  }
}

bool WaveformView::UI_DoPointerEvent(moxui::ui::UI_Node* node, moxui::ui::PointerEvent const& event) {
  return HandleWaveformWheel(mSession, event, GetViewScaleFactor()) ||
         UI_Node::UI_DoPointerEvent(node, event);
}

bool WaveformView::UI_DoMouseEvent(moxui::ui::UI_Node*, moxui::ui::MouseEvent const& event) {
  switch (event.GetAction()) {
    case PointerAction::kPress:
      if (mDrag != Drag::kNone) {
        return true;  // a second button changes nothing about the drag of the first
      }
      UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kPointer);
      if (event.IsLeftButtonDoubleClick()) {
        mSession.ChangeSelection([](SampleSelection& selection) { selection.SelectAll(); });
        return true;
      }
      BeginDrag(event);
      return mDrag != Drag::kNone;
    case PointerAction::kMove:
      if (mDrag != Drag::kNone) {
        ContinueDrag(event.GetPosition().x);
      } else if (mHover) {
        mHover(static_cast<int>(ColumnAt(event.GetPosition().x)));
      }
      return true;
    case PointerAction::kRelease:
      if (mStep && mStep->EndsWith(event)) {
        EndDrag();
      }
      return true;
    case PointerAction::kLeave:
      if (mHover) {
        mHover(std::nullopt);
      }
      return false;
    default:
      return false;
  }
}

void WaveformView::BeginDrag(moxui::ui::MouseEvent const& event) {
  mDragX = event.GetPosition().x;
  bool const scrolls = event.IsButton(MouseButton::kMiddle) || mSpaceIsDown ||
                       (event.IsButton(MouseButton::kLeft) && event.GetModKey().Has(ModKey::kOption));
  if (scrolls) {
    mDrag = Drag::kScroll;
    mStep = std::make_unique<ViewDrag>(mSession, event.GetButton());
    mSpaceWasUsed = mSpaceIsDown;
  } else if (event.IsButton(MouseButton::kLeft) && mSession.HasSound()) {
    mDrag = Drag::kSelect;
    mStep = std::make_unique<ViewDrag>(mSession);
    auto const sample = static_cast<std::int64_t>(std::llround(mSession.View().SampleAt(ColumnAt(mDragX))));
    bool const extends = event.GetModKey().Has(ModKey::kShift);
    mSession.ChangeSelection([=](SampleSelection& selection) {
      if (extends) {
        selection.TakeNearerEnd(sample);
        selection.ExtendTo(sample);
      } else {
        selection.PlaceAt(sample);
      }
    });
    UI_InstallTimer(kScrollPeriod, kScrollTimer);
  }
}

void WaveformView::ContinueDrag(float x) {
  if (mDrag == Drag::kScroll) {
    double const columns = ColumnAt(mDragX - x);
    mSession.ChangeView([columns](Viewport& view) { view.ScrollBy(columns); });
    mDragX = x;
    return;
  }
  mDragX = x;
  float const inside = std::clamp(x, 0.0f, UI_GetLocalRectF(false).width);
  auto const sample = static_cast<std::int64_t>(std::llround(mSession.View().SampleAt(ColumnAt(inside))));
  mSession.ChangeSelection([sample](SampleSelection& selection) { selection.ExtendTo(sample); });
  if (mHover) {
    mHover(static_cast<int>(ColumnAt(inside)));
  }
}

bool WaveformView::CancelDrag() {
  if (mDrag == Drag::kNone) {
    return false;
  }
  mDrag = Drag::kNone;
  mStep->Cancel();
  EndDrag();
  return true;
}

void WaveformView::EndDrag() {
  mDrag = Drag::kNone;
  mStep.reset();
  UI_RemoveTimer(kScrollTimer);
}

void WaveformView::ScrollWhileSelecting() {
  float const width = UI_GetLocalRectF(false).width;
  double const beyond = mDragX < 0.0f ? mDragX : std::max(mDragX - width, 0.0f);
  if (beyond != 0.0) {
    double const step = std::clamp(beyond, -kLargestScrollStep, kLargestScrollStep) * GetViewScaleFactor();
    mSession.ChangeView([step](Viewport& view) { view.ScrollBy(step); });
    ContinueDrag(mDragX);
  }
}

bool WaveformView::UI_DoTimerNotify(int id) {
  if (id != kScrollTimer) {
    return false;
  }
  if (mDrag == Drag::kSelect) {
    ScrollWhileSelecting();
  } else {
    UI_RemoveTimer(kScrollTimer);
  }
  return true;
}

bool WaveformView::UI_DoKeyboardEvent(moxui::ui::UI_Node*, moxui::ui::KeyboardEvent const& event) {
  bool const isDown = event.IsAction(moxui::ui::KeyAction::kKeyDown);
  if (event.GetCode() == moxui::ui::KeyboardCode::kSpace) {
    return HandleSpace(event);
  }
  return isDown && HandleWaveformKey(mSession, event);
}

// Whether it plays is known only when it is let go: until then it may be for a drag.
bool WaveformView::HandleSpace(moxui::ui::KeyboardEvent const& event) {
  bool const isDown = event.IsAction(moxui::ui::KeyAction::kKeyDown);
  bool const plays = !isDown && mSpaceIsDown && !mSpaceWasUsed;
  if (isDown && !mSpaceIsDown) {
    mSpaceWasUsed = mDrag != Drag::kNone || !event.GetModKey().IsEmpty();
  }
  mSpaceIsDown = isDown;
  if (plays && mPlay) {
    mPlay();
  }
  return true;
}

void WaveformView::UI_FocusChanged(moxui::ui::FocusChangeReason reason) {
  mSpaceIsDown = false;
  if (reason == moxui::ui::FocusChangeReason::kDeactivated) {
    EndDrag();
  }
  UI_Invalidate();
}

moxui::ui::AccessibleRole WaveformView::UI_GetAccessibleRole() const {
  return moxui::ui::AccessibleRole::kImage;
}

moxcore::Utf8String WaveformView::UI_GetAccessibleName() const {
  return moxcore::Utf8String(
      Text("$$$/playground/audio/waveformName=Waveform of @0", {mSession.Current().Title()}));
}

moxcore::Utf8String WaveformView::UI_GetAccessibleValue() const {
  if (!mSession.HasSound()) {
    return {};
  }
  double const rate = mSession.Current().SampleRate();
  auto const time = [rate](std::int64_t sample) {
    return TimeText(static_cast<double>(sample) / rate, 0.001);
  };
  SampleSelection const& selection = mSession.Selection();
  return moxcore::Utf8String(
      selection.IsEmpty() ? time(selection.Head())
                          : Text("$$$/playground/audio/selectedRange=Selected @0 to @1",
                                 {time(selection.Left()), time(selection.Left() + selection.Width())}));
}

}  // namespace playground
