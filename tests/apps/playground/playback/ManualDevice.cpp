#include "ManualDevice.h"

#include <cstddef>
#include <utility>

namespace playground {

class ManualDevice::Output : public AudioOutput {
 public:
  explicit Output(ManualDevice& device) : mDevice(device) {}
  ~Output() override { Output::Close(); }

  AudioFormat Open(AudioFormat const& wanted, PullFunction pull) override {
    Close();
    if (!mDevice.refusal.empty()) {
      throw AudioOutputError(mDevice.refusal);
    }
    mDevice.mPull = std::move(pull);
    mDevice.mWanted = wanted;
    mDevice.mIsOpen = true;
    mDevice.mIsLost = false;
    ++mDevice.mOpenCount;
    AudioFormat got = wanted;
    got.sampleRate = mDevice.rate > 0 ? mDevice.rate : wanted.sampleRate;
    return got;
  }
  void Close() override {
    mDevice.mIsOpen = mDevice.mIsStarted = false;
    mDevice.mPull = {};
  }
  bool IsOpen() const override { return mDevice.mIsOpen; }
  void Start() override {
    if (mDevice.refusesToStart) {
      throw AudioOutputError("busy");
    }
    mDevice.mIsStarted = true;
  }
  void Stop() override { mDevice.mIsStarted = false; }
  double Latency() const override { return mDevice.latency; }
  bool IsLost() const override { return mDevice.mIsLost; }

 private:
  ManualDevice& mDevice;
};

std::unique_ptr<AudioOutput> ManualDevice::MakeOutput() {
  return std::make_unique<Output>(*this);
}

std::vector<float> ManualDevice::Pull(int frames) {
  if (!mIsStarted || mIsLost) {
    return {};
  }
  // What isn't written to is seen.
  std::vector<float> pairs(static_cast<std::size_t>(frames) * 2, -12345.0f);
  mPull(pairs);
  return pairs;
}

}  // namespace playground
