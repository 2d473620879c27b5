#pragma once

#include <moxmediaui/HostTypes.h>

#include <cstdint>
#include <vector>

namespace moxmediaui {

/// At which edge of the rectangle the block of channels lies when rows are left over.
enum class VerticalChannelAlignment : std::uint8_t { kTop = 0, kBottom = 1 };

/// What any drawing of multi-channel audio needs before the audio itself: how a view is divided into channel
/// strips, how samples map to pixels, which channels are enabled, the palette, and the chrome that lies under
/// the audio (background, grid lines, centre lines, dividers between channels).
///
/// A value to own and to call from one's own draw function, not a node. No setter notifies or invalidates
/// anything: the owner decides when to draw again. Channels count from 0; sizes are pixels, y downward; times
/// are sample positions. For use on the UI thread.
///
/// Whatever draws raises the null-pointer exception when the supplier has no pen or no path to give.
class AudioDataDrawBase {
 public:
  AudioDataDrawBase();
  AudioDataDrawBase(AudioDataDrawBase const& other);
  AudioDataDrawBase& operator=(AudioDataDrawBase const& other);
  virtual ~AudioDataDrawBase();

  /// Height of a channel's strip and distance from strip to strip when `height` rows are shared by
  /// `channelCount` channels (at least 1), a row between neighbours left to the divider. False if there is no
  /// room. `makeOdd` gives up a row of an even strip so that it has a middle row. Layered channels share one
  /// strip; then the stride means nothing.
  static bool CalculateVerticalChannelBounds(int height, int channelCount, bool layered, bool makeOdd,
                                             int& channelHeight, int& channelStride);
  /// The same where heights are worked out in units of `scale` rows each: the strips as they are drawn, in
  /// rows. False also if no row is left of a strip.
  static bool CalculateScaledChannelBounds(int height, float scale, int channelCount, bool layered,
                                           bool makeOdd, int& channelHeight, int& channelStride);

  /// Fill of the whole rectangle when there is no waveform.
  ColorRGBA GetControlColor() const { return mControlColor; }
  void SetControlColor(ColorRGBA const& color) { mControlColor = color; }
  ColorRGBA GetBackgroundColor() const { return mBackgroundColor; }
  void SetBackgroundColor(ColorRGBA const& color) { mBackgroundColor = color; }
  ColorRGBA GetSelectionBackgroundColor() const { return mSelectionBackgroundColor; }
  void SetSelectionBackgroundColor(ColorRGBA const& color) { mSelectionBackgroundColor = color; }
  ColorRGBA GetCenterlineColor() const { return mCenterlineColor; }
  void SetCenterlineColor(ColorRGBA const& color) { mCenterlineColor = color; }
  ColorRGBA GetDividerColor() const { return mDividerColor; }
  void SetDividerColor(ColorRGBA const& color) { mDividerColor = color; }
  void SetGridlineColor(ColorRGBA const& color) { mGridlineColor = color; }
  /// The grid's colour, inside a selection changed so as to keep its contrast there.
  ColorRGBA GetGridlineColor(bool inSelection) const;

  /// Centre lines also make channel heights odd.
  bool GetDrawCenterlines() const { return mDrawCenterlines; }
  void SetDrawCenterlines(bool draw) { mDrawCenterlines = draw; }
  bool GetDrawDividers() const { return mDrawDividers; }
  void SetDrawDividers(bool draw) { mDrawDividers = draw; }
  /// Each channel takes its own colour from the list, else all take the first.
  bool GetColoredChannels() const { return mColoredChannels; }
  void SetColoredChannels(bool colored) { mColoredChannels = colored; }
  /// All channels share one strip.
  bool GetLayeredChannels() const { return mLayeredChannels; }
  void SetLayeredChannels(bool layered) { mLayeredChannels = layered; }
  std::vector<ColorRGBA> GetChannelColors() const { return mChannelColors; }
  void SetChannelColors(std::vector<ColorRGBA> const& colors) { mChannelColors = colors; }

  /// Positions of grid lines in pixels from the rectangle's top and left.
  std::vector<std::int32_t> const& GetHorizontalGridlinePositions() const {
    return mHorizontalGridlinePositions;
  }
  void SetHorizontalGridlinePositions(std::vector<std::int32_t> const& positions) {
    mHorizontalGridlinePositions = positions;
  }
  std::vector<std::int32_t> const& GetVerticalGridlinePositions() const { return mVerticalGridlinePositions; }
  void SetVerticalGridlinePositions(std::vector<std::int32_t> const& positions) {
    mVerticalGridlinePositions = positions;
  }
  VerticalChannelAlignment GetVerticalChannelAlignment() const { return mVerticalChannelAlignment; }
  void SetVerticalChannelAlignment(VerticalChannelAlignment alignment) {
    mVerticalChannelAlignment = alignment;
  }

