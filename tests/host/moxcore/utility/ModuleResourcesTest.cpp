#include <moxcore/config/Localizer.h>
#include <moxcore/config/ModuleCatalogues.h>
#include <moxcore/utility/ModuleResources.h>
#include <moxcore/utility/ResourceOverride.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace moxcore::utility {
namespace {

int sInThisModule = 0;

ModuleHandle ThisModule() {
  return ModuleHandle::FromAddress(&sInThisModule);
}

std::string Read(std::string_view type, std::string_view name) {
  ResourceBytes bytes;
  return GetBinaryFromModule(ThisModule(), ResourceType(type), ResourceName(name), bytes)
             ? std::string(bytes.begin(), bytes.end())
             : "absent";
}

TEST(ModuleHandle, IsTheSameForAllAddressesOfAModule) {
  EXPECT_TRUE(ThisModule());
  EXPECT_EQ(ThisModule(), ModuleHandle::FromAddress(reinterpret_cast<void const*>(&ThisModule)));
}

TEST(ModuleHandle, TellsModulesApart) {
  auto const core = ModuleHandle::FromAddress(reinterpret_cast<void const*>(&GetBinaryFromModule));
  EXPECT_TRUE(core);
  EXPECT_NE(core, ThisModule());
}

TEST(ModuleHandle, IsNullForAnAddressOutsideEveryModule) {
  auto const onHeap = std::make_unique<int>(0);
  EXPECT_FALSE(ModuleHandle::FromAddress(onHeap.get()));
  EXPECT_FALSE(ModuleHandle::FromAddress(nullptr));
}

TEST(ModuleResources, AreFoundByTypeAndNameWhateverTheirCase) {
  EXPECT_EQ(Read("XML", "VIEW"), "<plain/>");
  EXPECT_EQ(Read("xml", "view"), "<plain/>");
  EXPECT_EQ(Read("Xml", "VIEW.V7"), "<seven/>");
  EXPECT_EQ(Read("JSON", "with space"), "{\"a\": \"b c\"}\n");
}

TEST(ModuleResources, MayBeEmpty) {
  EXPECT_EQ(Read("json", "Empty"), "");
}

TEST(ModuleResources, AreAbsentUnderOtherNamesTypesAndModules) {
  EXPECT_EQ(Read("XML", "VIEW.V8"), "absent");
  EXPECT_EQ(Read("SVG", "VIEW"), "absent");
  EXPECT_EQ(Read("VIEW", "XML"), "absent");
  EXPECT_EQ(Read("", ""), "absent");
  ResourceBytes bytes{1, 2};
  EXPECT_FALSE(GetBinaryFromModule(nullptr, ResourceType("XML"), ResourceName("VIEW"), bytes));
  auto const core = ModuleHandle::FromAddress(reinterpret_cast<void const*>(&GetBinaryFromModule));
  EXPECT_FALSE(GetBinaryFromModule(core, ResourceType("XML"), ResourceName("VIEW"), bytes));
  EXPECT_EQ(bytes, (ResourceBytes{1, 2}));
}

TEST(ModuleResources, ListTheirNamesByType) {
  EXPECT_EQ(GetResourceDataNames(ThisModule(), ResourceType("xml")),
            (std::vector<Utf8String>{"VIEW", "View.V7"}));
  EXPECT_EQ(GetResourceDataNames(ThisModule(), ResourceType("JSON")),
            (std::vector<Utf8String>{"Empty", "With Space"}));
  EXPECT_TRUE(GetResourceDataNames(ThisModule(), ResourceType("SVG")).empty());
  EXPECT_TRUE(GetResourceDataNames(nullptr, ResourceType("XML")).empty());
}

TEST(ModuleResources, LieInPlaceForWhoDoesNotWantACopy) {
  auto const found = FindBinaryInModule(ThisModule(), ResourceType("XML"), ResourceName("VIEW"));
  ASSERT_TRUE(found);
  EXPECT_EQ(found->size(), 8u);
  EXPECT_EQ(ModuleHandle::FromAddress(found->data()), ThisModule());
}

TEST(ResourceRegistrar, WithdrawsItsResourcesAtItsEnd) {
  static std::uint8_t const kByte = 7;
  static CompiledResource const kResources[] = {{"TMP", "ONE", &kByte, 1}};
  {
    ResourceRegistrar const registrar(kResources);
    EXPECT_EQ(Read("tmp", "one"), "\x07");
  }
  EXPECT_EQ(Read("tmp", "one"), "absent");
}

TEST(ResourceOverride, StandsInForAResourceUntilItsEnd) {
  auto const before = FindBinaryInModule(ThisModule(), ResourceType("XML"), ResourceName("VIEW"));
  {
    ResourceOverride const first(ThisModule(), ResourceType("xml"), ResourceName("View"), "first");
    EXPECT_EQ(Read("XML", "VIEW"), "first");
    {
      ResourceOverride const second(ThisModule(), ResourceType("XML"), ResourceName("VIEW"), "");
      EXPECT_EQ(Read("XML", "VIEW"), "");
    }
    EXPECT_EQ(Read("XML", "VIEW"), "first");
    EXPECT_EQ(Read("XML", "VIEW.V7"), "<seven/>");
  }
  EXPECT_EQ(Read("XML", "VIEW"), "<plain/>");
  ASSERT_TRUE(before);
  EXPECT_EQ(FindBinaryInModule(ThisModule(), ResourceType("XML"), ResourceName("VIEW"))->data(),
            before->data());
}

TEST(ResourceOverride, AddsAResourceThatTheModuleHasNot) {
  {
    ResourceOverride const added(ThisModule(), ResourceType("SVG"), ResourceName("Added"), "<svg/>");
    EXPECT_EQ(Read("svg", "ADDED"), "<svg/>");
    EXPECT_EQ(GetResourceDataNames(ThisModule(), ResourceType("SVG")), (std::vector<Utf8String>{"Added"}));
  }
  EXPECT_EQ(Read("svg", "ADDED"), "absent");
  EXPECT_TRUE(GetResourceDataNames(ThisModule(), ResourceType("SVG")).empty());
}

TEST(ModuleCatalogues, ReachTheLocalizer) {
  EXPECT_EQ(config::AddCataloguesFromModule(ThisModule()), 1);
  EXPECT_EQ(config::AddCataloguesFromModule(nullptr), 0);
  auto& localizer = config::Localizer::Get();
  localizer.SetLanguage("de");
  EXPECT_EQ(localizer.GetUTF8String("$$$/test/resources/Save=Save"), "Sichern");
  localizer.SetLanguage("");
  EXPECT_EQ(localizer.GetUTF8String("$$$/test/resources/Save=Save"), "Save");
}

}  // namespace
}  // namespace moxcore::utility
