#include "RandomPeakViews.h"

#include <limits>

namespace audio_tests {

namespace {

using moxmediaui::ColorRGBA;

class Dice {
 public:
  explicit Dice(std::mt19937& random) : mRandom(random) {}
  int Between(int low, int high) { return std::uniform_int_distribution<int>(low, high)(mRandom); }
  float Between(float low, float high) { return std::uniform_real_distribution<float>(low, high)(mRandom); }
  bool Often() { return Between(0, 2) > 0; }
  bool Rarely() { return Between(0, 9) == 0; }
  template <typename T>
  T OneOf(std::initializer_list<T> values) {
    return values.begin()[Between(0, static_cast<int>(values.size()) - 1)];
  }
  ColorRGBA Colour() {
    return {Between(0.0f, 1.0f), Between(0.0f, 1.0f), Between(0.0f, 1.0f), OneOf({0.0f, 0.3f, 1.0f})};
  }

 private:
  std::mt19937& mRandom;
};

/// Values as they come from sound, and some as they shouldn't.
float MakeValue(Dice& dice) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  if (dice.Between(0, 40) == 0) {
    return dice.OneOf({std::numeric_limits<float>::quiet_NaN(), kInfinity, -kInfinity, 1e30f, -1e30f, 1e9f,
                       -3.0f, -0.0f, std::numeric_limits<float>::denorm_min(), 0.5f, 1.0f});
  }
  return dice.Between(-1.1f, 1.1f);
}

std::vector<std::int32_t> MakePositions(Dice& dice, int most, int extent) {
  std::vector<std::int32_t> positions;
  for (int i = dice.Between(0, most); i > 0; --i) {
    positions.push_back(dice.Between(-3, extent + 3));
  }
  return positions;
}

}  // namespace

RandomPeakView MakeRandomPeakView(std::mt19937& random) {
  Dice dice(random);
  RandomPeakView result;
  OpenWaveformDraw& draw = result.draw;
  PeakView& view = result.view;
  view.rect = {0, 0, dice.Between(1, 200), dice.Between(1, 200)};
  if (dice.Rarely()) {
    view.rect.left = dice.Between(-9, 9);
    view.rect.top = dice.Between(-9, 9);
  }
  view.scale = dice.Often() ? 1.0f : dice.OneOf({2.0f, 1.5f, 0.5f, 1.25f});
  view.channels = dice.Often() ? dice.Between(1, 3) : dice.Between(1, 12);
  view.slots = dice.Rarely() ? view.rect.width + dice.Between(-1, 1) : view.rect.width;
  bool const isSilent = dice.Rarely();
  for (int i = 0; i < view.channels * view.slots; ++i) {
    float const a = isSilent ? 0.0f : MakeValue(dice);
    float const b = isSilent ? 0.0f : MakeValue(dice);
    bool const inOrder = dice.Often();
    view.pairs.push_back(inOrder && a < b ? b : a);
    view.pairs.push_back(inOrder && a < b ? a : b);
  }

  draw.SetBackgroundColor(dice.Colour());
  draw.SetSelectionBackgroundColor(dice.Colour());
  draw.SetCenterlineColor(dice.Colour());
  draw.SetGridlineColor(dice.Colour());
  draw.SetDrawCenterlines(dice.Often());
  draw.SetLayeredChannels(dice.Between(0, 1) == 0);
  draw.SetColoredChannels(dice.Often());
  draw.SetChannelColors({dice.Colour(), dice.Colour(), dice.Colour()});
  if (dice.Often()) {
    draw.SetSelectionChannelColors({dice.Colour(), dice.Colour()});
  }
  draw.SetVerticalChannelAlignment(dice.OneOf(
      {moxmediaui::VerticalChannelAlignment::kTop, moxmediaui::VerticalChannelAlignment::kBottom}));
  if (dice.Between(0, 1) == 0) {
    draw.SetHorizontalGridlinePositions(MakePositions(dice, 12, view.rect.height));
    draw.SetVerticalGridlinePositions(MakePositions(dice, 6, view.rect.width));
  }
  if (dice.Often()) {
    std::vector<bool> enabled;
    for (int channel = dice.Between(0, view.channels); channel > 0; --channel) {
      enabled.push_back(dice.Often());
    }
    draw.SetEnabledChannels(enabled);
  }
  // One by one: compilers work out arguments in different orders, and a seed should make the same views.
  float const left = dice.Between(-100.0f, 100.0f);
  draw.SetViewRange(left, dice.OneOf({1.0, 0.37, 12.5, 3.0}));
  if (dice.Often()) {
    int const reach = dice.Often() ? view.rect.width : 300;
    int const begin = dice.Between(-reach, reach);
    int const width = dice.Between(0, reach + reach / 3);
    moxmediaui::RectT<int> ignored;
    draw.SetSelection(view.rect, begin, width, ignored);
  }
  draw.SetZoom(dice.Often() ? 1.0f : dice.OneOf({0.0f, 0.5f, 3.0f, -1.0f, 1e30f}));
  view.gain = dice.Often() ? 1.0f : dice.OneOf({0.0f, 0.25f, 2.0f, 7.5f});
  draw.SetGain(view.gain);
  result.settings.gainWholeRange = dice.Between(0, 1) == 0;
  draw.SetGainWholeRange(result.settings.gainWholeRange);
  draw.SetPeakDataDrawStyle(static_cast<moxmediaui::PeakDataDrawStyle>(dice.Between(0, 3)));
  draw.SetWaveformScalingStyle(static_cast<moxmediaui::WaveformScalingStyle>(dice.Between(0, 2)));
  result.settings.layeredStyle = static_cast<moxmediaui::LayeredChannelDrawingStyle>(dice.Between(0, 2));
  draw.SetLayeredChannelDrawingStyle(result.settings.layeredStyle);
  return result;
}

}  // namespace audio_tests
