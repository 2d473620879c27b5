#include "playback/SdlOutput.h"

#include <SDL.h>

#include <utility>

namespace playground {
namespace {

class SdlOutput : public AudioOutput {
 public:
  ~SdlOutput() override { SdlOutput::Close(); }

  AudioFormat Open(AudioFormat const& wanted, PullFunction pull) override {
    Close();
    // Of SDL only the sound is wanted: window, input and the signals of the process belong to others.
    SDL_SetMainReady();
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_APP_NAME, "moxmediaui Playground");
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
      Fail();
    }
    mHasSystem = true;
    // Nobody fetches SDL's events: they would only pile up.
    SDL_EventState(SDL_AUDIODEVICEADDED, SDL_IGNORE);
    SDL_EventState(SDL_AUDIODEVICEREMOVED, SDL_IGNORE);
    mPull = std::move(pull);
    SDL_AudioSpec spec{};
    spec.freq = wanted.sampleRate;
    spec.format = AUDIO_F32SYS;
    spec.channels = static_cast<Uint8>(wanted.channelCount);
    spec.samples = static_cast<Uint16>(wanted.blockFrames);
    spec.callback = &SdlOutput::Pull;
    spec.userdata = this;
    SDL_AudioSpec got{};
    mDevice = SDL_OpenAudioDevice(nullptr, 0, &spec, &got, 0);
    if (mDevice == 0) {
      std::string const reason = SDL_GetError();
      Close();
      throw AudioOutputError(reason);
    }
    mFormat = {.sampleRate = got.freq, .channelCount = got.channels, .blockFrames = got.samples};
    return mFormat;
  }

  void Close() override {
    if (mDevice != 0) {
      SDL_CloseAudioDevice(mDevice);
      mDevice = 0;
    }
    if (mHasSystem) {
      SDL_QuitSubSystem(SDL_INIT_AUDIO);
      mHasSystem = false;
    }
    mPull = {};
  }

  bool IsOpen() const override { return mDevice != 0; }

  void Start() override { SDL_PauseAudioDevice(mDevice, 0); }
  // Waits for a callback that runs.
  void Stop() override { SDL_PauseAudioDevice(mDevice, 1); }

  // One block sounds while the next is ready. What lies behind that, SDL doesn't tell.
  double Latency() const override {
    return mFormat.sampleRate > 0 ? 2.0 * mFormat.blockFrames / mFormat.sampleRate : 0.0;
  }

  // SDL calls a device stopped when it has gone or its driver has given it up.
  bool IsLost() const override {
    return mDevice != 0 && SDL_GetAudioDeviceStatus(mDevice) == SDL_AUDIO_STOPPED;
  }

 private:
  [[noreturn]] static void Fail() { throw AudioOutputError(SDL_GetError()); }

  static void Pull(void* self, Uint8* bytes, int count) {
    auto const& output = *static_cast<SdlOutput*>(self);
    output.mPull({reinterpret_cast<float*>(bytes), static_cast<std::size_t>(count) / sizeof(float)});
  }

  SDL_AudioDeviceID mDevice = 0;
  bool mHasSystem = false;
  AudioFormat mFormat;
  PullFunction mPull;
};

}  // namespace

std::unique_ptr<AudioOutput> NewSdlOutput() {
  return std::make_unique<SdlOutput>();
}

}  // namespace playground
