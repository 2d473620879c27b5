#include "MapResources.h"

#include <moxui/controls/UI_PictureButton.h>
#include <moxui/resources/ImageProvider.h>
#include <moxui/skins/ControlState.h>
#include <moxui/skins/Theme.h>
#include <moxui/testing/FailingSupplier.h>
#include <moxui/testing/RecordingSupplier.h>

#include <gtest/gtest.h>

namespace {

using moxui::controls::UI_PictureButton;
using moxui::controls::UI_PictureSupplyMessage;
using moxui::utility::ImageProvider;

class ImageProviderOfIcons : public ::testing::Test {
 protected:
  ImageProviderOfIcons() {
    mResources.Add("SVG", "S_STAR_N_D_AT_2X", R"(<svg fill="#fff" opacity="0.65">star</svg>)");
    mResources.Add("SVG", "S_DIAL_18_N_AT_2X", R"(<svg fill="#fff">dial</svg>)");
    mResources.Add("SVG", "S_EXACT", R"(<svg fill="#fff">exact</svg>)");
  }

  /// The text of the document that an image was made of; empty without an image.
  std::string DocumentOf(moxui::scriber::ImageP const& image) const {
    if (!image) {
      return {};
    }
    auto const bytes = mSupplier.GetCalls("NewImageFromFileBytes").back().image.bytes;
    return std::string(bytes.begin(), bytes.end());
  }

  moxui::testing::RecordingSupplier mSupplier;
  MapResources mResources;
  ImageProvider mProvider{&mResources, &mSupplier, nullptr};
};

TEST_F(ImageProviderOfIcons, FindsIconsByPlainAndByResourceNames) {
  EXPECT_NE(DocumentOf(mProvider.GetThemeImage("Star", nullptr)).find("star"), std::string::npos);
  EXPECT_NE(DocumentOf(mProvider.GetThemeImage("S_Dial_18_N", nullptr)).find("dial"), std::string::npos);
  EXPECT_NE(DocumentOf(mProvider.GetThemeImage("S_Exact", nullptr)).find("exact"), std::string::npos);
  EXPECT_TRUE(mProvider.GetThemeImage("S_Star_N_D@2x", nullptr));
  EXPECT_FALSE(mProvider.GetThemeImage("Moon", nullptr));
  EXPECT_FALSE(mProvider.GetThemeImage("", nullptr));
  EXPECT_FALSE(mProvider.GetThemeImage("S_", nullptr));
}

TEST_F(ImageProviderOfIcons, ColoursThemByTone) {
  mProvider.GetImage("Star", nullptr, {1.0f, 0.0f, 0.0f, 0.5f});
  auto const bytes = mSupplier.GetCalls("NewImageFromFileBytes").back().image.bytes;
  EXPECT_EQ(std::string(bytes.begin(), bytes.end()), R"(<svg fill="#ff0000" opacity="0.500">star</svg>)");
  EXPECT_EQ(mSupplier.GetCalls("NewImageFromFileBytes").back().number, 2.0f);
}

TEST_F(ImageProviderOfIcons, MakesEachImageOnce) {
  auto const first = mProvider.GetThemeImage("Star", nullptr);
  EXPECT_EQ(mProvider.GetThemeImage("Star", nullptr), first);
  EXPECT_EQ(mSupplier.GetCalls("NewImageFromFileBytes").size(), 1u);
  EXPECT_NE(mProvider.GetThemeImage("Star", nullptr, moxui::skins::ControlState::kDisabled), first);
  moxui::testing::RecordingSupplier other;
  EXPECT_NE(mProvider.GetThemeImage("Star", &other), first);
  moxui::ui::SetCurrentTheme(moxui::ui::ThemeID::kLight);
  EXPECT_NE(mProvider.GetThemeImage("Star", nullptr), first);
  moxui::ui::SetCurrentTheme(moxui::ui::ThemeID::kDark);
  EXPECT_EQ(mProvider.GetThemeImage("Star", nullptr), first);
}

TEST_F(ImageProviderOfIcons, AnswersAButtonByItsNameAndState) {
  auto const button = moxcore::utility::MakeIntrusive<UI_PictureButton>();
  UI_PictureSupplyMessage nameless(*button, {}, &mSupplier);
  mProvider.ProvideImage(&nameless);
  EXPECT_FALSE(nameless.GetImage());
  button->SetImageName("Star");
  UI_PictureSupplyMessage idle(*button, {}, &mSupplier);
  mProvider.ProvideImage(&idle);
  ASSERT_TRUE(idle.GetImage());
  UI_PictureSupplyMessage disabled(*button, moxui::skins::ControlState::kDisabled, nullptr);
  mProvider.ProvideImage(&disabled);
  EXPECT_NE(disabled.GetImage(), idle.GetImage());
  mProvider.ProvideImage(nullptr);
}

TEST_F(ImageProviderOfIcons, TriesAgainWhatCouldNotBeMade) {
  moxui::testing::FailingSupplier failing(mSupplier);
  failing.Refuse(moxui::testing::Refusal::kFileImage);
  EXPECT_FALSE(mProvider.GetThemeImage("Star", &failing));
  failing.Allow(moxui::testing::Refusal::kFileImage);
  EXPECT_TRUE(mProvider.GetThemeImage("Star", &failing));
}

TEST_F(ImageProviderOfIcons, WithoutResourcesOrSupplierFindsNothing) {
  ImageProvider noResources(nullptr, &mSupplier, nullptr);
  EXPECT_FALSE(noResources.GetThemeImage("Star", nullptr));
  ImageProvider noSupplier(&mResources, nullptr, nullptr);
  EXPECT_FALSE(noSupplier.GetThemeImage("Star", nullptr));
  EXPECT_TRUE(noSupplier.GetThemeImage("Star", &mSupplier));
}

class MoonHelper : public moxui::utility::ImageResourceHelper {
 public:
  bool GetImageResource(std::string_view name, moxcore::utility::ResourceBytes& document) override {
    std::string_view const text = "<svg>moon</svg>";
    if (name == "Moon") {
      document.assign(text.begin(), text.end());
    }
    return name == "Moon";
  }
};

TEST_F(ImageProviderOfIcons, AsksItsHelperFirst) {
  MoonHelper helper;
  ImageProvider provider(&mResources, &mSupplier, &helper);
  EXPECT_TRUE(provider.GetThemeImage("Moon", nullptr));
  EXPECT_TRUE(provider.GetThemeImage("Star", nullptr));
}

}  // namespace
