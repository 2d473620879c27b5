#include "IncludeRules.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <regex>
#include <set>

namespace repository {

namespace {

namespace fs = std::filesystem;

// A folder of the order, and the first part of the paths by which its public headers are included.
struct Room {
  std::string folder;
  std::string includePrefix;
};

// From the bottom. A file belongs to the last room whose folder it is in.
const std::array<Room, 11> kRooms = {{{"host/moxaccelerate", "moxaccelerate"},
                                      {"host/moxcore", "moxcore"},
                                      {"host/moxmediatypes", "moxmediatypes"},
                                      {"host/moxaudiotoolkit", "moxaudiotoolkit"},
                                      {"host/moxui", "moxui"},
                                      {"host/moxui/testing", "moxui/testing"},
                                      {"host/moxappsupport", "moxappsupport"},
                                      {"host/moxworkspace", "moxworkspace"},
                                      {"include", "moxmediaui"},
                                      {"src", "moxmediaui"},
                                      {"apps", "playground"}}};

using RoomIndex = std::size_t;

std::optional<RoomIndex> RoomOfFile(const SourceFile& file) {
  std::optional<RoomIndex> found;
  for (RoomIndex i = 0; i < kRooms.size(); ++i) {
    if (file.IsIn(kRooms[i].folder)) {
      found = i;
    }
  }
  return found;
}

// The room whose public headers are included as `path`: the lowest of those with the longest prefix.
std::optional<RoomIndex> RoomOfPublicInclude(const std::string& path) {
  std::optional<RoomIndex> found;
  for (RoomIndex i = 0; i < kRooms.size(); ++i) {
    const std::string& prefix = kRooms[i].includePrefix;
    if (path.starts_with(prefix + "/") && (!found || prefix.size() > kRooms[*found].includePrefix.size())) {
      found = i;
    }
  }
  return found;
}

// Rooms of one library may see its private headers.
bool AreOfOneLibrary(RoomIndex a, RoomIndex b) {
  const auto library = [](RoomIndex room) {
    const std::string& prefix = kRooms[room].includePrefix;
    return prefix.substr(0, prefix.find('/'));
  };
  return library(a) == library(b);
}

struct Include {
  std::string path;
  bool quoted;
  std::size_t line;  // from 1
};

std::vector<Include> IncludesOf(const SourceFile& file) {
  static const std::regex kInclude(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
  std::vector<Include> includes;
  for (std::size_t i = 0; i < file.lines.size(); ++i) {
    std::smatch match;
    if (file.lines[i].find("include") != std::string::npos &&
        std::regex_search(file.lines[i], match, kInclude)) {
      includes.push_back({match[2], match[1] == "\"", i + 1});
    }
  }
  return includes;
}

// The folders in which the compiler looks for headers of the repository, apart from a file's own.
const std::vector<std::string>& IncludeFolders() {
  static const std::vector<std::string> kFolders = [] {
    std::vector<std::string> folders = {"include", "src", "apps/playground"};
    for (const Room& room : kRooms) {
      folders.push_back(room.folder + "/include");
      folders.push_back(room.folder + "/src");
    }
    return folders;
  }();
  return kFolders;
}

// The file of the tree that an include line means, or nothing if it is none of the tree.
std::optional<std::string> Resolve(const SourceTree& tree, const SourceFile& file, const Include& include) {
  const auto in = [&](const fs::path& folder) -> std::optional<std::string> {
    const std::string path = (folder / include.path).lexically_normal().generic_string();
    return tree.Has(path) ? std::optional(path) : std::nullopt;
  };
  if (include.quoted) {
    if (auto path = in(fs::path(file.path).parent_path())) {
      return path;
    }
    // A folder's own sources come before those of others with the same name.
    if (const auto room = RoomOfFile(file)) {
      for (const std::string& folder : {kRooms[*room].folder, kRooms[*room].folder + "/src"}) {
        if (auto path = in(folder)) {
          return path;
        }
      }
    }
  }
  for (const std::string& folder : IncludeFolders()) {
    if (auto path = in(folder)) {
      return path;
    }
  }
  return std::nullopt;
}

bool IsQtHeader(const std::string& path) {
  static const std::regex kQt(R"(^(Q[A-Z]\w*|Qt[A-Z]\w*/.*|q[a-z]+\.h|qt/.*)$)");
  return std::regex_match(path, kQt) && !path.ends_with(".moc");
}

bool IsStandardHeader(const std::string& name) {
  static const std::set<std::string> kHeaders = {"algorithm",
                                                 "any",
                                                 "array",
                                                 "atomic",
                                                 "barrier",
                                                 "bit",
                                                 "bitset",
                                                 "cassert",
                                                 "cctype",
                                                 "cerrno",
                                                 "cfenv",
                                                 "cfloat",
                                                 "charconv",
                                                 "chrono",
                                                 "cinttypes",
                                                 "climits",
                                                 "clocale",
                                                 "cmath",
                                                 "codecvt",
                                                 "compare",
                                                 "complex",
                                                 "concepts",
                                                 "condition_variable",
                                                 "coroutine",
                                                 "csetjmp",
                                                 "csignal",
                                                 "cstdarg",
                                                 "cstddef",
                                                 "cstdint",
                                                 "cstdio",
                                                 "cstdlib",
                                                 "cstring",
                                                 "ctime",
                                                 "cuchar",
                                                 "cwchar",
                                                 "cwctype",
                                                 "deque",
                                                 "exception",
                                                 "execution",
                                                 "filesystem",
                                                 "format",
                                                 "forward_list",
                                                 "fstream",
                                                 "functional",
                                                 "future",
                                                 "initializer_list",
                                                 "iomanip",
                                                 "ios",
                                                 "iosfwd",
                                                 "iostream",
                                                 "istream",
                                                 "iterator",
                                                 "latch",
                                                 "limits",
                                                 "list",
                                                 "locale",
                                                 "map",
                                                 "memory",
                                                 "memory_resource",
                                                 "mutex",
                                                 "new",
                                                 "numbers",
                                                 "numeric",
                                                 "optional",
                                                 "ostream",
                                                 "queue",
                                                 "random",
                                                 "ranges",
                                                 "ratio",
                                                 "regex",
                                                 "scoped_allocator",
                                                 "semaphore",
                                                 "set",
                                                 "shared_mutex",
                                                 "source_location",
                                                 "span",
                                                 "sstream",
                                                 "stack",
                                                 "stdexcept",
                                                 "stop_token",
                                                 "streambuf",
                                                 "string",
                                                 "string_view",
                                                 "strstream",
                                                 "syncstream",
                                                 "system_error",
                                                 "thread",
                                                 "tuple",
                                                 "type_traits",
                                                 "typeindex",
                                                 "typeinfo",
                                                 "unordered_map",
                                                 "unordered_set",
                                                 "utility",
                                                 "valarray",
                                                 "variant",
                                                 "vector",
                                                 "version"};
  return kHeaders.contains(name);
}

std::string WithoutLineComment(const std::string& line) {
  return line.substr(0, line.find("//"));
}

}  // namespace

Complaints UpwardIncludes(const SourceTree& tree) {
  Complaints complaints;
  for (const SourceFile& file : tree.files) {
    const auto room = RoomOfFile(file);
    if (!room || !file.IsCode()) {
      continue;
    }
    for (const Include& include : IncludesOf(file)) {
      const auto target = RoomOfPublicInclude(include.path);
      if (target && *target > *room && kRooms[*target].includePrefix != kRooms[*room].includePrefix) {
        complaints.push_back(Complaint(file, include.line, kRooms[*target].includePrefix + " stands above"));
        continue;
      }
      const auto path = Resolve(tree, file, include);
      if (!path || target) {
        continue;
      }
      const auto owner = RoomOfFile(SourceFile{*path, {}});
      if (!owner) {
        complaints.push_back(Complaint(file, include.line, *path + " stands outside of the order"));
      } else if (!AreOfOneLibrary(*owner, *room)) {
        complaints.push_back(Complaint(file, include.line, *path + " is private to another folder"));
      }
    }
  }
  return complaints;
}

Complaints QtOutsideThePlatformSeam(const SourceTree& tree) {
  Complaints complaints;
  for (const SourceFile& file : tree.files) {
    const bool isWindowFile = file.IsIn("host/moxworkspace/src") &&
                              fs::path(file.path).filename().string().find("Window") != std::string::npos;
    if (!file.IsCode() || file.IsIn("tests") || file.IsIn("benchmarks") || file.IsIn("host/moxui/src/qt") ||
        isWindowFile) {
      continue;
    }
    for (const Include& include : IncludesOf(file)) {
      const bool isOwnHeader = include.quoted && Resolve(tree, file, include).has_value();
      if (!isOwnHeader && IsQtHeader(include.path)) {
        complaints.push_back(Complaint(file, include.line, include.path + " is a Qt header"));
      }
    }
  }
  return complaints;
}

Complaints ThirdPartyInPublicHeaders(const SourceTree& tree) {
  static const std::regex kForeignName(
      R"(\b(fmt|tbb|oneapi|boost|nlohmann|rapidjson|simdjson|hwy)::|\b(class|struct|enum)\s+Q[A-Z]\w*|\b(SNDFILE|SF_INFO|XML_Parser|cairo_t)\b)");
  Complaints complaints;
  for (const SourceFile& file : tree.files) {
    if (!file.IsPublicHeader()) {
      continue;
    }
    for (const Include& include : IncludesOf(file)) {
      const auto path = Resolve(tree, file, include);
      const bool isPublic = path && SourceFile{*path, {}}.IsPublicHeader();
      if (!isPublic && !(IsStandardHeader(include.path) && !include.quoted)) {
        complaints.push_back(Complaint(file, include.line, include.path + " is no header that clients have"));
      }
    }
    for (std::size_t i = 0; i < file.lines.size(); ++i) {
      const std::string line = WithoutLineComment(file.lines[i]);
      std::smatch match;
      if (std::regex_search(line, match, kForeignName)) {
        complaints.push_back(Complaint(file, i + 1, match.str() + " belongs to a packaged library"));
      }
    }
  }
  return complaints;
}

Complaints CyclicIncludes(const SourceTree& tree) {
  std::map<std::string, std::vector<std::string>> edges;
  for (const SourceFile& file : tree.files) {
    if (!file.IsHeader()) {
      continue;
    }
    for (const Include& include : IncludesOf(file)) {
      if (const auto path = Resolve(tree, file, include)) {
        edges[file.path].push_back(*path);
      }
    }
  }
  Complaints complaints;
  enum class Mark { kOpen, kDone };
  std::map<std::string, Mark> marks;
  const std::function<void(const std::string&)> visit = [&](const std::string& path) {
    marks[path] = Mark::kOpen;
    for (const std::string& next : edges[path]) {
      const auto mark = marks.find(next);
      if (mark == marks.end()) {
        visit(next);
      } else if (mark->second == Mark::kOpen) {
        complaints.push_back(path + ":0: includes " + next + ", which includes it");
      }
    }
    marks[path] = Mark::kDone;
  };
  for (const SourceFile& file : tree.files) {
    if (edges.contains(file.path) && !marks.contains(file.path)) {
      visit(file.path);
    }
  }
  return complaints;
}

}  // namespace repository
