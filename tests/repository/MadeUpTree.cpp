#include "MadeUpTree.h"

#include <filesystem>

namespace repository {

MadeUpTree& MadeUpTree::With(const std::string& path, const std::string& text) {
  std::filesystem::create_directories((mFolder.Path() / path).parent_path());
  mFolder.Write(path, text);
  return *this;
}

SourceTree MadeUpTree::Read() const {
  return ReadSourceTree(mFolder.Path());
}

}  // namespace repository
