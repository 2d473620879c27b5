#include <moxaudiotoolkit/DecodedAudio.h>
#include <moxaudiotoolkit/DemoSound.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <utility>
#include <vector>

namespace moxaudiotoolkit {
namespace {

constexpr int kSampleRate = 48000;
constexpr double kSeconds = 12.0;
constexpr auto kFrames = static_cast<std::size_t>(kSeconds * kSampleRate);
constexpr double kTurn = 2.0 * std::numbers::pi;

using Samples = std::vector<float>;

std::size_t FrameAt(double seconds) {
  return static_cast<std::size_t>(seconds * kSampleRate);
}

// White noise from -1 to 1 that is the same everywhere.
class Noise {
 public:
  explicit Noise(std::uint32_t seed) : mState(seed) {}

  float Next() {
    mState ^= mState << 13;
    mState ^= mState >> 17;
    mState ^= mState << 5;
    return static_cast<float>(static_cast<double>(mState) / 2147483648.0 - 1.0);
  }

 private:
  std::uint32_t mState;
};

// A sine of one frequency, turned on from sample to sample; much cheaper than a sine of its phase for each.
class Sine {
 public:
  explicit Sine(double hertz) : mStep(std::polar(1.0, kTurn * hertz / kSampleRate)) {}

  // The cosine of the phase, for what starts at its height.
  double NextCosine() { return Advance().real(); }
  double Next() { return Advance().imag(); }

 private:
  std::complex<double> Advance() {
    const std::complex<double> now = mNow;
    mNow = {now.real() * mStep.real() - now.imag() * mStep.imag(),
            now.real() * mStep.imag() + now.imag() * mStep.real()};
    return now;
  }

  std::complex<double> mStep;
  std::complex<double> mNow{1.0, 0.0};
};

// A resonance, as of a vocal tract: rings at a frequency and lets others fade.
class Resonator {
 public:
  void Tune(double hertz, double bandwidth) {
    const double radius = std::exp(-std::numbers::pi * bandwidth / kSampleRate);
    mFeedback1 = 2.0 * radius * std::cos(kTurn * hertz / kSampleRate);
    mFeedback2 = -radius * radius;
    mGain = 1.0 - radius;
  }

  double Next(double input) {
    const double output = mGain * input + mFeedback1 * mLast + mFeedback2 * mBeforeLast;
    mBeforeLast = std::exchange(mLast, output);
    return output;
  }

