// A frame of the playground's waveform while it is scrolled: of a long sound against that of a short one.
#include "Figure.h"
#include "audio/AudioSession.h"
#include "audio/WaveformView.h"

#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>
#include <moxui/testing/Stage.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <ctime>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace {

using moxaudiotoolkit::PeakPyramid;
using moxaudiotoolkit::SampleSource;
using moxaudiotoolkit::SampleSourceProperties;

constexpr int kRate = 48000;

// Logical pixels and the scale that they are shown at.
struct Screen {
  float width = 1920.0F;
  float height = 540.0F;
  float scale = 2.0F;
};

constexpr Screen kWideScreen{};  // 3840 by 1080 pixels
constexpr Screen kFullHdScreen{.width = 1920.0F, .height = 1080.0F, .scale = 1.0F};

// Noise of 16 bits, whose samples are told by their places.
class Noise : public SampleSource {
 public:
  using SampleSource::SampleSource;

  void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const override {
    auto number = static_cast<std::uint32_t>(firstFrame) * 40503U;
    for (float& sample : destination) {
      number = number * 1664525U + 1013904223U;
      sample = static_cast<float>(static_cast<std::int16_t>(number >> 16)) * (1.0F / 32768.0F);
    }
  }
};

// Peaks of a sound that was never read whole: some pages that take turns.
std::shared_ptr<const PeakPyramid> MakePeaks(const SampleSource& source) {
  constexpr std::size_t kPoints = PeakPyramid::kPointsPerPage;
  constexpr std::size_t kPages = 7;
  const auto channels = static_cast<std::size_t>(source.GetProperties().channelCount);
  std::vector<float> values(kPages * channels * kPoints * 3);
  std::uint32_t number = 1;
  for (std::size_t i = 0; i < values.size(); ++i) {
    number = number * 1664525U + 1013904223U;
    const float value = static_cast<float>(number >> 18) * (1.0F / 32768.0F);
    values[i] = i / kPoints % 3 == 0 ? -value : i / kPoints % 3 == 1 ? value : value * value * 16.0F;
  }
  auto pyramid = std::make_shared<PeakPyramid>(moxaudiotoolkit::GetPeakPyramidFormat(source.GetProperties()));
  std::vector<moxaudiotoolkit::PeakRun> runs(channels);
  for (std::int64_t page = 0; page < pyramid->GetPageCount(); ++page) {
    for (std::size_t channel = 0; channel < channels; ++channel) {
      float* const run =
          values.data() + (static_cast<std::size_t>(page) % kPages * channels + channel) * kPoints * 3;
      runs[channel] = {.minimum = run, .maximum = run + kPoints, .sumOfSquares = run + 2 * kPoints};
    }
    pyramid->SetPage(page, runs);
  }
  return pyramid;
}

// The waveform alone, as large as a screen.
class View {
 public:
  View(std::int64_t seconds, int channels, const Screen& screen = kWideScreen)
      : mStage({screen.width, screen.height}),
        mView(moxcore::utility::MakeIntrusive<playground::WaveformView>(mSession)) {
    const auto source = std::make_shared<Noise>(SampleSourceProperties{
        .frames = seconds * kRate, .sampleRate = kRate, .channelCount = channels, .integerBits = 16});
    mSession.AddDocument({"noise", source, MakePeaks(*source)});
    mStage.SetScale(screen.scale);
    mStage.GetTree().SetRoot(mView);
    mView->UI_SetLocalRectF({0.0F, 0.0F, screen.width, screen.height});
    Show(0.9);
  }

  // A share of the sound.
  void Show(double share) {
    mSession.ChangeView(
        [share](playground::Viewport& view) { view.Show(0.0, static_cast<double>(view.Frames()) * share); });
    ScrollAndPaint();
  }

  // Each sample or column as many pixels or samples wide as told.
  void ShowAt(double samplesPerPixel) {
    mSession.ChangeView([samplesPerPixel](playground::Viewport& view) {
      view.Show(0.0, static_cast<double>(view.Width()) * samplesPerPixel);
    });
    ScrollAndPaint();
  }

  // In and out again, so that all of the picture becomes another.
  void ZoomAndPaint() {
    const double factor = mZoomsIn ? 1.02 : 1.0 / 1.02;
    mZoomsIn = !mZoomsIn;
    mSession.ChangeView([factor](playground::Viewport& view) { view.ZoomAt(view.Width() * 0.5, factor); });
    mView->ViewChanged();
    mStage.PaintFrame();
  }

