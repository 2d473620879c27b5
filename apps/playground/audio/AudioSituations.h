#pragma once

namespace playground {

class AudioSession;

// Places to begin from, in the order of the audio page's states.
enum class AudioSituation { kWhole, kSelection, kSamples, kLayers, kFade, kNoSound };

// Shows a sound so, in one step of its history. `scale` is that of the screen.
void BeginAt(AudioSession& session, AudioSituation situation, float scale);

}  // namespace playground
