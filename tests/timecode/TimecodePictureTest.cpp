#include "TimecodeFaces.h"

#include <moxui/testing/ComparePicture.h>

namespace timecode_tests {
namespace {

using moxui::platform::Pixels;
using moxui::testing::ComparePicture;
using moxui::testing::FindDifference;
using moxui::testing::GoldenPath;

std::string PictureName(TimecodeFace const& face, float scale) {
  return "timecode/" + face.name + (scale == 1.0f ? ".png" : "@2x.png");
}

class TimecodePicture : public ::testing::TestWithParam<TimecodeFace> {};

TEST_P(TimecodePicture, IsTheOneThatWasAgreedOn) {
  for (float const scale : {1.0f, 2.0f}) {
    EXPECT_EQ(
        ComparePicture(TakeFaceInAllLooks(GetParam(), scale), GoldenPath(PictureName(GetParam(), scale))),
        "");
  }
}

INSTANTIATE_TEST_SUITE_P(Faces, TimecodePicture, ::testing::ValuesIn(GetTimecodeFaces()),
                         [](auto const& face) { return face.param.name; });

TEST(TimecodePictures, AreUnlikeEachOther) {
  std::vector<Pixels> pictures;
  for (TimecodeFace const& face : GetTimecodeFaces()) {
    Pixels const picture = TakeFaceInAllLooks(face, 1.0f);
    for (std::size_t earlier = 0; earlier < pictures.size(); ++earlier) {
      EXPECT_FALSE(pictures[earlier] == picture) << GetTimecodeFaces()[earlier].name << " and " << face.name;
    }
    pictures.push_back(picture);
  }
}

TEST(TimecodePictures, ComparisonNoticesAnotherFrame) {
  TimecodeFace const& face = GetTimecodeFace("timecode");
  Pixels golden;
  ASSERT_TRUE(moxui::platform::LoadPNG(moxcore::Utf8String(GoldenPath(PictureName(face, 1.0f))), golden));
  TimecodeFace const later{
      "later", [](OpenTimecodeControl& field) { field.SetTime(field.GetTime() + TickTime(1, k25), false); }};
  auto const difference = FindDifference(TakeFaceInAllLooks(later, 1.0f), golden);
  EXPECT_FALSE(difference.sizesDiffer);
  EXPECT_GT(difference.differingPixels, 0);
}

}  // namespace
}  // namespace timecode_tests
