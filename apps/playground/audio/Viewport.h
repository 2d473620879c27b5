#pragma once

#include <cstdint>

namespace playground {

// The part of a sound that a picture `width` columns wide shows. A column is a device pixel. Whatever is
// asked, the view stays within the sound and the zoom between a column to the 64th of a sample, or as much as
// is known of the sound, and the whole sound.
class Viewport {
 public:
  static constexpr double kMostColumnsPerSample = 64.0;

  std::int64_t Frames() const { return mFrames; }
  int Width() const { return mWidth; }
  double Finest() const { return mFinest; }
  double Left() const { return mLeft; }
  double SamplesPerPixel() const { return mSamplesPerPixel; }
  double VisibleSamples() const { return mSamplesPerPixel * mWidth; }
  bool ShowsAll() const;

  // The sample position under a column, and the column (not rounded) of a sample position.
  double SampleAt(double column) const { return mLeft + column * mSamplesPerPixel; }
  double ColumnOf(double sample) const { return (sample - mLeft) / mSamplesPerPixel; }

  // The column in which the waveform shows a sample position. Columns are counted from the sound's start, so
  // that none changes what it shows while the view scrolls by less than one.
  std::int64_t PixelOf(double sample) const { return WholeColumns(sample) - LeftPixel(); }
  // Columns between the sound's start and the view.
  std::int64_t LeftPixel() const { return WholeColumns(mLeft); }

  // Shows the whole of a sound of this length. A column never shows fewer than `finest` samples.
  void SetFrames(std::int64_t frames, double finest = 1.0 / kMostColumnsPerSample);
  // Another width at the same zoom; a view that showed the whole sound goes on showing it.
  void SetWidth(int width);
  // Another width with the same part of the sound in it, as when the scale of the screen changes.
  void StretchTo(int width);

  void ShowAll();
  // `factor` above 1 zooms in. The sample under `column` stays there, unless the end of the sound forbids it.
  void ZoomAt(double column, double factor);
  void ScrollBy(double columns) { ScrollTo(mLeft + columns * mSamplesPerPixel); }
  void ScrollTo(double left);
  // Shows exactly the samples from `begin` to `end`.
  void Show(double begin, double end);
  // Scrolls as little as brings a sample into view.
  void Reveal(double sample);

  bool operator==(Viewport const&) const = default;

 private:
  std::int64_t WholeColumns(double sample) const {
    return static_cast<std::int64_t>(sample / mSamplesPerPixel);
  }
  double WidestSamplesPerPixel() const;
  double LastLeft() const;
  void Set(double left, double samplesPerPixel);

  std::int64_t mFrames = 0;
  double mFinest = 1.0 / kMostColumnsPerSample;  // samples to a column
  int mWidth = 1;
  double mLeft = 0.0;
  double mSamplesPerPixel = 1.0;
};

}  // namespace playground
