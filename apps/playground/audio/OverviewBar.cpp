#include "audio/OverviewBar.h"

#include "audio/AudioSession.h"
#include "audio/LevelOverlay.h"
#include "audio/TimeRuler.h"
#include "audio/ViewDrag.h"
#include "program/AppearanceState.h"
#include "program/Localized.h"
#include "shell/DevicePixels.h"
#include "shell/Painting.h"

#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxaudiotoolkit/waveform/QueryPyramid.h>
#include <moxcore/config/Errors.h>
#include <moxmediaui/WaveformDraw.h>
#include <moxui/scriber/Drawing.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace playground {
namespace {

using moxui::RectT;
using moxui::ui::PointerAction;
using moxui::ui::ThemeColorID;

constexpr float kNarrowestThumb = 8.0f;
constexpr float kShadeOutside = 0.55f;
// Of the view, for an arrow key and for a page.
constexpr double kLineShare = 0.125;
constexpr double kPageShare = 0.9;

}  // namespace

OverviewBar::OverviewBar(AudioSession& session) : mSession(session) {}
OverviewBar::~OverviewBar() = default;

double OverviewBar::SampleAt(float x) const {
  RectT<float> const own = UI_GetLocalRectF(false);
  return own.width < 1.0f
             ? 0.0
             : static_cast<double>(x / own.width) * static_cast<double>(mSession.View().Frames());
}

RectT<float> OverviewBar::ThumbRect() const {
  RectT<float> const own = UI_GetLocalRectF(false);
  Viewport const& view = mSession.View();
  if (view.Frames() < 1) {
    return {};
  }
  double const frames = static_cast<double>(view.Frames());
  auto const left = static_cast<float>(view.Left() / frames) * own.width;
  auto const right =
      static_cast<float>(std::min((view.Left() + view.VisibleSamples()) / frames, 1.0)) * own.width;
  float const width = std::max(right - left, kNarrowestThumb);
  return {std::min(left, own.width - width), 0.0f, width, own.height};
}

void OverviewBar::UI_Draw(moxui::scriber::Scriber* scriber) const {
  RectT<float> const own = UI_GetLocalRectF(false);
  moxui::ColorRGBA const ground = PaletteOf(CurrentAppearance().theme).Color(WaveformColor::kBackground);
  moxui::utils::DrawRect(scriber, own, ground);
  DrawFocus(scriber);
  float const scale = scriber->GetSurface()->GetScale();
  int const columns = static_cast<int>(std::lround(own.width * scale));
  int const rows = static_cast<int>(std::lround(own.height * scale));
  if (!mSession.Current().Pyramid() || columns < 1 || rows < 1) {
    return;
  }
  try {
    bool const drawn = DrawInDevicePixels(
        *scriber, own, {columns, rows}, {0.0f, 0.0f},
        [&](moxui::scriber::Scriber& layer) { DrawSound(layer, ground, columns, rows, scale); });
    if (!drawn) {
      DrawSound(*scriber, ground, static_cast<int>(own.width), static_cast<int>(own.height), 1.0f);
    }
  } catch (moxcore::config::mox_exception const&) {
    // No memory for the sound in small: the frame still tells where the view is.
  }
  RectT<float> const thumb = ThumbRect();
  moxui::ColorRGBA const shade = ground.WithAlpha(kShadeOutside);
  moxui::utils::DrawRect(scriber, {0.0f, 0.0f, thumb.left, own.height}, shade);
  moxui::utils::DrawRect(scriber, {thumb.Right(), 0.0f, own.width - thumb.Right(), own.height}, shade);
  bool const active = mDrag || mIsHovered;
  moxui::utils::DrawOutline(scriber, thumb.Inset(0.5f),
                            ThemeColor(active ? ThemeColorID::kGray8 : ThemeColorID::kGray6), 1.0f);
}

void OverviewBar::DrawSound(moxui::scriber::Scriber& scriber, moxui::ColorRGBA const& ground, int columns,
                            int rows, float scale) const {
  auto const& pyramid = mSession.Current().Pyramid();
  double const samplesPerPixel = std::max(static_cast<double>(pyramid->GetFrameCount()) / columns, 1e-3);
  // What is drawn while peaks arrive is asked for again as soon as there are more.
  std::int64_t const pages = pyramid->GetPagesDone();
  if (mDrawnPeaks != pyramid || mDrawnPages != pages || mDrawnWidth != columns) {
    mDrawnPeaks = pyramid;
    mDrawnPages = pages;
    mDrawnWidth = columns;
    mData = moxaudiotoolkit::waveform::QueryWaveform(
        *pyramid, nullptr, 0.0, samplesPerPixel, columns,
        {.detail = moxaudiotoolkit::waveform::WaveformDetail::kPeaks});
    mLevels = pages == pyramid->GetPageCount() ? moxaudiotoolkit::waveform::ColumnLevels()
                                               : moxaudiotoolkit::waveform::QueryColumnLevels(
                                                     *pyramid, nullptr, 0.0, samplesPerPixel, columns);
  }
  moxmediaui::WaveformDraw draw;
  draw.SetBackgroundColor(ground);
  draw.SetChannelColors({ThemeColor(ThemeColorID::kGray6)});
  draw.SetLayeredChannels(true);
  draw.SetDrawCenterlines(false);
  draw.SetViewRange(0.0, samplesPerPixel);
  draw.Draw(&scriber, mData, {0, 0, columns, rows}, scale);
  DrawUnread(scriber, mLevels, ground, columns, rows);
}

