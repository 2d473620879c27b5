#pragma once

#include <moxaudiotoolkit/waveform/WaveformData.h>
#include <moxmediaui/AudioDataDrawBase.h>

#include <cstdint>
#include <memory>
#include <tuple>
#include <vector>

namespace moxmediaui {

using moxaudiotoolkit::waveform::WaveformData;
using moxaudiotoolkit::waveform::WaveformDataProperties;
using moxaudiotoolkit::waveform::WaveformDataType;

enum class FadeType : std::int32_t { kNone = 0, kIn = 1, kOut = 2 };

/// Turns the audio of one view and a rectangle into a picture: selection, gain, zoom, fades, backgrounds and
/// the strip that is left over beside the channels. How the audio itself is painted is a subclass's affair.
///
/// Positions are samples; gain and zoom are linear factors, 1.0 being unchanged. A geometry that doesn't fit
/// draws nothing and reports nothing.
class WaveformDrawBase : public AudioDataDrawBase {
 public:
  WaveformDrawBase();
  WaveformDrawBase(WaveformDrawBase const& other);
  WaveformDrawBase& operator=(WaveformDrawBase const& other);
  ~WaveformDrawBase() override;

  /// Draws `waveform`, made for this view, into `rect`. `scale` is the number of pixels of `rect` to the unit
  /// in which channel heights are worked out. A null waveform raises the null-pointer exception.
  virtual void Draw(Scriber* scriber, std::shared_ptr<WaveformData> waveform, RectT<int> const& rect,
                    float scale) const;
  /// What Draw shows of `waveform` after the fade: a copy, or `waveform` itself where nothing fades. For who
  /// draws one waveform piece by piece: it is faded once, and the pieces are drawn of what came out, without
  /// a fade. A null waveform raises the null-pointer exception, a faded buffer that is neither empty nor of
  /// the waveform's size std::invalid_argument.
  std::shared_ptr<WaveformData> WithFade(std::shared_ptr<WaveformData> waveform) const;
  /// The amplitude (0 and up, full scale 1.0) shown in a pixel column, for read-outs.
  virtual float GetAmplitudeFromPixelOffset(std::uint64_t channel, std::int64_t pixel,
                                            std::shared_ptr<WaveformData> waveform) const = 0;

  float GetZoom() const { return mZoom; }
  void SetZoom(float zoom) { mZoom = zoom; }
  float GetGain() const { return mGain; }
  void SetGain(float gain) { mGain = gain; }
  /// Whether peaks outside a selection take the gain too.
  void SetGainWholeRange(bool wholeRange) { mGainWholeRange = wholeRange; }

  std::int64_t GetSelectionLeft() const { return mSelectionLeft; }
  /// Below 1: nothing is selected.
  std::int64_t GetSelectionWidth() const { return mSelectionWidth; }
  /// Stores a selection. `updateRect` becomes what has to be drawn again within `rect`, the view's rectangle:
  /// empty if nothing visible changes.
  void SetSelection(RectT<int> const& rect, std::int64_t left, std::int64_t width, RectT<int>& updateRect);
  /// Waveform colours inside a selection; empty: derived from the channel's colour.
  std::vector<ColorRGBA> GetSelectionChannelColors() const { return mSelectionChannelColors; }
  void SetSelectionChannelColors(std::vector<ColorRGBA> const& colors) { mSelectionChannelColors = colors; }

  FadeType GetFadeType() const { return mFadeType; }
  std::int64_t GetFadeStart() const { return mFadeStart; }
  std::int64_t GetFadeEnd() const { return mFadeEnd; }
  /// A fade from `start` to `end`. Exponential: `amount` bends the curve (0 a straight line, up for positive
  /// ones; one so near 0 or so far below it that the curve leaves the range of floats is a straight line
  /// too). Otherwise a raised cosine with `amount` as its exponent. A fade out is kept one sample earlier.
  void SetFadeInfo(FadeType type, std::int64_t start, std::int64_t end, bool exponential, float amount);

 protected:
  /// Gain at a position of 0 to 1 along the fade; `exponentialFloor` is e to the minus fade amount.
  float GetFadeValue(float position, float exponentialFloor) const;
  /// A value between samples: Hann-windowed sinc over `count` taps at `data`, `fraction` (0 to 1) and a half
  /// beyond tap (count - 1) / 2.
  double GetInterp(unsigned int count, double fraction, float* data) const;
  ColorRGBA GetWaveformColor(int channel, bool selected) const;

 private:
  /// The gain of the selected range, and samples with the gain in them.
  virtual std::tuple<float, std::vector<float>> HandleGain(std::shared_ptr<WaveformData> waveform) const = 0;
  /// Fades a copy of the waveform's buffer. One that is left empty isn't drawn: the waveform's own is then.
  virtual void HandleFades(WaveformDataProperties const& properties, float exponentialFloor,
                           std::vector<float>& buffer) const = 0;
  /// Draws columns `firstColumn` to `firstColumn + columnCount` of all channels.
  virtual bool DoDrawWaveform(Scriber* scriber, WaveformDataProperties const& properties,
                              RectT<int> const& rect, float const* data, int firstColumn, int columnCount,
                              bool selected, float gain, RectT<int> region, int channelHeight,
                              int channelStride, float centre) const = 0;

 protected:
  /// Whether DoDrawWaveform paints backgrounds itself.
  virtual bool DrawsCustomBackground(std::shared_ptr<WaveformData> waveform) const;

 private:
  void GetSelPixels(int width, std::int64_t left, std::int64_t sampleWidth, int& pixelLeft,
                    int& pixelWidth) const;
  bool DrawWaveform(Scriber* scriber, std::shared_ptr<WaveformData> waveform, RectT<int> const& rect,
                    float scale) const;
  /// Empty where nothing fades.
  std::vector<float> MakeFadedBuffer(WaveformData const& waveform) const;

  std::int64_t mSelectionLeft = 0;
  std::int64_t mSelectionWidth = 0;
  std::vector<ColorRGBA> mSelectionChannelColors;
  float mZoom = 1.0f;
  float mGain = 1.0f;
  bool mGainWholeRange = false;
  FadeType mFadeType = FadeType::kNone;
  std::int64_t mFadeStart = 0;
  std::int64_t mFadeEnd = 0;
  float mFadeAmount = 0.0f;
  bool mFadeExponential = true;
};

}  // namespace moxmediaui
