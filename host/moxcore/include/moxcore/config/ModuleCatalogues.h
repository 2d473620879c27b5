#pragma once

#include <moxcore/utility/ModuleHandle.h>

namespace moxcore::config {

// Adds every resource of type "PO" of a module to the localizer; gives their number.
int AddCataloguesFromModule(utility::ModuleHandle module);

}  // namespace moxcore::config
