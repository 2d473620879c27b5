#include "ArchiveClasses.h"

#include <map>

namespace moxui::archive {

namespace {

using Families = std::map<std::string_view, ArchiveClass const*>;

Families const& AllClasses() {
  static Families const all = [] {
    Families classes;
    for (auto const family : {NodeClasses(), ControlClasses(), ButtonClasses(), PopupClasses(), TextClasses(),
                              ContainerClasses()}) {
      for (ArchiveClass const& one : family) {
        classes.emplace(one.name, &one);
      }
    }
    return classes;
  }();
  return all;
}

}  // namespace

ArchiveClass const* FindArchiveClass(std::string_view name) {
  auto const found = AllClasses().find(name);
  return found != AllClasses().end() ? found->second : nullptr;
}

}  // namespace moxui::archive
