#include "CompileRules.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <vector>

namespace repository {

namespace {

constexpr std::array<const char*, 8> kLoosening = {"-ffast-math",
                                                   "-Ofast",
                                                   "-funsafe-math-optimizations",
                                                   "-fassociative-math",
                                                   "-freciprocal-math",
                                                   "-ffinite-math-only",
                                                   "-fno-signed-zeros",
                                                   "-fcx-limited-range"};

// The value of a line `"NAME": "VALUE"`, with or without a comma; empty if the line isn't of that name.
std::string ValueOf(const std::string& line, const std::string& name) {
  const std::string head = "\"" + name + "\": \"";
  const std::size_t begin = line.find(head);
  const std::size_t end = line.rfind('"');
  return begin == std::string::npos ? std::string()
                                    : line.substr(begin + head.size(), end - begin - head.size());
}

std::vector<std::string> Words(const std::string& command) {
  std::istringstream stream(command);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) {
    words.push_back(word);
  }
  return words;
}

// The last option about contraction counts.
bool IsContractionOff(const std::vector<std::string>& words) {
  const auto last = std::find_if(words.rbegin(), words.rend(),
                                 [](const std::string& word) { return word.starts_with("-ffp-contract="); });
  return last != words.rend() && *last == "-ffp-contract=off";
}

}  // namespace

Complaints InexactArithmetic(const std::string& commands, const std::filesystem::path& folder) {
  Complaints complaints;
  std::istringstream stream(commands);
  bool any = false;
  std::vector<std::string> words;
  for (std::string line; std::getline(stream, line);) {
    if (const std::string command = ValueOf(line, "command"); !command.empty()) {
      words = Words(command);
    }
    const std::string file = ValueOf(line, "file");
    if (!file.starts_with(folder.string() + "/")) {
      continue;
    }
    any = true;
    if (!IsContractionOff(words)) {
      complaints.push_back(file + ": lacks -ffp-contract=off");
    }
    for (const char* option : kLoosening) {
      if (std::find(words.begin(), words.end(), option) != words.end()) {
        complaints.push_back(file + ": " + option);
      }
    }
  }
  if (!any) {
    complaints.push_back(folder.string() + ": nothing is compiled");
  }
  return complaints;
}

}  // namespace repository
