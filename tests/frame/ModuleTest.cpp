#include <moxcore/config/Localizer.h>
#include <moxmediaui/Module.h>
#include <moxui/resources/ImageProvider.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/testing/RecordingSupplier.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using moxmediaui::GetDrawSupplier;
using moxmediaui::GetModuleImageProvider;
using moxmediaui::GetResourceManager;
using moxmediaui::Initialize;
using moxmediaui::Terminate;
using moxui::utility::ResourceBytes;
using moxui::utility::ResourceName;
using moxui::utility::ResourceType;

bool HasServices() {
  bool const has = GetDrawSupplier() != nullptr;
  EXPECT_EQ(GetResourceManager() != nullptr, has);
  EXPECT_EQ(GetModuleImageProvider() != nullptr, has);
  return has;
}

TEST(Module, HasServicesFromTheFirstInitializeToTheLastTerminate) {
  auto* const a = moxui::scriber::GetRasterSupplier();
  moxui::testing::RecordingSupplier b;
  EXPECT_FALSE(HasServices());
  Initialize(a);
  Initialize(&b);
  EXPECT_EQ(GetDrawSupplier(), a);
  auto* const resources = GetResourceManager();
  Terminate();
  EXPECT_TRUE(HasServices());
  EXPECT_EQ(GetResourceManager(), resources);
  EXPECT_TRUE(resources->HasBinary(ResourceType("SVG"), ResourceName("S_SAVE_MD_N_D_AT_2X")));
  auto const image = GetModuleImageProvider()->GetThemeImage("Save_Md", nullptr);
  ASSERT_TRUE(image);
  EXPECT_EQ(image->GetPixelWidth(), 36);
  Terminate();
  EXPECT_FALSE(HasServices());
}

TEST(Module, ATerminateTooManyIsEvenedOutByTheNextInitialize) {
  moxui::testing::RecordingSupplier supplier;
  Terminate();
  EXPECT_FALSE(HasServices());
  Initialize(&supplier);
  EXPECT_FALSE(HasServices());
  Initialize(&supplier);
  EXPECT_TRUE(HasServices());
  Terminate();
  EXPECT_FALSE(HasServices());
}

TEST(Module, BringsTheTranslationsOfTheHostsTexts) {
  using moxcore::config::Localizer;
  moxui::testing::RecordingSupplier supplier;
  Initialize(&supplier);
  Localizer::Get().SetLanguage("de");
  EXPECT_EQ(Localizer::Get().GetUTF8String("$$$/moxui/MessageBox/Cancel=Cancel"), "Abbrechen");
  Localizer::Get().SetLanguage("");
  EXPECT_EQ(Localizer::Get().GetUTF8String("$$$/moxui/MessageBox/Cancel=Cancel"), "Cancel");
  Terminate();
}

TEST(Module, FindsItsOwnResourcesAndNotThoseOfTheHost) {
  moxui::testing::RecordingSupplier supplier;
  Initialize(&supplier);
  EXPECT_NE(GetResourceManager(), moxui::utility::GetResourceManager());
  for (char const* const name : {"S_SAVE_MD_N_D_AT_2X", "s_delete_md_n_d_at_2x"}) {
    ResourceBytes bytes;
    ASSERT_TRUE(GetResourceManager()->GetBinary(ResourceType("svg"), ResourceName(name), &bytes)) << name;
    EXPECT_NE(std::string(bytes.begin(), bytes.end()).find("<svg"), std::string::npos);
    EXPECT_FALSE(moxui::utility::GetResourceManager()->HasBinary(ResourceType("SVG"), ResourceName(name)));
  }
  EXPECT_FALSE(GetResourceManager()->HasBinary(ResourceType("SVG"), ResourceName("S_NO_SUCH_THING")));
  Terminate();
}

TEST(Module, ItsImageProviderDrawsItsIcons) {
  Initialize(moxui::scriber::GetRasterSupplier());
  for (char const* const name : {"Save_Md", "Delete_Md", "S_Save_Md_N_D@2x"}) {
    auto const image = GetModuleImageProvider()->GetThemeImage(name, nullptr);
    ASSERT_TRUE(image) << name;
    EXPECT_EQ(image->GetWidth(), 18.0f);
    EXPECT_EQ(image->GetPixelWidth(), 36);
    std::vector<std::uint8_t> pixels(36 * 36 * 4);
    image->CopyPixels(pixels.data(), 36 * 4);
    int painted = 0;
    for (std::size_t alpha = 3; alpha < pixels.size(); alpha += 4) {
      painted += pixels[alpha] > 0 ? 1 : 0;
    }
    EXPECT_GT(painted, 100) << name;
    EXPECT_LT(painted, 36 * 36) << name;
  }
  Terminate();
}

}  // namespace
