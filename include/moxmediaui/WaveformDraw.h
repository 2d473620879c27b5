#pragma once

#include <moxmediaui/WaveformDrawBase.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <tuple>
#include <vector>

namespace moxmediaui {

struct PeakPicture;
struct PeakStrip;

enum class PeakDataDrawStyle : std::int32_t {
  kBipolar = 0,            ///< the pair is drawn around the strip's centre
  kRectified = 1,          ///< from the strip's bottom up to the larger magnitude, one row at least
  kRectifiedFromZero = 2,  ///< the same, silence showing nothing
};

enum class WaveformScalingStyle : std::int32_t {
  kLinear = 0,
  kSquareRoot = 1,  ///< the square root with the sign kept
};

enum class LayeredChannelDrawingStyle : std::int32_t {
  kAllAlike = 0,     ///< all layered channels semi-transparent alike
  kFirstStrong = 1,  ///< the first channel, on top, stays strong; others are fainter
};

struct SincWeights;

/// The weights by which the points of a curve through samples are interpolated, which all channels share. A
/// copy shares those that were worked out beforehand; others are found again.
class CurveScratch {
 public:
  CurveScratch();
  CurveScratch(CurveScratch const& other);
  CurveScratch& operator=(CurveScratch const& other);
  ~CurveScratch();

  /// Room for those of so many columns, worked out beforehand; none gives them up. Copies keep those that
  /// they shared.
  void Reserve(std::size_t columns);
  void WorkOut(std::size_t column, float fraction) const;
  /// Of the point of this number, in this column, which lies so far behind a sample.
  SincWeights const& WeightsAt(std::size_t point, std::int64_t column, float fraction);

 private:
  std::shared_ptr<std::vector<SincWeights>> mWorkedOut;
  std::vector<SincWeights> mWeights;
};

/// Pixels that peaks are painted straight into, row after row, each as images of the format 7 have them.
struct PeakTarget {
  std::uint32_t* pixels = nullptr;  ///< that of column 0 and row 0; null: peaks are drawn as an image
  int pixelsPerRow = 0;             ///< from row to row
  /// Of the wave only what covers a pixel wholly, and nothing beneath it: for who lays one wave over another.
  bool onlyWholePixels = false;
};

/// Paints audio. Peak data (a pair of values per pixel column, see WaveformData) is written pixel by pixel
/// into one buffer with its background and drawn as one image; its data slots must equal the rectangle's
/// width, and no side of the image may exceed 32767 pixels (a target of one's own may): beyond that, or with
/// another number of slots, the region stays as it was. Sample data is drawn as a curve through the samples,
/// with optional dots on them. Which of the two is drawn, the data's type tells: whoever fills the data
/// chooses.
///
/// Drawing raises the null-pointer exception, which names the type, where the supplier has no image, pen or
/// path to give, or the surface no layer for the samples of a channel in a region. Moxui's raster has no
/// layer with a side of more than 32767 device pixels, none of more than 2^28 in all, and none when memory is
/// short; memory that is short for the pixels of peaks raises std::bad_alloc. What was drawn before stays
/// drawn.
///
/// A scratch window is written while drawing: one object must not draw in two threads at once. Like the rest
/// of the library it is for the UI thread, and who draws there asks nothing more of the host. Who paints a
/// picture with copies of one drawing on several threads (see SetPaintedColumns and SetPaintedChannels) needs
/// a surface for each, and a host that serves any thread at any time: the supplier's pens, paths and images,
/// NewOffscreenSurface, and MemoryRecycler, which holds the pixels. Moxui's raster does.
class WaveformDraw : public WaveformDrawBase {
 public:
  WaveformDraw();
  WaveformDraw(WaveformDraw const& other);
  WaveformDraw& operator=(WaveformDraw const& other);
  ~WaveformDraw() override;

  /// The width of the interpolation's window: 44 samples. Whoever asks for the samples of a view adds one
  /// less than that, so that a window fits around each visible sample.
  static unsigned int GetOversampleSize();

  float GetAmplitudeFromPixelOffset(std::uint64_t channel, std::int64_t pixel,
                                    std::shared_ptr<WaveformData> waveform) const override;

  bool GetDrawSampleDots() const { return mDrawSampleDots; }
  void SetDrawSampleDots(bool draw) { mDrawSampleDots = draw; }
  PeakDataDrawStyle GetPeakDataDrawStyle() const { return mPeakDataDrawStyle; }
  void SetPeakDataDrawStyle(PeakDataDrawStyle style) { mPeakDataDrawStyle = style; }
  WaveformScalingStyle GetWaveformScalingStyle() const { return mWaveformScalingStyle; }
  void SetWaveformScalingStyle(WaveformScalingStyle style) { mWaveformScalingStyle = style; }
  void SetLayeredChannelDrawingStyle(LayeredChannelDrawingStyle style) {
    mLayeredChannelDrawingStyle = style;
  }

