#pragma once

#include "SourceTree.h"
#include "support/ScratchFolder.h"

#include <string>

namespace repository {

// A small tree of files in a temporary folder, to show that a rule bites; removed at the end.
class MadeUpTree {
 public:
  MadeUpTree& With(const std::string& path, const std::string& text);
  SourceTree Read() const;

 private:
  tests::ScratchFolder mFolder;
};

}  // namespace repository
