// Uses what a client uses: a value of the host, audio made ready for drawing, and what draws it, here into a
// picture in memory, for which no application object is needed.
#include <moxaudiotoolkit/waveform/WaveformData.h>
#include <moxcore/string/ImmutableString.h>
#include <moxmediaui/Module.h>
#include <moxmediaui/WaveformDraw.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <cstdint>
#include <cstdio>
#include <memory>
#include <utility>
#include <vector>

namespace {

using moxaudiotoolkit::waveform::WaveformData;
using moxaudiotoolkit::waveform::WaveformDataProperties;
using moxaudiotoolkit::waveform::WaveformDataType;

constexpr int kWidth = 4;
constexpr int kHeight = 9;
constexpr std::uint32_t kUntouched = 0xff123456;
constexpr std::uint32_t kBlack = 0xff000000;
constexpr std::uint32_t kWhite = 0xffffffff;

bool ReadsAmplitudes() {
  const auto peaks = std::make_shared<WaveformData>(
      WaveformDataProperties{.type = WaveformDataType::kPeaks, .dataSlots = 2, .channelCount = 1},
      std::vector<float>{0.5f, -0.5f, 1.0f, -0.5f});
  return moxmediaui::WaveformDraw().GetAmplitudeFromPixelOffset(0, 1, peaks) == 0.75f;
}

// What a drawing leaves of a picture that is 4 by 9 pixels large, with a row and a column beyond it.
class Picture {
 public:
  void Draw(const moxmediaui::WaveformDraw& waveform, std::shared_ptr<WaveformData> data) {
    const auto surface = moxui::scriber::NewRasterSurfaceOver(mPixels.data(), kWidth + 1, kHeight + 1,
                                                              4 * (kWidth + 1), 1.0f, true);
    moxui::scriber::Scriber scriber(moxui::scriber::GetRasterSupplier(), surface.Get());
    waveform.Draw(&scriber, std::move(data), {0, 0, kWidth, kHeight}, 1.0f);
  }
  std::uint32_t At(int x, int y) const { return mPixels[static_cast<std::size_t>(y * (kWidth + 1) + x)]; }

 private:
  std::vector<std::uint32_t> mPixels =
      std::vector<std::uint32_t>(std::size_t{(kWidth + 1) * (kHeight + 1)}, kUntouched);
};

// Two silent columns between two at full scale: white on black with a line in the middle, and nothing outside
// the rectangle.
bool DrawsPeaks() {
  moxmediaui::WaveformDraw waveform;
  waveform.SetDrawCenterlines(false);
  Picture picture;
  picture.Draw(waveform, std::make_shared<WaveformData>(
                             WaveformDataProperties{
                                 .type = WaveformDataType::kPeaks, .dataSlots = kWidth, .channelCount = 1},
                             std::vector<float>{1, -1, 0, 0, 0, 0, 1, -1}));
  bool isRight = true;
  for (int y = 0; y < kHeight; ++y) {
    const bool isMiddle = y == kHeight / 2;
    isRight = isRight && picture.At(0, y) == kWhite && picture.At(3, y) == kWhite;
    isRight = isRight && (isMiddle || (picture.At(1, y) == kBlack && picture.At(2, y) == kBlack));
    isRight = isRight && picture.At(kWidth, y) == kUntouched;
  }
  return isRight && picture.At(1, kHeight / 2) != kBlack && picture.At(0, kHeight) == kUntouched;
}

// Silence as samples: a curve along the middle row and no other.
bool DrawsSamples() {
  using moxaudiotoolkit::waveform::kLeadInSamples;
  using moxaudiotoolkit::waveform::kLeadOutSamples;
  constexpr std::size_t kSlots = kLeadInSamples + kWidth + 1 + kLeadOutSamples;
  moxmediaui::WaveformDraw waveform;
  waveform.SetDrawCenterlines(false);
  waveform.SetDrawSampleDots(false);
  Picture picture;
  picture.Draw(waveform, std::make_shared<WaveformData>(
                             WaveformDataProperties{
                                 .type = WaveformDataType::kSamples, .dataSlots = kSlots, .channelCount = 1},
                             std::vector<float>(kSlots, 0.0f)));
  return picture.At(1, kHeight / 2) != kBlack && picture.At(1, 0) == kBlack &&
         picture.At(1, kHeight - 1) == kBlack;
}

}  // namespace

int main() {
  const auto name = moxcore::ImmutableString::Create("client");
  moxmediaui::Initialize(moxui::scriber::GetRasterSupplier());
  const bool amplitudes = ReadsAmplitudes();
  const bool peaks = DrawsPeaks();
  const bool samples = DrawsSamples();
  moxmediaui::Terminate();
  std::printf("amplitudes %d, peaks %d, samples %d\n", amplitudes, peaks, samples);
  const bool isRight = name.ToUTF8String() == "client" && amplitudes && peaks && samples;
  std::puts(isRight ? "the installed tree works" : "the installed tree is wrong");
  return isRight ? 0 : 1;
}
