// Peaks of long files: their making against a plain reading of the file, and views of them against the
// drawing of these views.
#include "Figure.h"

#include <moxaudiotoolkit/peaks/PeakBuilder.h>
#include <moxaudiotoolkit/peaks/PeakDataFile.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>
#include <moxaudiotoolkit/waveform/QueryPyramid.h>
#include <moxmediaui/WaveformDraw.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <fcntl.h>
#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace moxaudiotoolkit;
using moxmediaui::RectT;

constexpr int kRate = 48000;

// A folder for large files, gone at the end.
class Folder {
 public:
  Folder() {
    mPath = (std::filesystem::temp_directory_path() / "peaks-bench-XXXXXX").string();
    if (mkdtemp(mPath.data()) == nullptr) {
      std::abort();
    }
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(mPath, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  std::string operator/(const std::string& name) const { return mPath + "/" + name; }

 private:
  std::string mPath;
};

void Put(std::string& text, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i) {
    text.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
  }
}

// Noise that swells and fades, 16 bits.
std::string WriteWav(const std::string& path, int channelCount, int seconds) {
  const auto bytes =
      static_cast<std::uint32_t>(channelCount * 2 * kRate) * static_cast<std::uint32_t>(seconds);
  std::string header = "RIFF";
  Put(header, bytes + 36, 4);
  header += "WAVEfmt ";
  Put(header, 16, 4);
  Put(header, 1, 2);
  Put(header, static_cast<std::uint32_t>(channelCount), 2);
  Put(header, kRate, 4);
  Put(header, static_cast<std::uint32_t>(kRate * channelCount * 2), 4);
  Put(header, static_cast<std::uint32_t>(channelCount * 2), 2);
  Put(header, 16, 2);
  header += "data";
  Put(header, bytes, 4);
  std::ofstream file(path, std::ios::binary);
  file << header;
  std::uint32_t random = 1;
  std::vector<std::int16_t> second(static_cast<std::size_t>(channelCount * kRate));
  for (int s = 0; s < seconds; ++s) {
    const double loudness = 0.5 + 0.5 * std::sin(s * 0.1);
    for (std::int16_t& sample : second) {
      random = random * 1664525U + 1013904223U;
      sample = static_cast<std::int16_t>(static_cast<std::int16_t>(random >> 16) * loudness);
    }
    file.write(reinterpret_cast<const char*>(second.data()),
               static_cast<std::streamsize>(second.size() * sizeof(std::int16_t)));
  }
  return path;
}

void ReadThrough(const std::string& path) {
  static std::vector<char> block(1 << 20);
  const int descriptor = open(path.c_str(), O_RDONLY);
  while (read(descriptor, block.data(), block.size()) > 0) {
    bench::ClobberMemory();
  }
  close(descriptor);
}

void Build(const std::shared_ptr<const SampleSource>& source, int threads) {
  PeakBuilder builder(source, {.threadCount = threads});
  builder.Wait();
  bench::DoNotOptimize(builder.GetPyramid()->GetProgress());
}

// The most memory that this process had at once since the last reset.
double MostMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) {
      return std::stod(line.substr(6)) * 1024.0;
    }
  }
  return 0.0;
}

double MemoryOfBuild(const std::shared_ptr<const SampleSource>& source, double& pyramid) {
  std::ofstream("/proc/self/clear_refs") << 5;
  const double before = MostMemory();
  PeakBuilder builder(source, {.threadCount = 2});
  builder.Wait();
  pyramid = static_cast<double>(builder.GetPyramid()->GetMemorySize());
  return MostMemory() - before;
}

void CompareBuilding(bench::Figures& figures, const Folder& folder) {
  if (!figures.Wants("peaks_build_one_thread") && !figures.Wants("peaks_build_two_threads") &&
      !figures.Wants("peaks_build_memory")) {
    return;
  }
  const std::string path = WriteWav(folder / "hour.wav", 2, 3600);
  const auto source = OpenSampleSource(path);
  ReadThrough(path);
  double pyramid = 0.0;
  const double memory = MemoryOfBuild(source, pyramid);
  figures.Count("peaks_build_memory", memory, pyramid + 64.0 * 1024 * 1024, 1.0, "bytes");
  figures.Compare({.name = "peaks_build_one_thread",
                   .numerator = [&] { Build(source, 1); },
                   .denominator = [&] { ReadThrough(path); },
                   .bar = 2.0,
                   .unit = "ms"});
  figures.Compare({.name = "peaks_build_two_threads",
                   .numerator = [&] { Build(source, 2); },
                   .denominator = [&] { ReadThrough(path); },
                   .bar = 1.2,
                   .unit = "ms"});
}

