#pragma once

#include <moxcore/utility/ModuleHandle.h>

namespace moxcore::config {

// Adds every resource of type "PO" of a module to the localizer; gives their number. What is wrong in one is
// traced in the category "moxcore.catalogues".
int AddCataloguesFromModule(utility::ModuleHandle module);

}  // namespace moxcore::config
