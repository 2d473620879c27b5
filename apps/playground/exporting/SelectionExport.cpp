#include "exporting/SelectionExport.h"

#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/WaveFileWriter.h>
#include <moxaudiotoolkit/peaks/PeakDataFile.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <algorithm>
#include <span>
#include <utility>

namespace playground {
namespace {

constexpr std::size_t kBlockFloats = std::size_t{1} << 17;  // read at a time
constexpr std::int64_t kSamplesPerPair = 256;               // at least
constexpr double kShareOfMaking = 0.8;                      // of the work, before peaks are written

// The channels asked for, frame by frame.
void Pick(std::span<float const> frames, std::size_t channelCount, std::vector<std::size_t> const& channels,
          std::span<float> picked) {
  std::size_t to = 0;
  for (std::size_t frame = 0; frame < frames.size(); frame += channelCount) {
    for (std::size_t const channel : channels) {
      picked[to++] = frames[frame + channel];
    }
  }
}

bool WriteSelection(ExportRequest const& request, FileExport::Report const& report) {
  auto const& properties = request.source->GetProperties();
  auto const channelCount = static_cast<std::size_t>(properties.channelCount);
  std::size_t const picked = request.channels.size();
  std::int64_t const length = request.end - request.begin;
  moxaudiotoolkit::WaveFileWriter writer(request.path, {.type = moxaudiotoolkit::GetExactWaveType(properties),
                                                        .sampleRate = properties.sampleRate,
                                                        .channelCount = static_cast<int>(picked),
                                                        .frames = length,
                                                        .channelMask = request.channelMask});
  auto const blockFrames = static_cast<std::int64_t>(std::max<std::size_t>(kBlockFloats / channelCount, 1));
  std::vector<float> frames(static_cast<std::size_t>(blockFrames) * channelCount);
  std::vector<float> samples(static_cast<std::size_t>(blockFrames) * picked);
  for (std::int64_t done = 0; done < length;) {
    auto const count = static_cast<std::size_t>(std::min(blockFrames, length - done));
    std::span<float> const block = std::span(frames).first(count * channelCount);
    request.source->ReadInterleaved(request.begin + done, block);
    Pick(block, channelCount, request.channels, samples);
    writer.Write(std::span(samples).first(count * picked));
    done += static_cast<std::int64_t>(count);
    if (!report(static_cast<double>(done) / static_cast<double>(length))) {
      return false;
    }
  }
  writer.Commit();
  return true;
}

}  // namespace

FileExport::Work ExportOfSelection(ExportRequest request) {
  return [request = std::move(request)](FileExport::Report const& report) {
    return WriteSelection(request, report);
  };
}

FileExport::Work ExportOfPeaks(std::shared_ptr<moxaudiotoolkit::PeakPyramid const> pyramid, std::string path,
                               bool has8Bits) {
  return [pyramid = std::move(pyramid), path = std::move(path), has8Bits](FileExport::Report const& report) {
    std::int64_t const point = pyramid->GetFormat().samplesPerPoint;
    std::int64_t const pair = (kSamplesPerPair + point - 1) / point * point;
    moxaudiotoolkit::PeakData data;
    try {
      data = moxaudiotoolkit::MakePeakData(
          *pyramid, {.samplesPerPixel = static_cast<int>(pair),
                     .has8Bits = has8Bits,
                     .report = [&report](double done) { return report(done * kShareOfMaking); }});
    } catch (moxaudiotoolkit::AudioFileError const& error) {
      if (error.GetFault() == moxaudiotoolkit::AudioFileFault::kCancelled) {
        return false;
      }
      throw;
    }
    if (!report(kShareOfMaking)) {
      return false;
    }
    moxaudiotoolkit::WritePeakData(path, data);
    report(1.0);
    return true;
  };
}

}  // namespace playground
