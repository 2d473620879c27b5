#include "TextRules.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <regex>
#include <set>

namespace repository {

namespace {

constexpr std::size_t kMostLines = 700;

// Lines in which one of `words` stands between `before` and `after`, which are regular expressions. Most
// lines have none of the words, which takes no expression to see.
Complaints LinesWith(const SourceTree& tree, const std::string& before, const std::vector<std::string>& words,
                     const std::string& after) {
  std::string alternatives;
  for (const std::string& word : words) {
    alternatives += (alternatives.empty() ? "" : "|") + word;
  }
  const std::regex pattern(before + "(" + alternatives + ")" + after);
  Complaints complaints;
  for (const SourceFile& file : tree.files) {
    for (std::size_t i = 0; i < file.lines.size(); ++i) {
      const std::string& line = file.lines[i];
      std::smatch match;
      if (std::any_of(words.begin(), words.end(),
                      [&](const auto& word) { return line.find(word) != std::string::npos; }) &&
          std::regex_search(line, match, pattern)) {
        complaints.push_back(Complaint(file, i + 1, match.str()));
      }
    }
  }
  return complaints;
}

}  // namespace

// The words are put together of two halves, so that a rule doesn't find its own text.
Complaints UnfinishedMarks(const SourceTree& tree) {
  using namespace std::string_literals;
  Complaints complaints = LinesWith(
      tree, R"(\b)", {"TO"s + "DO", "FIX"s + "ME", "XX"s + "X", "HA"s + "CK", "T"s + "BD"}, R"(\b)");
  const Complaints switchedOff = LinesWith(tree, R"(\b)", {"DISA"s + "BLED_", "GTEST_"s + "SKIP"}, "");
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
  using namespace std::string_literals;
  return LinesWith(tree, R"((^|[\s"'=(]))", {"/wo"s + "rk/", "/ho"s + "me/", "/ro"s + "ot/", "/Us"s + "ers/"},
                   R"(\w)");
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
