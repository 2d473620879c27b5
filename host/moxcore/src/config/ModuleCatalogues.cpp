#include <moxcore/config/Catalogue.h>
#include <moxcore/config/Localizer.h>
#include <moxcore/config/ModuleCatalogues.h>
#include <moxcore/utility/ModuleResources.h>

namespace moxcore::config {

int AddCataloguesFromModule(utility::ModuleHandle module) {
  constexpr utility::ResourceType kType("PO");
  int count = 0;
  for (auto const& name : utility::GetResourceDataNames(module, kType)) {
    if (auto const bytes = utility::FindBinaryInModule(module, kType, utility::ResourceName(name))) {
      auto const* const text = reinterpret_cast<char const*>(bytes->data());
      Localizer::Get().AddCatalogue(ParseCatalogue({text, bytes->size()}));
      ++count;
    }
  }
  return count;
}

}  // namespace moxcore::config
