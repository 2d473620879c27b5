#include "ControlFaces.h"
#include "RunningLook.h"

#include <moxui/testing/ComparePicture.h>

#include <gtest/gtest.h>

namespace moxui::testing {
namespace {

std::string PictureName(ControlFace const& face, FaceState state, float scale) {
  return "controls/" + face.name + "_" + NameOf(state) + (scale == 1.0f ? ".png" : "@2x.png");
}

class ControlPicture : public ::testing::TestWithParam<ControlFace> {};

TEST_P(ControlPicture, OfEachStateIsTheOneThatWasAgreedOn) {
  for (FaceState const state : GetParam().states) {
    for (float const scale : {1.0f, 2.0f}) {
      EXPECT_EQ(ComparePicture(TakeFaceInAllLooks(GetParam(), state, scale),
                               GoldenPath(PictureName(GetParam(), state, scale))),
                "");
    }
  }
}

TEST_P(ControlPicture, OfEachStateIsUnlikeAllOthers) {
  for (bool const isV7 : {true, false}) {
    for (ui::ThemeID const theme : {ui::ThemeID::kDark, ui::ThemeID::kLight, ui::ThemeID::kHighContrast}) {
      RunningLook const look(isV7, theme);
      std::vector<platform::Pixels> pictures;
      for (FaceState const state : GetParam().states) {
        pictures.push_back(TakeFacePicture(GetParam(), state, 1.0f));
        for (std::size_t earlier = 0; earlier + 1 < pictures.size(); ++earlier) {
          EXPECT_FALSE(pictures[earlier] == pictures.back())
              << GetParam().name << (isV7 ? " in V7, " : " in classic, ") << ui::Theme::Get().GetName()
              << ": " << NameOf(GetParam().states[earlier]) << " looks like " << NameOf(state);
        }
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Stock, ControlPicture, ::testing::ValuesIn(GetControlFaces()),
                         [](auto const& face) { return face.param.name; });

// The comparison must notice a control whose state or theme is another.
TEST(ControlPictures, ComparisonNoticesAnotherState) {
  ControlFace const& face = GetControlFaces().front();
  platform::Pixels golden;
  ASSERT_TRUE(platform::LoadPNG(moxcore::Utf8String(GoldenPath(PictureName(face, FaceState::kNormal, 1.0f))),
                                golden));
  PictureDifference const difference =
      FindDifference(TakeFaceInAllLooks(face, FaceState::kPressed, 1.0f), golden);
  EXPECT_FALSE(difference.sizesDiffer);
  EXPECT_GT(difference.differingPixels, 0);
}

TEST(ControlPictures, ComparisonNoticesAnotherTheme) {
  ControlFace const& face = GetControlFaces().front();
  RunningLook const dark(true, ui::ThemeID::kDark);
  platform::Pixels const inDark = TakeFacePicture(face, FaceState::kNormal, 1.0f);
  RunningLook const light(true, ui::ThemeID::kLight);
  EXPECT_GT(FindDifference(TakeFacePicture(face, FaceState::kNormal, 1.0f), inDark).differingPixels, 0);
}

}  // namespace
}  // namespace moxui::testing
