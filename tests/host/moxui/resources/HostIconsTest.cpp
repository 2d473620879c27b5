#include "../controls/ControlFixture.h"

#include <moxui/controls/UI_PictureButton.h>
#include <moxui/resources/ImageProvider.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/skins/ControlState.h>
#include <moxui/ui/UI_NodeManager.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

namespace moxui {
namespace {

/// An icon of the host, as panels ask for it, and its extent in logical pixels.
struct HostIcon {
  char const* name;
  float size;
};

constexpr HostIcon kIcons[] = {{"VisibilityOff_18", 18},
                               {"Visibility_18", 18},
                               {"Star_12", 12},
                               {"Revert_16", 16},
                               {"S_Contrast_18_N", 18},
                               {"S_Exposure_18_N", 18},
                               {"S_Saturation_18_N_D", 18},
                               {"S_Temperature_18_N", 18},
                               {"S_Sharpen_18_N", 18},
                               {"S_Textures_18_N", 18},
                               {"S_Strength_14_N_D", 14},
                               {"S_Radius_14_N_D", 14},
                               {"S_ThresholdValue_14_N_D", 14},
                               {"S_SizeImpact01_14_N_D", 14},
                               {"S_SizeImpact02_14_N_D", 14},
                               {"S_SizeImpact03_14_N_D", 14},
                               {"S_SizeImpact04_14_N_D", 14},
                               {"S_SizeImpact05_14_N_D", 14},
                               {"TextFauxBold_Md", 18},
                               {"TextFauxItalic_Md", 18},
                               {"TextAllCaps_Md", 18},
                               {"TextSmallCaps_Md", 18},
                               {"Flyout_Sm", 12},
                               {"MRDragTarget", 32}};

using Bytes = std::vector<std::uint8_t>;

Bytes PixelsOf(scriber::ImageInterface const& image) {
  int const row = image.GetPixelWidth() * 4;
  Bytes bytes(static_cast<std::size_t>(row) * static_cast<std::size_t>(image.GetPixelHeight()));
  image.CopyPixels(bytes.data(), row);
  return bytes;
}

/// How much of an icon is painted at all, and how much of that in part, as a share of its pixels.
struct Ink {
  double painted;
  double strongest;
};

Ink InkOf(Bytes const& pixels) {
  Ink ink{0.0, 0.0};
  for (std::size_t alpha = 3; alpha < pixels.size(); alpha += 4) {
    ink.painted += pixels[alpha] > 0 ? 4.0 / static_cast<double>(pixels.size()) : 0.0;
    ink.strongest = std::max(ink.strongest, pixels[alpha] / 255.0);
  }
  return ink;
}

TEST(HostIcons, AreKnownToTheProviderOfTheNodeManager) {
  auto* const provider = ui::UI_NodeManager::Get(true)->GetImageProvider();
  ASSERT_NE(provider, nullptr);
  std::set<Bytes> pictures;
  for (HostIcon const& icon : kIcons) {
    scriber::ImageP const image = provider->GetThemeImage(icon.name, nullptr);
    ASSERT_TRUE(image) << icon.name;
    EXPECT_EQ(image->GetWidth(), icon.size) << icon.name;
    EXPECT_EQ(image->GetHeight(), icon.size) << icon.name;
    Bytes const pixels = PixelsOf(*image);
    Ink const ink = InkOf(pixels);
    EXPECT_GT(ink.painted, 0.1) << icon.name;
    EXPECT_LT(ink.painted, 0.9) << icon.name;
    EXPECT_GT(ink.strongest, 0.5) << icon.name;
    EXPECT_TRUE(pictures.insert(pixels).second) << icon.name << " looks like another one";
  }
}

TEST(HostIcons, AreAllThatTheHostHas) {
  // A file without a name that somebody asks for would be dead weight, or misspelt.
  EXPECT_EQ(utility::GetResourceManager()->GetResourceDataNames(utility::ResourceType("SVG")).size(),
            std::size(kIcons));
}

TEST(HostIcons, AreInTheToneOfTheState) {
  auto* const provider = ui::UI_NodeManager::Get(true)->GetImageProvider();
  ASSERT_NE(provider, nullptr);
  for (HostIcon const& icon : kIcons) {
    auto const rest = PixelsOf(*provider->GetThemeImage(icon.name, nullptr));
    EXPECT_NE(rest, PixelsOf(*provider->GetThemeImage(icon.name, nullptr, skins::ControlState::kDisabled)))
        << icon.name;
    EXPECT_NE(rest, PixelsOf(*provider->GetThemeImage(icon.name, nullptr, skins::ControlState::kRollover)))
        << icon.name;
  }
}

class PictureByName : public testing::ControlTest<controls::UI_PictureButton> {};

TEST_F(PictureByName, IsShownByAButtonThatNobodySuppliesWithPictures) {
  controls::UI_PictureButton& button = Put({10, 10, 24, 24});
  auto const without = mStage.TakePicture();
  button.SetImageName("Revert_16");
  EXPECT_NE(mStage.TakePicture(), without);
  button.SetImageName("NoSuchIcon_16");
  EXPECT_EQ(mStage.TakePicture(), without);
}

}  // namespace
}  // namespace moxui
