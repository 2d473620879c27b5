#include <moxui/scriber/ColorConversion.h>

#include <algorithm>
#include <cmath>

namespace moxui::scriber {

template <typename T>
void RGBtoHSB(ColorRGBA const& colour, T& hue, T& saturation, T& brightness, bool normaliseHue) {
  T const red = colour.red;
  T const green = colour.green;
  T const blue = colour.blue;
  T const most = std::max({red, green, blue});
  T const least = std::min({red, green, blue});
  T const chroma = most - least;
  brightness = most;
  saturation = most > T(0) ? chroma / most : T(0);
  hue = T(0);
  if (chroma > T(0)) {
    if (most == red) {
      hue = (green - blue) / chroma;
    } else if (most == green) {
      hue = (blue - red) / chroma + T(2);
    } else {
      hue = (red - green) / chroma + T(4);
    }
    if (hue < T(0)) {
      hue += T(6);
    }
  }
  if (normaliseHue) {
    hue /= T(6);
    if (hue >= T(1)) {
      hue -= T(1);
    }
  }
}

template <typename T>
ColorRGBA HSBtoRGB(T hue, T saturation, T brightness, float alpha) {
  saturation = std::clamp(saturation, T(0), T(1));
  brightness = std::clamp(brightness, T(0), T(1));
  T const sextants = (hue - std::floor(hue)) * T(6);
  auto const channel = [&](T offset) {
    T const k = std::fmod(sextants + offset, T(6));
    T const ramp = std::clamp(std::min(k, T(4) - k), T(0), T(1));
    return static_cast<float>(brightness - brightness * saturation * ramp);
  };
  return {channel(T(5)), channel(T(3)), channel(T(1)), alpha};
}

template void RGBtoHSB<float>(ColorRGBA const&, float&, float&, float&, bool);
template void RGBtoHSB<double>(ColorRGBA const&, double&, double&, double&, bool);
template ColorRGBA HSBtoRGB<float>(float, float, float, float);
template ColorRGBA HSBtoRGB<double>(double, double, double, float);

}  // namespace moxui::scriber
