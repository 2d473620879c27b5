#pragma once

#include <moxui/platform/PaintTarget.h>

#include <string>

namespace moxui::testing {

/// How far two pictures lie apart.
struct PictureDifference {
  bool sizesDiffer = false;
  int differingPixels = 0;
  int largestDifference = 0;  ///< of one channel, 0 to 255
  RectT<int> area;            ///< that holds all differing pixels
};

PictureDifference FindDifference(platform::Pixels const& actual, platform::Pixels const& expected);

/// Empty when the picture equals the PNG at `goldenPath`, channel by channel, within `tolerance`; else a text
/// that says where it differs and where the actual picture and a picture of the differences (red on the faded
/// actual) have been put: in the folder named by MOX_PICTURE_OUT, else the system's folder for temporary
/// files. With MOX_UPDATE_GOLDENS=1 in the environment the golden is written instead.
///
///   EXPECT_EQ(ComparePicture(stage.TakePicture(2), GoldenPath("button_pressed@2x.png")), "");
std::string ComparePicture(platform::Pixels const& actual, std::string const& goldenPath, int tolerance = 0);

/// Where goldens lie; testing::Main sets it.
void SetGoldenFolder(std::string folder);
std::string GoldenPath(std::string const& name);

}  // namespace moxui::testing
