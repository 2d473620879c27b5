#include "audio/WaveformKeys.h"

#include "audio/AudioSession.h"

#include <moxui/ui/KeyboardEvent.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace playground {
namespace {

using moxui::ui::KeyboardCode;
using moxui::ui::ModKeys;
namespace ModKey = moxui::ui::ModKey;

constexpr double kPageShare = 0.9;
constexpr double kKeyZoom = 2.0;
constexpr double kLevelZoom = 1.25;
constexpr double kFarther = 10.0;  // columns, for an arrow key with command

void Scroll(AudioSession& session, double share) {
  session.ChangeView([share](Viewport& view) { view.ScrollBy(share * view.Width()); }, ViewStep::kScroll);
}

void ZoomTime(AudioSession& session, double factor) {
  session.ChangeView([factor](Viewport& view) { view.ZoomAt(view.Width() / 2.0, factor); }, ViewStep::kZoom);
}

void ZoomLevel(AudioSession& session, double factor) {
  session.ChangeSettings([factor](WaveformSettings& settings) {
    settings.zoom = std::clamp(settings.zoom * factor, kSmallestZoom, kLargestZoom);
  });
}

void MoveHeadTo(AudioSession& session, double sample) {
  auto const head = static_cast<std::int64_t>(std::llround(sample));
  session.ChangeSelection([head](SampleSelection& selection) { selection.ExtendTo(head); },
                          ViewStep::kSelect);
  auto const place = static_cast<double>(session.Selection().Head());
  session.ChangeView([place](Viewport& view) { view.Reveal(place); }, ViewStep::kSelect);
}

void MoveHeadBy(AudioSession& session, double columns) {
  // At least one sample, however far the view is zoomed in.
  double const step = std::max(std::abs(columns) * session.View().SamplesPerPixel(), 1.0);
  MoveHeadTo(session, static_cast<double>(session.Selection().Head()) + (columns < 0.0 ? -step : step));
}

void PlaceAt(AudioSession& session, std::int64_t sample) {
  session.ChangeSelection([sample](SampleSelection& selection) { selection.PlaceAt(sample); },
                          ViewStep::kSelect);
  auto const place = static_cast<double>(session.Selection().Head());
  session.ChangeView([place](Viewport& view) { view.Reveal(place); }, ViewStep::kSelect);
}

// From a selection the cursor first goes to its end on that side, as in a text.
void MoveCursorBy(AudioSession& session, double columns) {
  SampleSelection const& selection = session.Selection();
  if (!selection.IsEmpty()) {
    PlaceAt(session, selection.Left() + (columns < 0.0 ? 0 : selection.Width()));
    return;
  }
  double const step = std::max(std::abs(columns) * session.View().SamplesPerPixel(), 1.0);
  auto const distance = static_cast<std::int64_t>(std::llround(step));
  PlaceAt(session, selection.Head() + (columns < 0.0 ? -distance : distance));
}

bool HandleWithShift(AudioSession& session, KeyboardCode code) {
  switch (code) {
    case KeyboardCode::kLeft:
      MoveHeadBy(session, -1.0);
      return true;
    case KeyboardCode::kRight:
      MoveHeadBy(session, 1.0);
      return true;
    case KeyboardCode::kPageUp:
      MoveHeadBy(session, -kPageShare * session.View().Width());
      return true;
    case KeyboardCode::kPageDown:
      MoveHeadBy(session, kPageShare * session.View().Width());
      return true;
    case KeyboardCode::kHome:
      MoveHeadTo(session, 0.0);
      return true;
    case KeyboardCode::kEnd:
      MoveHeadTo(session, static_cast<double>(session.View().Frames()));
      return true;
    case KeyboardCode::kZ:
      session.LeaveSelectionZoom();
      return true;
    default:
      return false;
  }
}

bool HandlePlain(AudioSession& session, KeyboardCode code) {
  switch (code) {
    case KeyboardCode::kLeft:
      MoveCursorBy(session, -1.0);
      return true;
    case KeyboardCode::kRight:
      MoveCursorBy(session, 1.0);
      return true;
    case KeyboardCode::kPageUp:
      Scroll(session, -kPageShare);
      return true;
    case KeyboardCode::kPageDown:
      Scroll(session, kPageShare);
      return true;
    case KeyboardCode::kUp:
      ZoomLevel(session, kLevelZoom);
      return true;
    case KeyboardCode::kDown:
      ZoomLevel(session, 1.0 / kLevelZoom);
      return true;
    case KeyboardCode::kHome:
      PlaceAt(session, 0);
      return true;
    case KeyboardCode::kEnd:
      PlaceAt(session, session.View().Frames());
      return true;
    case KeyboardCode::kF:
      session.ChangeView([](Viewport& view) { view.ShowAll(); });
      return true;
    case KeyboardCode::kZ:
      session.ToggleSelectionZoom();
      return true;
    case KeyboardCode::kEscape: {
      bool const hadSelection = !session.Selection().IsEmpty();
      session.ChangeSelection([](SampleSelection& selection) { selection.Clear(); });
      return hadSelection;
    }
    default:
      return false;
  }
}

bool HandleZoom(AudioSession& session, KeyboardCode code) {
  if (code == KeyboardCode::kPlus || code == KeyboardCode::kEqual) {
    ZoomTime(session, kKeyZoom);
    return true;
  }
  if (code == KeyboardCode::kMinus) {
    ZoomTime(session, 1.0 / kKeyZoom);
    return true;
  }
  return false;
}

}  // namespace

bool HandleWaveformKey(AudioSession& session, moxui::ui::KeyboardEvent const& event) {
  KeyboardCode const code = event.GetCode();
  ModKeys const keys = event.GetModKey();
  // On many keyboards the plus needs shift.
  if ((keys == ModKeys() || keys == ModKeys(ModKey::kShift)) && HandleZoom(session, code)) {
    return true;
  }
  if (keys == ModKeys(ModKey::kCommand) && code == KeyboardCode::kA) {
    session.ChangeSelection([](SampleSelection& selection) { selection.SelectAll(); });
    return true;
  }
  if (code == KeyboardCode::kLeft || code == KeyboardCode::kRight) {
    double const farther = code == KeyboardCode::kLeft ? -kFarther : kFarther;
    if (keys == ModKeys(ModKey::kCommand)) {
      MoveCursorBy(session, farther);
      return true;
    }
    if (keys == ModKeys(ModKey::kCommand | ModKey::kShift)) {
      MoveHeadBy(session, farther);
      return true;
    }
  }
  if (keys == ModKeys(ModKey::kShift)) {
    return HandleWithShift(session, code);
  }
  if (keys != ModKeys()) {
    return false;
  }
  if (code >= KeyboardCode::k1 && code <= KeyboardCode::k9) {
    session.ToggleChannel(static_cast<std::size_t>(code) - static_cast<std::size_t>(KeyboardCode::k1));
    return true;
  }
  return HandlePlain(session, code);
}

}  // namespace playground
