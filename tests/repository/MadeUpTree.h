#pragma once

#include "SourceTree.h"

#include <filesystem>
#include <string>

namespace repository {

// A small tree of files in a temporary folder, to show that a rule bites; removed at the end.
class MadeUpTree {
 public:
  MadeUpTree();
  ~MadeUpTree();
  MadeUpTree(const MadeUpTree&) = delete;
  MadeUpTree& operator=(const MadeUpTree&) = delete;

  MadeUpTree& With(const std::string& path, const std::string& text);
  SourceTree Read() const;

 private:
  std::filesystem::path mRoot;
};

}  // namespace repository
