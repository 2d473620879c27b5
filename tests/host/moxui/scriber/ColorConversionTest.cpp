#include <moxui/scriber/ColorConversion.h>

#include <gtest/gtest.h>

#include <cmath>

namespace moxui::scriber {
namespace {

struct HSB {
  double hue = -1;
  double saturation = -1;
  double brightness = -1;
};

HSB ToHSB(ColorRGBA const& colour, bool normaliseHue = true) {
  HSB hsb;
  RGBtoHSB<double>(colour, hsb.hue, hsb.saturation, hsb.brightness, normaliseHue);
  return hsb;
}

TEST(ColorConversion, GoesThereAndBackExactly) {
  constexpr int kSteps = 10;
  for (int r = 0; r <= kSteps; ++r) {
    for (int g = 0; g <= kSteps; ++g) {
      for (int b = 0; b <= kSteps; ++b) {
        ColorRGBA const colour{static_cast<float>(r) / kSteps, static_cast<float>(g) / kSteps,
                               static_cast<float>(b) / kSteps, 0.25f};
        HSB const hsb = ToHSB(colour);
        ColorRGBA const back = HSBtoRGB<double>(hsb.hue, hsb.saturation, hsb.brightness, colour.alpha);
        // The way is exact to 1e-9 in doubles; what is stored as float is rounded once.
        EXPECT_NEAR(back.red, colour.red, 6e-8);
        EXPECT_NEAR(back.green, colour.green, 6e-8);
        EXPECT_NEAR(back.blue, colour.blue, 6e-8);
        EXPECT_EQ(back.alpha, 0.25f);
      }
    }
  }
}

TEST(ColorConversion, FromHueAndBackIsExactToABillionth) {
  // Colours whose channels floats hold exactly lose nothing on the way.
  for (double const hue :
       {0.0, 1.0 / 12, 1.0 / 6, 0.25, 1.0 / 3, 5.0 / 12, 0.5, 7.0 / 12, 2.0 / 3, 0.75, 5.0 / 6, 11.0 / 12}) {
    HSB const hsb = ToHSB(HSBtoRGB<double>(hue, 0.5, 1.0, 1.0f));
    EXPECT_NEAR(hsb.hue, hue, 1e-9);
    EXPECT_NEAR(hsb.saturation, 0.5, 1e-9);
    EXPECT_NEAR(hsb.brightness, 1.0, 1e-9);
  }
}

TEST(ColorConversion, NamedColoursHaveTheirHues) {
  EXPECT_DOUBLE_EQ(ToHSB({1, 0, 0, 1}).hue, 0.0);
  EXPECT_DOUBLE_EQ(ToHSB({1, 1, 0, 1}).hue, 1.0 / 6);
  EXPECT_DOUBLE_EQ(ToHSB({0, 1, 0, 1}).hue, 2.0 / 6);
  EXPECT_DOUBLE_EQ(ToHSB({0, 1, 1, 1}).hue, 3.0 / 6);
  EXPECT_DOUBLE_EQ(ToHSB({0, 0, 1, 1}).hue, 4.0 / 6);
  EXPECT_DOUBLE_EQ(ToHSB({1, 0, 1, 1}).hue, 5.0 / 6);
}

TEST(ColorConversion, WithoutNormalisingHueIsInSextants) {
  EXPECT_DOUBLE_EQ(ToHSB({0, 0, 1, 1}, false).hue, 4.0);
  EXPECT_DOUBLE_EQ(ToHSB({1, 0, 1, 1}, false).hue, 5.0);
}

TEST(ColorConversion, GreysHaveHueAndSaturationZero) {
  for (float const level : {0.0f, 0.2f, 0.5f, 1.0f}) {
    HSB const hsb = ToHSB({level, level, level, 1});
    EXPECT_EQ(hsb.hue, 0.0);
    EXPECT_EQ(hsb.saturation, 0.0);
    EXPECT_EQ(hsb.brightness, static_cast<double>(level));
  }
}

TEST(ColorConversion, HueIsBelowOne) {
  HSB const hsb = ToHSB({1, 0, 1e-20f, 1});
  EXPECT_LT(hsb.hue, 1.0);
  EXPECT_GE(hsb.hue, 0.0);
}

TEST(ColorConversion, SaturationAndBrightnessAreClamped) {
  EXPECT_EQ(HSBtoRGB<double>(0.3, 0.7, -0.2, 1), ColorRGBAFixed::Black);
  EXPECT_EQ(HSBtoRGB<double>(0, 2, 1, 1), (ColorRGBA{1, 0, 0, 1}));
  EXPECT_EQ(HSBtoRGB<double>(0, -1, 1.5, 1), ColorRGBAFixed::White);
}

TEST(ColorConversion, HuesAWholeTurnApartAreTheSame) {
  for (double const hue : {0.0, 0.25, 0.5, 0.625}) {
    EXPECT_EQ(HSBtoRGB<double>(hue, 0.5, 0.75, 1), HSBtoRGB<double>(hue + 1, 0.5, 0.75, 1));
    EXPECT_EQ(HSBtoRGB<double>(hue, 0.5, 0.75, 1), HSBtoRGB<double>(hue - 2, 0.5, 0.75, 1));
  }
}

TEST(ColorConversion, FloatsAreServedToo) {
  float hue = 0;
  float saturation = 0;
  float brightness = 0;
  RGBtoHSB<float>({0, 0.5f, 0, 1}, hue, saturation, brightness, true);
  EXPECT_FLOAT_EQ(hue, 1.0f / 3);
  EXPECT_FLOAT_EQ(saturation, 1.0f);
  EXPECT_FLOAT_EQ(HSBtoRGB<float>(hue, saturation, brightness, 1).green, 0.5f);
}

}  // namespace
}  // namespace moxui::scriber
