#include "audio/AudioSituations.h"

#include "audio/AudioSession.h"
#include "audio/ViewDrag.h"

namespace playground {
namespace {

// Logical pixels between single samples.
constexpr double kSampleDistance = 14.0;

}  // namespace

void BeginAt(AudioSession& session, AudioSituation situation, float scale) {
  if (situation == AudioSituation::kNoSound) {
    session.ShowDocument(session.Documents().size());
    return;
  }
  if (!session.HasSound()) {
    session.ShowDocument(0);
  }
  ViewDrag const oneStep(session);
  double const frames = static_cast<double>(session.View().Frames());
  auto const at = [frames](double share) { return static_cast<std::int64_t>(share * frames); };
  bool const fades = situation == AudioSituation::kFade;
  session.ChangeSettings([&](WaveformSettings& settings) {
    settings.layered = situation == AudioSituation::kLayers;
    settings.fadeDirection = fades ? FadeDirection::kIn : FadeDirection::kNone;
    settings.fadeStart = 0;
    settings.fadeEnd = fades ? at(0.6) : at(1.0);
    settings.fadeAmount = fades ? 2.0 : settings.fadeAmount;
  });
  session.ChangeView([&](Viewport& view) {
    view.ShowAll();
    if (situation == AudioSituation::kSamples) {
      // As many samples at each scale of the screen.
      double const visible = view.Width() / (kSampleDistance * static_cast<double>(scale));
      view.Show(frames / 3.0, frames / 3.0 + visible);
    }
  });
  session.ChangeSelection([&](SampleSelection& selection) {
    if (situation == AudioSituation::kSelection) {
      selection.Select(at(0.28), at(0.46));
    } else if (situation == AudioSituation::kSamples) {
      auto const left = static_cast<std::int64_t>(session.View().Left());
      auto const visible = static_cast<std::int64_t>(session.View().VisibleSamples());
      selection.Select(left + visible * 2 / 5, left + visible * 3 / 5);
    } else {
      selection.PlaceAt(0);
    }
  });
}

}  // namespace playground
