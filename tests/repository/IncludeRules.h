#pragma once

#include "SourceTree.h"

#include <string>
#include <vector>

namespace repository {

// Each rule answers what breaks it, as "path:line: text"; nothing if it is kept.
using Complaints = std::vector<std::string>;

// A folder never includes from a folder above it, nor the private headers of another folder. Tests,
// benchmarks and fuzz targets stand outside of the order.
Complaints UpwardIncludes(const SourceTree& tree);

// Qt is known below the platform seam of moxui and in the window files of moxworkspace only.
Complaints QtOutsideThePlatformSeam(const SourceTree& tree);

// A public header includes standard headers and public headers of this repository only, and declares no
// type of a packaged library.
Complaints ThirdPartyInPublicHeaders(const SourceTree& tree);

// No header includes itself by a detour.
Complaints CyclicIncludes(const SourceTree& tree);

}  // namespace repository