void CompareLoading(bench::Figures& figures, const Folder& folder) {
  if (!figures.Wants("peaks_load")) {
    return;
  }
  // An hour of stereo at 256 samples to the pair: 5.4 MB.
  PeakData data{
      .sampleRate = kRate, .samplesPerPixel = 256, .channelCount = 2, .length = 675000, .values = {}};
  for (std::uint32_t i = 0; i < data.length * 2; ++i) {
    const auto value = static_cast<std::int16_t>(i * 2654435761U >> 17);
    data.values.push_back(static_cast<std::int16_t>(-value));
    data.values.push_back(value);
  }
  const std::string path = folder / "hour.dat";
  WritePeakData(path, data);
  figures.Compare({.name = "peaks_load",
                   .numerator = [&] { bench::DoNotOptimize(ReadPeakData(path).values.data()); },
                   .denominator =
                       [&] {
                         // Into memory of its own, as a loader has to.
                         const int descriptor = open(path.c_str(), O_RDONLY);
                         const auto size = std::filesystem::file_size(path);
                         const auto bytes = std::make_unique_for_overwrite<char[]>(size);
                         bench::DoNotOptimize(read(descriptor, bytes.get(), size));
                         close(descriptor);
                       },
                   .bar = 3.0});
}

// A view of eight channels that moves by some pixels each time it is shown.
class View {
 public:
  static constexpr int kWidth = 3840;
  static constexpr int kHeight = 1080;

  View(std::shared_ptr<const PeakPyramid> pyramid, std::shared_ptr<const SampleSource> source, double zoom)
      : mPyramid(std::move(pyramid)),
        mWindow(std::move(source)),
        mZoom(zoom),
        mPixels(static_cast<std::size_t>(kWidth) * kHeight),
        mSurface(
            moxui::scriber::NewRasterSurfaceOver(mPixels.data(), kWidth, kHeight, kWidth * 4, 1.0F, true)) {
    mDraw.SetEnabledChannels(std::vector<bool>(mPyramid->GetChannelCount(), true));
    Query();
  }

  void Query() {
    MoveBy(3.3);
    mData = waveform::QueryWaveform(*mPyramid, &mWindow, mLeft, mZoom, kWidth);
  }

  // To where nothing has been read yet.
  void QueryElsewhere() {
    MoveBy(1.5 * kWidth);
    mData = waveform::QueryWaveform(*mPyramid, &mWindow, mLeft, mZoom, kWidth);
  }

  void QueryLevels() {
    MoveBy(3.3);
    bench::DoNotOptimize(waveform::QueryColumnLevels(*mPyramid, &mWindow, mLeft, mZoom, kWidth).rms.data());
  }

  void Draw() {
    moxui::scriber::Scriber scriber(moxui::scriber::GetRasterSupplier(), mSurface.Get());
    mDraw.SetViewRange(mLeft, mZoom);
    mDraw.Draw(&scriber, mData, {0, 0, kWidth, kHeight}, 1.0F);
    bench::ClobberMemory();
  }

 private:
  void MoveBy(double columns) {
    mLeft += columns * mZoom;
    if (mLeft + kWidth * mZoom > static_cast<double>(mPyramid->GetFrameCount())) {
      mLeft = 0.0;
    }
  }

  std::shared_ptr<const PeakPyramid> mPyramid;
  waveform::SampleWindow mWindow;
  double mZoom;
  double mLeft = 0.0;
  std::vector<std::uint32_t> mPixels;
  moxui::scriber::SurfaceP mSurface;
  moxmediaui::WaveformDraw mDraw;
  std::shared_ptr<waveform::WaveformData> mData;
};

// A way to ask for a view, at a zoom.
struct ViewFigure {
  std::string name;
  double zoom;
  void (View::*query)();
};

std::vector<ViewFigure> ViewFigures() {
  std::vector<ViewFigure> figures;
  for (const int zoom : {1, 2, 4, 8, 16, 32, 48, 60, 63, 64, 200, 255, 1000, 3750}) {
    figures.push_back({"peaks_query_" + std::to_string(zoom), static_cast<double>(zoom), &View::Query});
  }
  figures.push_back({"peaks_query_below_1", 0.5, &View::Query});
  for (const int zoom : {2, 16, 63, 64, 1000}) {
    figures.push_back(
        {"peaks_levels_" + std::to_string(zoom), static_cast<double>(zoom), &View::QueryLevels});
  }
  for (const int zoom : {2, 16, 63, 64, 1000}) {
    figures.push_back(
        {"peaks_elsewhere_" + std::to_string(zoom), static_cast<double>(zoom), &View::QueryElsewhere});
  }
  return figures;
}

void CompareViews(bench::Figures& figures, const Folder& folder) {
  std::vector<ViewFigure> wanted = ViewFigures();
  std::erase_if(wanted, [&](const ViewFigure& figure) { return !figures.Wants(figure.name); });
  if (wanted.empty()) {
    return;
  }
  const auto source = OpenSampleSource(WriteWav(folder / "eight.wav", 8, 300));
  PeakBuilder builder(source);
  builder.Wait();
  for (const ViewFigure& figure : wanted) {
    View view(builder.GetPyramid(), source, figure.zoom);
    figures.Compare({.name = figure.name,
                     .numerator = [&] { (view.*figure.query)(); },
                     .denominator = [&] { view.Draw(); },
                     .bar = 0.5});
  }
}

}  // namespace

int main(int argc, char** argv) {
  bench::Figures figures(argc, argv);
  const Folder folder;
  CompareBuilding(figures, folder);
  CompareLoading(figures, folder);
  CompareViews(figures, folder);
  return figures.Result();
}
