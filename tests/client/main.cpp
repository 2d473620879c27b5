// Uses what a client uses: a value of the host, audio made ready for drawing, and what draws it.
#include <moxaudiotoolkit/waveform/WaveformData.h>
#include <moxcore/string/ImmutableString.h>
#include <moxmediaui/WaveformDraw.h>

#include <cstdio>
#include <memory>
#include <vector>

int main() {
  using moxaudiotoolkit::waveform::WaveformData;
  using moxaudiotoolkit::waveform::WaveformDataProperties;
  using moxaudiotoolkit::waveform::WaveformDataType;

  const auto name = moxcore::ImmutableString::Create("client");
  const auto peaks = std::make_shared<WaveformData>(
      WaveformDataProperties{.type = WaveformDataType::kPeaks, .dataSlots = 2, .channelCount = 1},
      std::vector<float>{0.5f, -0.5f, 1.0f, -0.5f});
  const moxmediaui::WaveformDraw waveform;
  const float amplitude = waveform.GetAmplitudeFromPixelOffset(0, 1, peaks);

  const bool isRight = name.ToUTF8String() == "client" && amplitude == 0.75f;
  std::puts(isRight ? "the installed tree works" : "the installed tree is wrong");
  return isRight ? 0 : 1;
}
