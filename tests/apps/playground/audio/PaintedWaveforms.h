#pragma once

#include "audio/AudioDocument.h"

#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace playground {

// Pixels, and a surface to draw on them.
class Canvas {
 public:
  Canvas(int width, int height, float scale = 1.0f);

  moxui::scriber::Scriber& Draw() { return mScriber; }
  std::vector<std::uint32_t> const& Pixels() const { return mPixels; }

 private:
  std::vector<std::uint32_t> mPixels;
  moxui::scriber::SurfaceP mSurface;
  moxui::scriber::Scriber mScriber;
};

// Nothing if two pictures of so many columns are equal; else how many pixels differ, and which rectangle they
// are in.
std::string DifferenceOf(std::vector<std::uint32_t> const& actual, std::vector<std::uint32_t> const& expected,
                         int columns);

// Noise that swells up to clipping, another in each channel.
AudioDocument Noise(int channels, std::size_t frames);

}  // namespace playground
