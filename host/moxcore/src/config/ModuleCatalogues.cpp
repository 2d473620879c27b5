#include <moxcore/config/Catalogue.h>
#include <moxcore/config/Localizer.h>
#include <moxcore/config/ModuleCatalogues.h>
#include <moxcore/debug/Trace.h>
#include <moxcore/utility/ModuleResources.h>

#include <string>

namespace moxcore::config {
namespace {

// A translator looks there when a text stays as it was.
void TraceProblems(Catalogue const& catalogue, Utf8String const& name) {
  static debug::TraceCategory const kCategory("moxcore.catalogues");
  constexpr debug::TraceLevel kProblem{1};
  auto const trace = [&](std::string const& text) {
    debug::Trace(kProblem, kCategory, std::string(name) + ": " + text);
  };
  if (catalogue.language.empty()) {
    trace("the header names no language; no text is taken");
  }
  for (auto const& problem : catalogue.problems) {
    trace("line " + std::to_string(problem.line) + ": " + std::string(problem.text));
  }
}

}  // namespace

int AddCataloguesFromModule(utility::ModuleHandle module) {
  constexpr utility::ResourceType kType("PO");
  int count = 0;
  for (auto const& name : utility::GetResourceDataNames(module, kType)) {
    if (auto const bytes = utility::FindBinaryInModule(module, kType, utility::ResourceName(name))) {
      auto const* const text = reinterpret_cast<char const*>(bytes->data());
      Catalogue const catalogue = ParseCatalogue({text, bytes->size()});
      TraceProblems(catalogue, Utf8String(name));
      Localizer::Get().AddCatalogue(catalogue);
      ++count;
    }
  }
  return count;
}

}  // namespace moxcore::config
