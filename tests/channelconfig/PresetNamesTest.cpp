#include <moxcore/config/Localizer.h>
#include <moxcore/config/ModuleCatalogues.h>
#include <moxcore/utility/ModuleHandle.h>
#include <moxcore/utility/ModuleResources.h>
#include <moxmediaui/Module.h>

#include <gtest/gtest.h>

#include <utility>

namespace moxmediaui {
namespace {

// Their texts are compared with one another: names that are reserved under one key are shown under the other.
TEST(PresetNames, AreTheSameUnderBothOfTheirKeysInEveryLanguage) {
  auto& localizer = moxcore::config::Localizer::Get();
  auto const module = moxcore::utility::ModuleHandle::FromAddress(reinterpret_cast<void const*>(&Terminate));
  moxcore::config::AddCataloguesFromModule(module);
  auto const languages = moxcore::utility::GetResourceDataNames(module, moxcore::utility::ResourceType("PO"));
  ASSERT_FALSE(languages.empty());
  for (auto const& language : languages) {
    localizer.SetLanguage(language);
    for (auto const& [one, other] :
         {std::pair("$$$/app/PresetManager/CustomPresetName=(Custom)",
                    "$$$/mediaio/moxmediaui/Presets/CustomPresetName=(Custom)"),
          std::pair("$$$/app/Presets/DefaultPresetName=(Default)",
                    "$$$/mediaio/moxmediaui/Presets/DefaultPresetName=(Default)")}) {
      EXPECT_EQ(localizer.GetUTF8String(one), localizer.GetUTF8String(other)) << language;
    }
  }
  localizer.SetLanguage("");
}

}  // namespace
}  // namespace moxmediaui