  void ScrollAndPaint() {
    const auto& before = mSession.View();
    const bool isAtTheEnd = before.Left() + before.VisibleSamples() + 4.0 * before.SamplesPerPixel() >
                            static_cast<double>(before.Frames());
    mSession.ChangeView(
        [isAtTheEnd](playground::Viewport& view) { isAtTheEnd ? view.ScrollTo(0.0) : view.ScrollBy(3.0); });
    mView->ViewChanged();
    mStage.PaintFrame();
  }

 private:
  playground::AudioSession mSession;
  moxui::testing::Stage mStage;
  moxcore::utility::IntrusivePtr<playground::WaveformView> mView;
  bool mZoomsIn = true;
};

// Seconds that this thread, or all threads of this program, have worked: what others do on the machine
// meanwhile doesn't count.
double Worked(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

double Median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                   values.end());
  return values[values.size() / 2];
}

// The work of a frame on the thread that paints, the median of many, against the time that 60 frames a second
// leave for it; and for information that of all threads, which is what it takes where no processor is free to
// help.
class SixtyHertz {
 public:
  SixtyHertz(bench::Figures& figures, bool isQuick) : mFigures(figures), mFrames(isQuick ? 1 : 61) {}

  void Judge(const std::string& name, const std::function<void()>& frame) {
    std::vector<double> own;
    std::vector<double> all;
    for (int i = 0; i < mFrames; ++i) {
      const double ownBegin = Worked(CLOCK_THREAD_CPUTIME_ID);
      const double allBegin = Worked(CLOCK_PROCESS_CPUTIME_ID);
      frame();
      own.push_back((Worked(CLOCK_THREAD_CPUTIME_ID) - ownBegin) * 1000.0);
      all.push_back((Worked(CLOCK_PROCESS_CPUTIME_ID) - allBegin) * 1000.0);
    }
    mFigures.Count(name, Median(own), 1000.0 / 60.0, 1.0, "ms");
    mFigures.Print(name + "_all_threads", Median(all), "ms");
  }

  // Scrolling and zooming at some zooms: the whole, peaks of points, peaks of samples, single samples.
  void JudgeScreen(const std::string& name, const Screen& screen) {
    struct Zoom {
      std::string name;
      double samplesPerPixel;
    };
    for (const auto& [zoomName, samplesPerPixel] :
         {Zoom{"1000", 1000.0}, Zoom{"63", 63.0}, Zoom{"4", 4.0}, Zoom{"tenth", 0.1}}) {
      const std::string scroll = name + "_scroll_" + zoomName;
      const std::string zoom = name + "_zoom_" + zoomName;
      if (mFigures.Wants(scroll) || mFigures.Wants(zoom)) {
        View view(600, 8, screen);
        view.ShowAt(samplesPerPixel);
        Judge(scroll, [&] { view.ScrollAndPaint(); });
        Judge(zoom, [&] { view.ZoomAndPaint(); });
      }
    }
  }

 private:
  bench::Figures& mFigures;
  int mFrames;
};

void Compare(bench::Figures& figures, const std::string& name, int channels, std::int64_t seconds) {
  if (!figures.Wants(name)) {
    return;
  }
  View longSound(seconds, channels);
  View shortSound(10, channels);
  figures.Compare({.name = name,
                   .numerator = [&] { longSound.ScrollAndPaint(); },
                   .denominator = [&] { shortSound.ScrollAndPaint(); },
                   .bar = 1.3,
                   .unit = "ms"});
}

}  // namespace

int main(int argc, char** argv) {
  bench::Figures figures(argc, argv);
  const bool isQuick = std::any_of(
      argv, argv + argc, [](const char* argument) { return std::strcmp(argument, "--quick") == 0; });
  const std::int64_t hour = isQuick ? 60 : 3600;
  Compare(figures, "frame_8_channels_1_hour_over_10_seconds", 8, hour);
  Compare(figures, "frame_1_channel_24_hours_over_10_seconds", 1, 24 * hour);
  SixtyHertz sixty(figures, isQuick);
  sixty.JudgeScreen("frame_60hz_3840", kWideScreen);
  sixty.JudgeScreen("frame_60hz_1920", kFullHdScreen);
  return figures.Result();
}
