#include <moxcore/config/Localizer.h>
#include <moxcore/config/ModuleCatalogues.h>
#include <moxcore/utility/ModuleHandle.h>
#include <moxmediaui/Module.h>

#include <gtest/gtest.h>

#include <utility>

namespace moxmediaui {
namespace {

// Their texts are compared with one another: names that are reserved under one key are shown under the other.
TEST(PresetNames, AreTheSameUnderBothOfTheirKeysInEveryLanguage) {
  auto& localizer = moxcore::config::Localizer::Get();
  auto const module = moxcore::utility::ModuleHandle::FromAddress(reinterpret_cast<void const*>(&Terminate));
  ASSERT_GT(moxcore::config::AddCataloguesFromModule(module), 0);
  ASSERT_GE(localizer.GetLanguages().size(), 2u);
  for (auto const& language : localizer.GetLanguages()) {
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
