#include "audio/TransportKeys.h"

#include "audio/AudioSession.h"
#include "audio/Transport.h"

#include <moxui/ui/KeyboardEvent.h>

#include <algorithm>

namespace playground {
namespace {

using moxui::ui::KeyAction;
using moxui::ui::KeyboardCode;
using moxui::ui::ModKeys;
namespace ModKey = moxui::ui::ModKey;

constexpr double kFarther = 10.0;

void MovePlayhead(AudioSession const& session, Transport& transport, double columns) {
  double step = std::max(session.View().SamplesPerPixel(), 1.0);
  if (transport.IsPlaying()) {
    step = std::max(step, static_cast<double>(session.Current().SampleRate()));
  }
  transport.MoveTo(transport.Position() + columns * step);
}

}  // namespace

bool HandlePlayheadKey(AudioSession const& session, Transport& transport,
                       moxui::ui::KeyboardEvent const& event) {
  if (!transport.IsActive() || !event.IsAction(KeyAction::kKeyDown)) {
    return false;
  }
  ModKeys const keys = event.GetModKey();
  KeyboardCode const code = event.GetCode();
  if (keys == ModKeys() && code == KeyboardCode::kEscape) {
    transport.Stop();
    return true;
  }
  bool const farther = keys == ModKeys(ModKey::kCommand);
  if ((keys == ModKeys() || farther) && (code == KeyboardCode::kLeft || code == KeyboardCode::kRight)) {
    double const columns = farther ? kFarther : 1.0;
    MovePlayhead(session, transport, code == KeyboardCode::kLeft ? -columns : columns);
    return true;
  }
  return false;
}

bool HandleTransportKey(Transport& transport, moxui::ui::KeyboardEvent const& event) {
  bool const isDown = event.IsAction(KeyAction::kKeyDown);
  if (!event.GetModKey().IsEmpty()) {
    return false;
  }
  switch (event.GetCode()) {
    case KeyboardCode::kSpace:
      if (isDown && !event.IsRepeat()) {
        transport.PlayOrPause();
      }
      return isDown;
    case KeyboardCode::kR:
      if (isDown && !event.IsRepeat()) {
        transport.SetLoops(!transport.Loops());
      }
      return isDown;
    case KeyboardCode::kEscape:
      if (!isDown || !transport.IsActive()) {
        return false;
      }
      transport.Stop();
      return true;
    case KeyboardCode::kJ:
    case KeyboardCode::kL:
      if (!isDown) {
        transport.ReleaseShuttle();
      } else if (!event.IsRepeat()) {
        transport.Shuttle(event.GetCode() == KeyboardCode::kJ ? -1 : 1);
      }
      return true;
    case KeyboardCode::kK:
      if (!event.IsRepeat()) {
        transport.HoldStill(isDown);
      }
      return true;
    default:
      return false;
  }
}

}  // namespace playground