  /// The sample position at the left edge of pixel 0.
  double GetViewLeft() const { return mViewLeft; }
  double GetSamplesPerPixel() const { return mSamplesPerPixel; }
  /// Stores both values, or neither if both are equal to the stored ones within one part in 10^12.
  void SetViewRange(double left, double samplesPerPixel);

  /// One bit per channel. A channel beyond the end counts as enabled; an empty list (the default) means that
  /// nothing has been said: selections and fades are ignored then.
  void GetEnabledChannels(std::vector<bool>& out) const { out = mEnabledChannels; }
  void SetEnabledChannels(std::vector<bool> const& enabled) { mEnabledChannels = enabled; }
  /// The list grows to hold `channel`, with channels in between enabled; a negative channel counts as 0.
  void EnableChannel(int channel, bool enable);

 protected:
  /// GetDrawCenterlines under the name by which subclasses know it.
  bool GetDrawCenterLines() const { return mDrawCenterlines; }
  /// The format code with which pixels of ours become an image.
  std::int32_t GetImageFormat() const { return mImageFormat; }

  bool GetChannelOffsets(int height, int channelCount, int& channelHeight, int& channelStride) const;
  RectT<int> GetChannelRect(int channel, bool layered, int width, int channelHeight, int channelStride) const;
  /// The column of a sample, counted from the view's left edge. Sample and edge are rounded toward zero to
  /// whole columns before they are subtracted: scrolling within one column leaves every sample where it is.
  /// Going back with GetSampleFromPixelPosition may therefore give another sample.
  std::int64_t GetPixelPositionFromSample(double sample) const;
  double GetSampleFromPixelPosition(std::int64_t pixel) const;

  bool IsChannelEnabled(int channel) const;
  /// These two look only at the bits that exist: both are false while the list is empty.
  bool IsAnyChannelEnabled() const;
  bool IsAnyChannelDisabled() const;

  ColorRGBA GetChannelColor(int channel) const;
  /// A colour that was chosen for the background, changed to stand out as well on the selection background.
  ColorRGBA GetColorWithinSelection(ColorRGBA const& colour) const;
  bool GetDrawGridLines(int channelHeight) const;

  /// Background, grid and centre lines of the whole `rect`, of which only `clip` is painted.
  void DrawBackground(Scriber* scriber, RectT<int> const& rect, RectT<int> const& clip, bool selected,
                      unsigned int channelCount, int channelHeight, int channelStride, float centre,
                      float scale) const;
  void DrawGridLines(Scriber* scriber, RectT<int> const& rect, ColorRGBA const& colour, int channelHeight,
                     float scale) const;
  void DrawCenterLines(Scriber* scriber, RectT<int> const& rect, bool selected, unsigned int channelCount,
                       int channelHeight, int channelStride, float centre, float scale) const;
  void DrawDividerLines(Scriber* scriber, RectT<int> const& rect, bool layered, int channelCount,
                        int firstDivider, int channelStride, float scale) const;

 private:
  std::int32_t mImageFormat = 7;
  std::int32_t mImageFormatExtra = 3;
  ColorRGBA mControlColor{0.0f, 0.0f, 0.0f, 1.0f};
  ColorRGBA mBackgroundColor{0.0f, 0.0f, 0.0f, 1.0f};
  ColorRGBA mSelectionBackgroundColor{0.965f, 0.965f, 1.0f, 1.0f};
  bool mDrawCenterlines = true;
  ColorRGBA mCenterlineColor{0.663f, 0.016f, 0.016f, 1.0f};
  std::vector<std::int32_t> mHorizontalGridlinePositions;
  std::vector<std::int32_t> mVerticalGridlinePositions;
  ColorRGBA mGridlineColor{0.0f, 0.208f, 0.0f, 1.0f};
  bool mDrawDividers = true;
  ColorRGBA mDividerColor{0.5f, 0.5f, 0.5f, 1.0f};
  bool mLayeredChannels = false;
  bool mColoredChannels = false;
  std::vector<ColorRGBA> mChannelColors{ColorRGBA{1.0f, 1.0f, 1.0f, 1.0f}};
  double mViewLeft = 0.0;
  double mSamplesPerPixel = 1.0;
  std::vector<bool> mEnabledChannels;
  VerticalChannelAlignment mVerticalChannelAlignment = VerticalChannelAlignment::kTop;
};

}  // namespace moxmediaui
