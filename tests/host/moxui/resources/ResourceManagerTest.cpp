#include "MapResources.h"

#include <moxui/resources/ResourceManager.h>
#include <moxui/skins/Look.h>

#include <gtest/gtest.h>

namespace {

using moxui::utility::OS_ResourceManager;
using moxui::utility::ResourceBytes;
using moxui::utility::ResourceName;
using moxui::utility::ResourceType;

std::string TextOf(moxui::utility::ResourceManager const& resources, char const* type, char const* name) {
  ResourceBytes bytes{'n', 'o', 'n', 'e'};
  bool const found = resources.GetBinary(ResourceType(type), ResourceName(name), &bytes);
  EXPECT_EQ(resources.HasBinary(ResourceType(type), ResourceName(name)), found);
  return std::string(bytes.begin(), bytes.end());
}

class ResourceManager : public ::testing::Test {
 protected:
  ResourceManager() {
    mResources.Add("XML", "VIEW", "classic");
    mResources.Add("XML", "VIEW.V7", "new");
    mResources.Add("XML", "PLAIN", "plain");
    mResources.Add("XML", "ONLY.V7", "only");
    mResources.Add("JSON", "VIEW", "json");
    mResources.Add("JSON", "VIEW.V7", "never");
  }
  ~ResourceManager() override { moxui::skins::SetRunningV7OrBeyond(mWasNew); }

  MapResources mResources;
  bool mWasNew = moxui::skins::IsRunningV7OrBeyond();
};

TEST_F(ResourceManager, TakesTheVariantOfAnArchiveWhileTheNewLookRuns) {
  moxui::skins::SetRunningV7OrBeyond(true);
  EXPECT_EQ(TextOf(mResources, "XML", "VIEW"), "new");
  EXPECT_EQ(TextOf(mResources, "xml", "view"), "new");
  EXPECT_EQ(TextOf(mResources, "XML", "PLAIN"), "plain");
  EXPECT_EQ(TextOf(mResources, "XML", "ONLY"), "only");
  EXPECT_EQ(TextOf(mResources, "JSON", "VIEW"), "json");
}

TEST_F(ResourceManager, TakesThePlainArchiveInTheClassicLook) {
  moxui::skins::SetRunningV7OrBeyond(false);
  EXPECT_EQ(TextOf(mResources, "XML", "VIEW"), "classic");
  EXPECT_EQ(TextOf(mResources, "XML", "VIEW.V7"), "new");
  EXPECT_EQ(TextOf(mResources, "XML", "ONLY"), "none");
}

TEST_F(ResourceManager, LeavesTheBytesWhenThereIsNothing) {
  EXPECT_EQ(TextOf(mResources, "XML", "MISSING"), "none");
  EXPECT_EQ(TextOf(mResources, "PNG", "VIEW"), "none");
  EXPECT_EQ(TextOf(mResources, "", ""), "none");
}

TEST_F(ResourceManager, OfNoModuleFindsNothing) {
  OS_ResourceManager const nowhere(nullptr);
  EXPECT_EQ(TextOf(nowhere, "XML", "VIEW"), "none");
  EXPECT_TRUE(nowhere.GetResourceDataNames(ResourceType("XML")).empty());
}

TEST_F(ResourceManager, OfTheHostIsOne) {
  ASSERT_NE(moxui::utility::GetResourceManager(), nullptr);
  EXPECT_EQ(moxui::utility::GetResourceManager(), moxui::utility::GetResourceManager());
}

}  // namespace
