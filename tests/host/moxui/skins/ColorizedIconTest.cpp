#include "../resources/MapResources.h"

#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/skins/ColorizedIcon.h>
#include <moxui/skins/ControlState.h>
#include <moxui/testing/FailingSupplier.h>
#include <moxui/testing/RecordingSupplier.h>

#include <gtest/gtest.h>

#include <array>

namespace {

namespace ControlState = moxui::skins::ControlState;
using moxui::skins::utilities::GetColorizedSVGIconImage;

constexpr moxui::ColorRGBA kRed{1.0f, 0.0f, 0.0f, 1.0f};
constexpr moxui::ColorRGBA kGreen{0.0f, 1.0f, 0.0f, 1.0f};
constexpr moxui::ColorRGBA kBlue{0.0f, 0.0f, 1.0f, 0.25f};

class ColorizedIcon : public ::testing::Test {
 protected:
  ColorizedIcon() {
    mResources.Add("SVG", "S_DIAL_N_D_AT_2X",
                   R"(<svg xmlns="http://www.w3.org/2000/svg" width="36" height="36">)"
                   R"(<rect width="36" height="36" fill="#fff" opacity="0.65"/></svg>)");
  }

  moxui::scriber::ImageP Make(moxui::scriber::SupplierInterface const& supplier, std::string_view name,
                              unsigned int state) const {
    moxui::scriber::Scriber scriber(&supplier, nullptr);
    return GetColorizedSVGIconImage(nullptr, &scriber, name, kRed, kGreen, kBlue, state, &mResources);
  }

  /// Blue, green, red, straight alpha of the icon's middle.
  std::array<int, 4> MiddleOf(unsigned int state) const {
    auto const image = Make(*moxui::scriber::GetRasterSupplier(), "Dial", state);
    if (!image || image->GetPixelWidth() != 36 || image->GetPixelHeight() != 36) {
      return {};
    }
    std::vector<std::uint8_t> bytes(36 * 36 * 4);
    image->CopyPixels(bytes.data(), 36 * 4);
    std::uint8_t const* const pixel = &bytes[(18 * 36 + 18) * 4];
    return {pixel[0], pixel[1], pixel[2], pixel[3]};
  }

  MapResources mResources;
};

TEST_F(ColorizedIcon, HasTheColourOfItsState) {
  EXPECT_EQ(MiddleOf(0), (std::array{0, 0, 255, 255}));
  EXPECT_EQ(MiddleOf(ControlState::kFocused), (std::array{0, 0, 255, 255}));
  EXPECT_EQ(MiddleOf(ControlState::kRollover), (std::array{0, 255, 0, 255}));
  EXPECT_EQ(MiddleOf(ControlState::kPressed), (std::array{0, 255, 0, 255}));
  EXPECT_EQ(MiddleOf(ControlState::kPressed | ControlState::kRollover), (std::array{0, 255, 0, 255}));
  EXPECT_EQ(MiddleOf(ControlState::kDisabled), (std::array{255, 0, 0, 64}));
  EXPECT_EQ(MiddleOf(ControlState::kDisabled | ControlState::kPressed), (std::array{255, 0, 0, 64}));
}

TEST_F(ColorizedIcon, IsHalfAsWideAsItsDocument) {
  auto const image = Make(*moxui::scriber::GetRasterSupplier(), "Dial", 0);
  ASSERT_TRUE(image);
  EXPECT_EQ(image->GetWidth(), 18.0f);
  EXPECT_EQ(image->GetHeight(), 18.0f);
}

TEST_F(ColorizedIcon, IsNullWithoutSuchAnIconOrAnythingItNeeds) {
  moxui::testing::RecordingSupplier supplier;
  EXPECT_FALSE(Make(supplier, "Moon", 0));
  EXPECT_FALSE(Make(supplier, "", 0));
  EXPECT_TRUE(Make(supplier, "Dial", 0));
  moxui::testing::FailingSupplier failing(supplier);
  failing.Refuse(moxui::testing::Refusal::kFileImage);
  EXPECT_FALSE(Make(failing, "Dial", 0));
  moxui::scriber::Scriber scriber(&supplier, nullptr);
  EXPECT_FALSE(GetColorizedSVGIconImage(nullptr, &scriber, "Dial", kRed, kGreen, kBlue, {}, nullptr));
  EXPECT_FALSE(GetColorizedSVGIconImage(nullptr, nullptr, "Dial", kRed, kGreen, kBlue, {}, &mResources));
  moxui::scriber::Scriber nothing(nullptr, nullptr);
  EXPECT_FALSE(GetColorizedSVGIconImage(nullptr, &nothing, "Dial", kRed, kGreen, kBlue, {}, &mResources));
}

}  // namespace
