#include "playground/audio/PaintedWaveforms.h"

#include <moxaudiotoolkit/DecodedAudio.h>
#include <moxaudiotoolkit/peaks/PeakBuilder.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>
#include <moxui/scriber/RasterSupplier.h>

#include <algorithm>
#include <memory>
#include <random>
#include <utility>

namespace playground {

Canvas::Canvas(int width, int height, float scale)
    : mPixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0xFF123456u),
      mSurface(moxui::scriber::NewRasterSurfaceOver(mPixels.data(), width, height, width * 4, scale, true)),
      mScriber(moxui::scriber::GetRasterSupplier(), mSurface.Get()) {}

std::string DifferenceOf(std::vector<std::uint32_t> const& actual, std::vector<std::uint32_t> const& expected,
                         int columns) {
  if (actual.size() != expected.size()) {
    return std::to_string(actual.size()) + " pixels instead of " + std::to_string(expected.size());
  }
  auto const width = static_cast<std::size_t>(columns);
  std::size_t count = 0;
  std::size_t left = width;
  std::size_t right = 0;
  std::size_t top = actual.size();
  std::size_t bottom = 0;
  for (std::size_t i = 0; i < actual.size(); ++i) {
    if (actual[i] != expected[i]) {
      ++count;
      left = std::min(left, i % width);
      right = std::max(right, i % width);
      top = std::min(top, i / width);
      bottom = std::max(bottom, i / width);
    }
  }
  return count == 0 ? ""
                    : std::to_string(count) + " pixels differ, in columns " + std::to_string(left) + " to " +
                          std::to_string(right) + " and rows " + std::to_string(top) + " to " +
                          std::to_string(bottom);
}

AudioDocument Noise(int channels, std::size_t frames) {
  std::mt19937 random(5);
  std::uniform_real_distribution<float> value(-1.3f, 1.3f);
  std::vector<std::vector<float>> samples(static_cast<std::size_t>(channels), std::vector<float>(frames));
  for (auto& channel : samples) {
    for (std::size_t i = 0; i < frames; ++i) {
      channel[i] = std::clamp(value(random) * static_cast<float>(i % 5000) / 5000.0f, -1.0f, 1.0f);
    }
  }
  auto const source = moxaudiotoolkit::MakeSampleSource(
      std::make_shared<moxaudiotoolkit::DecodedAudio>(8000, std::move(samples)));
  moxaudiotoolkit::PeakBuilder builder(source);
  builder.Wait();
  return {"noise", source, builder.GetPyramid()};
}

}  // namespace playground
