#pragma once

#include "TextRules.h"

namespace repository {

// What a document (*.md) links to or shows, by a path of this repository, is there.
Complaints BrokenLinks(const SourceTree& tree);

}  // namespace repository
