#include "MadeUpTree.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace repository {

namespace fs = std::filesystem;

MadeUpTree::MadeUpTree() {
  std::string name = (fs::temp_directory_path() / "mox_tree_XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw std::runtime_error("no temporary folder " + name);
  }
  mRoot = name;
}

MadeUpTree::~MadeUpTree() {
  std::error_code ignored;
  fs::remove_all(mRoot, ignored);
}

MadeUpTree& MadeUpTree::With(const std::string& path, const std::string& text) {
  fs::create_directories((mRoot / path).parent_path());
  std::ofstream(mRoot / path) << text;
  return *this;
}

SourceTree MadeUpTree::Read() const {
  return ReadSourceTree(mRoot);
}

}  // namespace repository
