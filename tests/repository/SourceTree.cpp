#include "SourceTree.h"

#include <algorithm>
#include <array>
#include <fstream>

namespace repository {

namespace fs = std::filesystem;

namespace {

bool IsTextFile(const fs::path& path) {
  static const std::array<std::string, 13> kExtensions = {
      ".h", ".cpp", ".cmake", ".txt", ".md", ".xml", ".json", ".bash", ".yml", ".in", ".supp", ".svg", ""};
  return std::find(kExtensions.begin(), kExtensions.end(), path.extension().string()) != kExtensions.end();
}

// Builds, and what git keeps for itself (a folder, or a file in a second working tree).
bool IsSkipped(const std::string& name) {
  return name == ".git" || name == "build" || name.starts_with("build-");
}

}  // namespace

bool SourceFile::IsHeader() const {
  return path.ends_with(".h");
}

bool SourceFile::IsCode() const {
  return IsHeader() || path.ends_with(".cpp");
}

bool SourceFile::IsPublicHeader() const {
  return IsHeader() && (IsIn("include") || (IsIn("host") && path.find("/include/") != std::string::npos));
}

bool SourceFile::IsIn(const std::string& folder) const {
  return path.starts_with(folder + "/");
}

bool SourceTree::Has(const std::string& path) const {
  const auto found =
      std::lower_bound(files.begin(), files.end(), path,
                       [](const SourceFile& file, const std::string& wanted) { return file.path < wanted; });
  return found != files.end() && found->path == path;
}

SourceTree ReadSourceTree(const fs::path& root) {
  SourceTree tree{root, {}};
  for (auto entry = fs::recursive_directory_iterator(root); entry != fs::recursive_directory_iterator();
       ++entry) {
    if (IsSkipped(entry->path().filename().string())) {
      entry.disable_recursion_pending();
      continue;
    }
    if (!entry->is_regular_file() || !IsTextFile(entry->path())) {
      continue;
    }
    SourceFile file{entry->path().lexically_relative(root).generic_string(), {}};
    std::ifstream stream(entry->path());
    for (std::string line; std::getline(stream, line);) {
      file.lines.push_back(line);
    }
    tree.files.push_back(std::move(file));
  }
  std::sort(tree.files.begin(), tree.files.end(),
            [](const SourceFile& a, const SourceFile& b) { return a.path < b.path; });
  return tree;
}

std::string Complaint(const SourceFile& file, std::size_t line, const std::string& text) {
  return file.path + ":" + std::to_string(line) + ": " + text;
}

}  // namespace repository