void OverviewBar::DrawFocus(moxui::scriber::Scriber* scriber) const {
  if (UI_HasKeyboardFocus()) {
    DrawFocusRing(scriber, UI_GetLocalRectF(false));
  }
}

moxui::PaddingT<float> OverviewBar::UI_GetDrawOverhang() const {
  return {kFocusReach, kFocusReach, kFocusReach, kFocusReach};
}

bool OverviewBar::UI_WantsKeyboardFocus() const {
  return mSession.HasSound();
}

void OverviewBar::UI_FocusChanged(moxui::ui::FocusChangeReason reason) {
  if (reason == moxui::ui::FocusChangeReason::kDeactivated) {
    EndDrag();
  }
  UI_Invalidate();
}

bool OverviewBar::UI_DoKeyboardEvent(moxui::ui::UI_Node*, moxui::ui::KeyboardEvent const& event) {
  using moxui::ui::KeyboardCode;
  if (!event.IsAction(moxui::ui::KeyAction::kKeyDown) || !event.GetModKey().IsEmpty()) {
    return false;
  }
  Viewport const& view = mSession.View();
  double const visible = view.VisibleSamples();
  double left = view.Left();
  switch (event.GetCode()) {
    case KeyboardCode::kLeft:
    case KeyboardCode::kUp:
      left -= visible * kLineShare;
      break;
    case KeyboardCode::kRight:
    case KeyboardCode::kDown:
      left += visible * kLineShare;
      break;
    case KeyboardCode::kPageUp:
      left -= visible * kPageShare;
      break;
    case KeyboardCode::kPageDown:
      left += visible * kPageShare;
      break;
    case KeyboardCode::kHome:
      left = 0.0;
      break;
    case KeyboardCode::kEnd:
      left = static_cast<double>(view.Frames());
      break;
    default:
      return false;
  }
  mSession.ChangeView([left](Viewport& changed) { changed.ScrollTo(left); }, ViewStep::kScroll);
  return true;
}

bool OverviewBar::UI_DoMouseEvent(moxui::ui::UI_Node*, moxui::ui::MouseEvent const& event) {
  double const sample = SampleAt(event.GetPosition().x);
  if (event.IsAction(PointerAction::kPress) && event.IsButton(moxui::ui::MouseButton::kLeft)) {
    mDrag = std::make_unique<ViewDrag>(mSession);
    UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kPointer);
    if (!ThumbRect().Contains(event.GetPosition())) {
      mSession.ChangeView([sample](Viewport& view) { view.ScrollTo(sample - view.VisibleSamples() / 2.0); });
    }
    mGrab = sample - mSession.View().Left();
    UI_Invalidate();
    return true;
  }
  if (event.IsAction(PointerAction::kMove) && mDrag) {
    double const left = sample - mGrab;
    mSession.ChangeView([left](Viewport& view) { view.ScrollTo(left); });
    return true;
  }
  if (event.IsAction(PointerAction::kRelease) && mDrag && mDrag->EndsWith(event)) {
    EndDrag();
    return true;
  }
  return false;
}

void OverviewBar::EndDrag() {
  mDrag.reset();
  UI_Invalidate();
}

bool OverviewBar::CancelDrag() {
  if (!mDrag) {
    return false;
  }
  auto const drag = std::move(mDrag);  // listeners may look at this view
  drag->Cancel();
  UI_Invalidate();
  return true;
}

bool OverviewBar::UI_InvalidateOnMouseOverChange(bool over) {
  mIsHovered = over;
  return true;
}

moxui::ui::AccessibleRole OverviewBar::UI_GetAccessibleRole() const {
  return moxui::ui::AccessibleRole::kScrollBar;
}

moxcore::Utf8String OverviewBar::UI_GetAccessibleName() const {
  return moxcore::Utf8String(Text("$$$/playground/audio/overviewName=Position in the sound"));
}

moxcore::Utf8String OverviewBar::UI_GetAccessibleValue() const {
  if (!mSession.HasSound()) {
    return {};
  }
  double const rate = mSession.Current().SampleRate();
  Viewport const& view = mSession.View();
  double const end = std::min(view.Left() + view.VisibleSamples(), static_cast<double>(view.Frames()));
  return moxcore::Utf8String(Text("$$$/playground/audio/overviewValue=@0 to @1",
                                  {TimeText(view.Left() / rate, 0.001), TimeText(end / rate, 0.001)}));
}

}  // namespace playground
