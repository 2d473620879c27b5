#include <moxui/platform/PaintTarget.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/ComparePicture.h>

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>

namespace moxui {
namespace {

namespace fs = std::filesystem;

using ::testing::HasSubstr;

platform::Pixels PictureOf(RectT<float> const& square) {
  auto const target = platform::NewPaintTarget(20, 10, 1);
  target->Clear({0, 0, 20, 10}, {0, 0, 1, 1});
  target->BeginPaint().GetSurface()->FillRect(square, {1, 0, 0, 1});
  target->EndPaint();
  return target->GetPixels();
}

class Picture : public ::testing::Test {
 protected:
  Picture() {
    fs::create_directories(folder);
    setenv("MOX_PICTURE_OUT", (folder / "out").c_str(), 1);
    EXPECT_TRUE(platform::SavePNG(PictureOf({2, 2, 4, 4}), moxcore::Utf8String(golden)));
  }
  ~Picture() override {
    unsetenv("MOX_PICTURE_OUT");
    unsetenv("MOX_UPDATE_GOLDENS");
    std::error_code error;
    fs::remove_all(folder, error);
  }

  fs::path folder =
      fs::temp_directory_path() /
      (std::string("mox_pictures_") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
  std::string golden = (folder / "square.png").string();
};

TEST_F(Picture, IsBlueGreenRedAlphaFromTheTop) {
  auto const picture = PictureOf({2, 2, 4, 4});

  EXPECT_EQ(picture.width, 20);
  EXPECT_EQ(picture.height, 10);
  EXPECT_THAT((std::vector(picture.bytes.begin(), picture.bytes.begin() + 4)),
              ::testing::ElementsAre(255, 0, 0, 255));
  auto const red = picture.bytes.begin() + (2 * 20 + 2) * 4;
  EXPECT_THAT((std::vector(red, red + 4)), ::testing::ElementsAre(0, 0, 255, 255));
}

TEST_F(Picture, ComesBackFromItsFileUnchanged) {
  platform::Pixels read;

  ASSERT_TRUE(platform::LoadPNG(moxcore::Utf8String(golden), read));

  EXPECT_EQ(read, PictureOf({2, 2, 4, 4}));
}

TEST_F(Picture, EqualsItsGolden) {
  EXPECT_EQ(testing::ComparePicture(PictureOf({2, 2, 4, 4}), golden), "");
}

TEST_F(Picture, ThatDiffersIsReportedWithItsPlace) {
  std::string const report = testing::ComparePicture(PictureOf({2, 2, 5, 4}), golden);

  EXPECT_THAT(report, HasSubstr("4 pixels differ, by up to 255 of 255, within (6, 2, 1, 4)"));
  EXPECT_TRUE(fs::exists(folder / "out" / "square.actual.png"));
  EXPECT_TRUE(fs::exists(folder / "out" / "square.difference.png"));
}

TEST_F(Picture, MayDifferWithinTheTolerance) {
  auto picture = PictureOf({2, 2, 4, 4});
  picture.bytes[1] = 3;

  EXPECT_NE(testing::ComparePicture(picture, golden, 2), "");
  EXPECT_EQ(testing::ComparePicture(picture, golden, 3), "");
}

TEST_F(Picture, OfAnotherSizeIsReported) {
  EXPECT_THAT(testing::ComparePicture(platform::NewPaintTarget(5, 6, 1)->GetPixels(), golden),
              HasSubstr("5 by 6 pixels where 20 by 10 are expected"));
}

TEST_F(Picture, WithoutAGoldenIsReported) {
  EXPECT_THAT(testing::ComparePicture(PictureOf({2, 2, 4, 4}), golden + ".none.png"),
              HasSubstr("no golden picture"));
}

TEST_F(Picture, BecomesTheGoldenWhenThatIsAskedFor) {
  setenv("MOX_UPDATE_GOLDENS", "1", 1);
  EXPECT_EQ(testing::ComparePicture(PictureOf({9, 1, 4, 4}), golden), "");
  unsetenv("MOX_UPDATE_GOLDENS");

  EXPECT_EQ(testing::ComparePicture(PictureOf({9, 1, 4, 4}), golden), "");
}

TEST_F(Picture, ThatIsNoneIsNotWritten) {
  EXPECT_FALSE(platform::SavePNG({}, moxcore::Utf8String((folder / "none.png").string())));
  EXPECT_FALSE(platform::SavePNG(PictureOf({2, 2, 4, 4}), "/no/such/folder/x.png"));
  platform::Pixels read;
  EXPECT_FALSE(platform::LoadPNG("/no/such/file.png", read));
}

}  // namespace
}  // namespace moxui
