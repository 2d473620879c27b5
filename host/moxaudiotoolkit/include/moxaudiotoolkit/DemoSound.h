#pragma once

#include <memory>

namespace moxaudiotoolkit {

class DecodedAudio;

// Twelve seconds of sound at 48 kHz to show and try things on, the same at each call: left and right with
// plucked notes and a tone sweep, centre with speech-like syllables, a rumbling LFE, surrounds with noise
// bursts and clicks (in the order left, right, centre, LFE, left surround, right surround).
std::shared_ptr<const DecodedAudio> SynthesiseDemoSound();

}  // namespace moxaudiotoolkit
