#include "TextRules.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <regex>
#include <set>

namespace repository {

namespace {

constexpr std::size_t kMostLines = 700;

// `pattern` is given in two halves, so that a rule doesn't find its own text.
Complaints LinesWith(const SourceTree& tree, const std::string& firstHalf, const std::string& secondHalf) {
  const std::regex pattern(firstHalf + secondHalf);
  Complaints complaints;
  for (const SourceFile& file : tree.files) {
    for (std::size_t i = 0; i < file.lines.size(); ++i) {
      std::smatch match;
      if (std::regex_search(file.lines[i], match, pattern)) {
        complaints.push_back(Complaint(file, i + 1, match.str()));
      }
    }
  }
  return complaints;
}

}  // namespace

Complaints UnfinishedMarks(const SourceTree& tree) {
  Complaints complaints = LinesWith(tree, R"(\b(TO)",
                                    R"(DO|FIXM)"
                                    R"(E|XX)"
                                    R"(X|HAC)"
                                    R"(K|TB)"
                                    R"(D)\b)");
  const Complaints switchedOff = LinesWith(tree, R"(\b(DISAB)",
                                           R"(LED_\w|GTEST_SK)"
                                           R"(IP))");
  complaints.insert(complaints.end(), switchedOff.begin(), switchedOff.end());
  return complaints;
}

Complaints OverlongFiles(const SourceTree& tree) {
  Complaints complaints;
  for (const SourceFile& file : tree.files) {
    if (file.IsCode() && file.lines.size() > kMostLines) {
      complaints.push_back(Complaint(file, 0, std::to_string(file.lines.size()) + " lines"));
    }
  }
  return complaints;
}

Complaints NamelessFiles(const SourceTree& tree) {
  static const std::set<std::string> kNames = {"util", "utils", "helper", "helpers", "misc", "common"};
  Complaints complaints;
  for (const SourceFile& file : tree.files) {
    std::string stem = std::filesystem::path(file.path).stem().string();
    std::transform(stem.begin(), stem.end(), stem.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (kNames.contains(stem)) {
      complaints.push_back(Complaint(file, 0, "the name says nothing"));
    }
  }
  return complaints;
}

Complaints MachinePaths(const SourceTree& tree) {
  return LinesWith(tree, R"((^|[\s"'=(])/(wor)",
                   R"(k|hom)"
                   R"(e|roo)"
                   R"(t|User)"
                   R"(s)/\w)");
}

Complaints HeaderForm(const SourceTree& tree) {
  static const std::regex kUsingNamespace(R"(^\s*using\s+namespace\b)");
  Complaints complaints;
  for (const SourceFile& file : tree.files) {
    if (!file.IsHeader()) {
      continue;
    }
    if (std::find(file.lines.begin(), file.lines.end(), "#pragma once") == file.lines.end()) {
      complaints.push_back(Complaint(file, 0, "lacks #pragma once"));
    }
    for (std::size_t i = 0; i < file.lines.size(); ++i) {
      if (std::regex_search(file.lines[i], kUsingNamespace)) {
        complaints.push_back(Complaint(file, i + 1, file.lines[i]));
      }
    }
  }
  return complaints;
}

}  // namespace repository
