#pragma once

#include "SourceTree.h"

#include <string>
#include <vector>

namespace repository {

// Each rule answers what breaks it, as "path:line: text"; nothing if it is kept.
using Complaints = std::vector<std::string>;

// Marks of work that was left undone, and tests that were switched off.
Complaints UnfinishedMarks(const SourceTree& tree);

// Code of more than 700 lines wants to be several files.
Complaints OverlongFiles(const SourceTree& tree);

// Files named for nothing: utils, helpers, misc, common.
Complaints NamelessFiles(const SourceTree& tree);

// Folders that exist on one machine only.
Complaints MachinePaths(const SourceTree& tree);

// Headers begin with #pragma once and open no namespace for whoever includes them.
Complaints HeaderForm(const SourceTree& tree);

}  // namespace repository
