#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace repository {

// A text file of the repository; its path is relative to the root, with slashes.
struct SourceFile {
  std::string path;
  std::vector<std::string> lines;

  bool IsHeader() const;
  bool IsCode() const;          // a C++ header or source
  bool IsPublicHeader() const;  // what a client of the installed tree sees
  bool IsIn(const std::string& folder) const;
};

struct SourceTree {
  std::filesystem::path root;
  std::vector<SourceFile> files;  // ordered by path

  bool Has(const std::string& path) const;
};

// Reads every text file below `root` but those of builds and hidden folders.
SourceTree ReadSourceTree(const std::filesystem::path& root);

// What a rule has to say about a line, as "path:line: text"; line 0 stands for the whole file.
std::string Complaint(const SourceFile& file, std::size_t line, const std::string& text);

}  // namespace repository
