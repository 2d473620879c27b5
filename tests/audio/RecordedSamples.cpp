#include "RecordedSamples.h"

#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/RecordingSupplier.h>

#include <utility>

namespace audio_tests {

using moxmediaui::PointT;
using moxmediaui::RectT;
using moxmediaui::WaveformData;
using moxui::testing::RecordedCall;

std::shared_ptr<WaveformData> MakeData(std::vector<std::vector<float>> const& channels) {
  std::vector<float> samples;
  for (std::vector<float> const& channel : channels) {
    samples.insert(samples.end(), channel.begin(), channel.end());
  }
  return std::make_shared<WaveformData>(
      moxmediaui::WaveformDataProperties{moxmediaui::WaveformDataType::kSamples, channels.at(0).size(),
                                         channels.size()},
      std::move(samples));
}

std::vector<std::vector<float>> MakeChannels(std::mt19937& random, int channels, int count) {
  std::uniform_real_distribution<float> value(-1.3f, 1.3f);
  std::vector<std::vector<float>> result(static_cast<std::size_t>(channels));
  for (std::vector<float>& channel : result) {
    for (int i = 0; i < count; ++i) {
      channel.push_back(value(random));
    }
  }
  return result;
}

std::vector<RecordedCall> RecordSamples(OpenWaveformDraw const& draw,
                                        std::shared_ptr<WaveformData> const& data, RectT<int> const& rect,
                                        float scale) {
  moxui::testing::RecordingSupplier supplier;
  moxui::scriber::SurfaceP const surface = supplier.NewOffscreenSurface(800, 400, 1.0f);
  supplier.Clear();
  moxui::scriber::Scriber scriber(&supplier, surface.Get());
  draw.Draw(&scriber, data, rect, scale);
  std::vector<RecordedCall> calls;
  bool inLayer = false;
  for (RecordedCall const& call : supplier.GetCalls()) {
    inLayer = inLayer || call.operation == "NewOffscreenSurface";
    if (inLayer) {
      calls.push_back(call);
    }
    inLayer = inLayer && call.operation != "DrawImage";
  }
  return calls;
}

std::vector<PointT<float>> CurvePoints(std::vector<RecordedCall> const& calls) {
  std::vector<PointT<float>> points;
  for (RecordedCall const& call : calls) {
    if (call.operation == "StrokePath") {
      for (auto const& segment : call.path) {
        points.push_back(segment.points.at(0));
      }
    }
  }
  return points;
}

std::vector<RecordedCall> Only(std::string_view operation, std::vector<RecordedCall> calls) {
  std::erase_if(calls, [&](RecordedCall const& call) { return call.operation != operation; });
  return calls;
}

}  // namespace audio_tests
