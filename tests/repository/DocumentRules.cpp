#include "DocumentRules.h"

#include <filesystem>
#include <regex>

namespace repository {

namespace {

namespace fs = std::filesystem;

// Within the repository a target is relative to its document; one with a slash in front, to the root.
bool Exists(const SourceTree& tree, const SourceFile& document, const std::string& target) {
  const std::string path = target.substr(0, target.find('#'));
  if (path.empty()) {
    return true;  // a heading of the document itself
  }
  const fs::path base = path.starts_with("/") ? tree.root : tree.root / fs::path(document.path).parent_path();
  return fs::exists(base / fs::path(path).relative_path());
}

}  // namespace

Complaints BrokenLinks(const SourceTree& tree) {
  static const std::regex kTarget(R"re(\]\(<?([^)>\s]+)|^\s*\[[^\]]+\]:\s+(\S+)|\b(?:src|href)="([^"]+)")re");
  static const std::regex kElsewhere(R"(^[a-z]+:)");
  Complaints complaints;
  for (const SourceFile& file : tree.files) {
    if (!file.path.ends_with(".md")) {
      continue;
    }
    bool isCode = false;
    for (std::size_t i = 0; i < file.lines.size(); ++i) {
      const std::string& line = file.lines[i];
      isCode = isCode != line.starts_with("```");
      if (isCode) {
        continue;
      }
      for (auto match = std::sregex_iterator(line.begin(), line.end(), kTarget);
           match != std::sregex_iterator(); ++match) {
        const std::string target = (*match)[1].str() + (*match)[2].str() + (*match)[3].str();
        if (!std::regex_search(target, kElsewhere) && !Exists(tree, file, target)) {
          complaints.push_back(Complaint(file, i + 1, target));
        }
      }
    }
  }
  return complaints;
}

}  // namespace repository
