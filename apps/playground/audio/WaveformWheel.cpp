#include "audio/WaveformWheel.h"

#include "audio/AudioSession.h"

#include <moxui/ui/MouseEvent.h>

#include <algorithm>
#include <cmath>

namespace playground {
namespace {

// A wheel that asks for this many pixels doubles or halves the zoom.
constexpr double kWheelPixelsPerOctave = 120.0;

}  // namespace

bool HandleWaveformWheel(AudioSession& session, moxui::ui::PointerEvent const& event, float screenScale) {
  namespace ModKey = moxui::ui::ModKey;
  auto const* const wheel = moxui::ui::WheelEvent::GetWheelEventForPointerEvent(event);
  if (wheel == nullptr) {
    return false;
  }
  double const x = wheel->GetDistance().x;
  double const y = wheel->GetDistance().y;
  double const scale = screenScale;
  if (event.GetModKey().Has(ModKey::kCommand)) {
    session.ChangeSettings([y](WaveformSettings& settings) {
      settings.zoom =
          std::clamp(settings.zoom * std::exp2(y / kWheelPixelsPerOctave), kSmallestZoom, kLargestZoom);
    });
    return true;
  }
  if (event.GetModKey().Has(ModKey::kShift)) {
    session.ChangeView([=](Viewport& view) { view.ScrollBy(-(x + y) * scale); }, ViewStep::kScroll);
    return true;
  }
  double const column = event.GetPosition().x * scale;
  session.ChangeView(
      [=](Viewport& view) {
        view.ZoomAt(column, std::exp2(y / kWheelPixelsPerOctave));
        view.ScrollBy(-x * scale);
      },
      y == 0.0 ? ViewStep::kScroll : ViewStep::kZoom);
  return true;
}

}  // namespace playground