  /// Of peaks only the columns from `first` up to but not including `end` are painted, counted as the
  /// rectangle's own: for who keeps what was painted before and knows which columns are others. All of them
  /// by default. The columns that are painted are the same as when all are.
  void SetPaintedColumns(int first, int end) {
    mFirstPainted = first;
    mEndPainted = end;
  }
  /// Peaks go into these pixels from the next drawing on, for who keeps a picture: they have to hold every
  /// column that is painted, and all rows of the rectangle. They get what the surface would get of the image
  /// that is drawn otherwise; all else (lines between channels, rows below them) is drawn on the surface.
  void SetPeakTarget(PeakTarget const& target) { mPeakTarget = target; }

  /// Of samples only the curves and dots of channels from `first` up to but not including `end` are painted:
  /// for who paints strips one by one. All of them by default.
  void SetPaintedChannels(int first, int end) {
    mFirstPaintedChannel = first;
    mEndPaintedChannel = end;
  }
  /// Works out beforehand what the curves of all channels have in common in columns `first` up to but not
  /// including `end`, after ReserveCurve for as many columns at least: for who paints with copies of this on
  /// several threads, which share it. Threads may work out different columns at the same time. Nothing has to
  /// be worked out beforehand.
  void ReserveCurve(int columns) { mCurveScratch.Reserve(static_cast<std::size_t>(std::max(columns, 0))); }
  void WorkOutCurve(int first, int end) const;

 private:
  /// A point of the curve: where it is among the samples.
  struct CurvePlace {
    double floor = 0.0;
    float fraction = 0.0f;
  };
  CurvePlace FindCurvePlace(float column, double left) const;
  /// The view's left edge on a whole pixel.
  double GetSnappedViewLeft() const;

  std::tuple<float, std::vector<float>> HandleGain(std::shared_ptr<WaveformData> waveform) const override;
  void HandleFades(WaveformDataProperties const& properties, float exponentialFloor,
                   std::vector<float>& buffer) const override;
  bool DoDrawWaveform(Scriber* scriber, WaveformDataProperties const& properties, RectT<int> const& rect,
                      float const* data, int firstColumn, int columnCount, bool selected, float gain,
                      RectT<int> region, int channelHeight, int channelStride, float centre) const override;
  bool DrawsCustomBackground(std::shared_ptr<WaveformData> waveform) const override;

  bool DrawWaveformAsPeaks(Scriber* scriber, WaveformDataProperties const& properties, RectT<int> const& rect,
                           float const* data, int firstColumn, int columnCount, bool selected, float gain,
                           RectT<int> region, int channelHeight, int channelStride, float centre) const;
  bool DrawWaveformAsSamples(Scriber* scriber, WaveformDataProperties const& properties,
                             RectT<int> const& rect, float const* data, int firstColumn, int columnCount,
                             bool selected, float gain, RectT<int> region, int channelHeight,
                             int channelStride, float centre) const;
  /// Paints some columns of all channels, with what lies beneath them.
  void PaintPeakPicture(PeakPicture const& picture, WaveformDataProperties const& properties,
                        float const* data, int firstColumn, bool selected, float gain, int channelHeight,
                        int stride, float centre) const;
  /// Paints the bodies of all channels over what is there.
  void PaintWholePixels(PeakPicture const& picture, WaveformDataProperties const& properties,
                        float const* data, int firstColumn, bool selected, float gain, int channelHeight,
                        int stride, float centre) const;
  /// How the peaks of one channel look; which they are and where they go is left to the caller.
  PeakStrip MakePeakStrip(bool selected, int channel, float centre, float gain, float opacity) const;
  /// Draws the peaks of one channel into a strip of 32-bit pixels, whose rows follow one another without
  /// gaps.
  void DrawPeakColumns(bool selected, int channel, float const* pairs, std::uint8_t* pixels,
                       RectT<int> const& strip, float centre, float gain, float opacity) const;
  /// The layer begins at the region, so that nothing depends on `rect`.
  void DrawSamples(Scriber* scriber, bool selected, int channel, float const* samples, unsigned int count,
                   float pixelsPerSample, SurfaceInterface& layer, RectT<int> const& rect,
                   RectT<int> const& region, float centre, float gain) const;

  bool mDrawSampleDots = true;
  PeakDataDrawStyle mPeakDataDrawStyle = PeakDataDrawStyle::kBipolar;
  WaveformScalingStyle mWaveformScalingStyle = WaveformScalingStyle::kLinear;
  mutable std::vector<float> mOversampleBuffer;
  mutable CurveScratch mCurveScratch;
  LayeredChannelDrawingStyle mLayeredChannelDrawingStyle = LayeredChannelDrawingStyle::kAllAlike;
  int mFirstPainted = std::numeric_limits<int>::min();
  int mEndPainted = std::numeric_limits<int>::max();
  int mFirstPaintedChannel = 0;
  int mEndPaintedChannel = std::numeric_limits<int>::max();
  PeakTarget mPeakTarget;
};

}  // namespace moxmediaui