 private:
  double mFeedback1 = 0.0;
  double mFeedback2 = 0.0;
  double mGain = 0.0;
  double mLast = 0.0;
  double mBeforeLast = 0.0;
};

// Scales the samples so that the loudest reaches `peak`.
void Normalise(Samples& samples, float peak) {
  float loudest = 0.0F;
  for (const float sample : samples) {
    loudest = std::max(loudest, std::fabs(sample));
  }
  for (float& sample : samples) {
    sample *= loudest > 0.0F ? peak / loudest : 0.0F;
  }
}

// A plucked string: a burst of noise that runs round a delay line and loses its edge at each turn.
void Pluck(Samples& samples, double start, double hertz, float level, Noise& noise) {
  std::vector<float> string(static_cast<std::size_t>(kSampleRate / hertz));
  std::ranges::generate(string, [&] { return noise.Next(); });
  std::size_t at = 0;
  for (std::size_t i = FrameAt(start); i < samples.size(); ++i) {
    const std::size_t next = at + 1 < string.size() ? at + 1 : 0;
    samples[i] += level * string[at];
    string[at] = 0.4985F * (string[at] + string[next]);
    at = next;
  }
}

// A melody in plucked notes, a broken chord every other second.
Samples PluckedNotes() {
  constexpr std::array kNotes{110.0, 164.81, 220.0, 277.18, 329.63, 440.0, 329.63, 277.18};
  Samples samples(kFrames);
  Noise noise(0x5EED0001);
  double start = 0.25;
  for (std::size_t i = 0; start < kSeconds - 0.5; ++i) {
    const bool chordEnds = i % 4 == 3;
    Pluck(samples, start, kNotes[i % kNotes.size()], chordEnds ? 1.0F : 0.6F, noise);
    start += chordEnds ? 1.1 : 0.2 + 0.05 * static_cast<double>(i % 3);
  }
  Normalise(samples, 0.92F);
  return samples;
}

// A tone that rises from 20 Hz to 12 kHz, swelling and ebbing.
Samples ToneSweep() {
  Samples samples(kFrames);
  Sine swelling(1.0 / 4.0);
  double phase = 0.0;
  double hertz = 20.0;
  const double rise = std::pow(12000.0 / hertz, 1.0 / kFrames);
  for (std::size_t i = 0; i < kFrames; ++i) {
    const double t = static_cast<double>(i) / kSampleRate;
    phase += hertz / kSampleRate;
    phase -= phase >= 1.0 ? 1.0 : 0.0;
    hertz *= rise;
    const double swell = 0.55 + 0.35 * swelling.NextCosine();
    const double fade = std::min({1.0, t / 0.05, (kSeconds - t) / 0.4});
    samples[i] = static_cast<float>(swell * fade * std::sin(kTurn * phase));
  }
  return samples;
}

// Syllables: pulses of a voice through three resonances, in words with pauses between them.
Samples Speech() {
  struct Vowel {
    double formants[3];
  };
  constexpr std::array kVowels{Vowel{{730, 1090, 2440}}, Vowel{{270, 2290, 3010}}, Vowel{{570, 840, 2410}},
                               Vowel{{530, 1840, 2480}}, Vowel{{300, 870, 2240}}};
  Samples samples(kFrames);
  Noise noise(0x5EED0003);
  double start = 0.4;
  double phase = 0.0;
  for (std::size_t syllable = 0; start < kSeconds - 0.6; ++syllable) {
    const double length = 0.16 + 0.09 * (1.0 + noise.Next());
    const double loudness = 0.6 + 0.4 * std::fabs(noise.Next());
    const double pitch = 118.0 + 22.0 * noise.Next();
    const Vowel& vowel = kVowels[(syllable * 3 + syllable / 4) % kVowels.size()];
    std::array<Resonator, 3> tract;
    for (std::size_t f = 0; f < tract.size(); ++f) {
      tract[f].Tune(vowel.formants[f], 70.0 + 40.0 * static_cast<double>(f));
    }
    const std::size_t first = FrameAt(start);
    const std::size_t count = FrameAt(length);
    for (std::size_t i = 0; i < count; ++i) {
      const double at = static_cast<double>(i) / static_cast<double>(count);
      const double rise = std::sin(std::numbers::pi * std::sqrt(at));
      phase += pitch * (1.08 - 0.16 * at) / kSampleRate;
      const bool pulse = phase >= 1.0;
      phase -= std::floor(phase);
      const double breath = 0.03 * noise.Next() * (at < 0.2 ? 2.5 : 1.0);
      const double source = (pulse ? 1.0 : 0.0) + breath;
      const double voice = tract[0].Next(source) + 0.6 * tract[1].Next(source) + 0.3 * tract[2].Next(source);
      samples[first + i] = static_cast<float>(loudness * rise * rise * voice);
    }
    start += length + (syllable % 5 == 4 ? 0.45 : 0.03);
  }
  Normalise(samples, 0.85F);
  return samples;
}

// Three low tones that beat with one another, in slow waves.
Samples Rumble() {
  Samples samples(kFrames);
  Sine wave(1.0 / 6.0);
  Sine low(31.0);
  Sine middle(33.5);
  Sine high(55.0);
  for (float& sample : samples) {
    const double tones = low.Next() + 0.7 * middle.Next() + 0.4 * high.Next();
    sample = static_cast<float>((0.55 - 0.45 * wave.NextCosine()) * tones);
  }
  Normalise(samples, 0.8F);
  return samples;
}

// Bursts of noise, each with a sharp start and a decay; every other one is darker.
Samples NoiseBursts() {
  Samples samples(kFrames);
  Noise noise(0x5EED0005);
  double start = 0.5;
  for (std::size_t burst = 0; start < kSeconds - 0.8; ++burst) {
    const double decay = burst % 2 == 0 ? 0.09 : 0.3;
    const float darkness = burst % 2 == 0 ? 0.0F : 0.85F;
    const double fall = std::exp(-1.0 / (decay * kSampleRate));
    const std::size_t first = FrameAt(start);
    const std::size_t count = FrameAt(0.75);
    float smooth = 0.0F;
    double level = 1.0;
    for (std::size_t i = 0; i < count; ++i, level *= fall) {
      smooth = darkness * smooth + (1.0F - darkness) * noise.Next();
      const double rest = static_cast<double>(count - i) / static_cast<double>(count);
      samples[first + i] += smooth * static_cast<float>(level * rest);
    }
    start += burst % 3 == 2 ? 1.25 : 0.75;
  }
  Normalise(samples, 0.9F);
  return samples;
}

// Clicks that come faster and faster and slower again; single samples, alternately up and down, with an echo.
Samples Clicks() {
  Samples samples(kFrames);
  double start = 0.3;
  for (int click = 0; start < kSeconds - 0.1; ++click) {
    const float sign = click % 2 == 0 ? 1.0F : -1.0F;
    samples[FrameAt(start)] += sign * 0.95F;
    for (std::size_t i = 0; i < FrameAt(0.02); ++i) {
      const double t = static_cast<double>(i) / kSampleRate;
      samples[FrameAt(start + 0.015) + i] +=
          sign * 0.35F * static_cast<float>(std::exp(-t * 250.0) * std::sin(kTurn * 1800.0 * t));
    }
    start += 0.06 + 0.5 * std::fabs(start / kSeconds - 0.55);
  }
  return samples;
}

}  // namespace

std::shared_ptr<const DecodedAudio> SynthesiseDemoSound() {
  std::vector<Samples> channels;
  channels.push_back(PluckedNotes());
  channels.push_back(ToneSweep());
  channels.push_back(Speech());
  channels.push_back(Rumble());
  channels.push_back(NoiseBursts());
  channels.push_back(Clicks());
  return std::make_shared<const DecodedAudio>(kSampleRate, std::move(channels));
}

}  // namespace moxaudiotoolkit
