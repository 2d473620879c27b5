#pragma once

#include <moxcore/string/String.h>

#include <string_view>
#include <vector>

namespace moxcore::filesupport {

// What stands in a directory under a name; links aren't followed.
enum class DirEntryKind { kFile, kDirectory, kOther };
struct DirEntry {
  // The bytes of the file system: UTF-8 by custom, but not surely so.
  Utf8String name;
  DirEntryKind kind = DirEntryKind::kOther;
};

// The path of a directory that may or may not be there. A value; operations fail with a mox_exception that
// names the path and the reason.
class Dir {
 public:
  Dir() = default;
  explicit Dir(Utf8String path);
  // The directory `name` in `parent`; `create` makes it if it isn't there.
  Dir(Dir const& parent, std::string_view name, bool create);
  Dir(Dir const& parent, std::u16string_view name, bool create);

  Utf8String const& FullPath() const noexcept { return mPath; }
  bool Exists() const;
  // Makes the directory, whose parent must be there; nothing if it is there already.
  void Create() const;
  // Deletes the directory, which must be empty; nothing if there is none.
  void Delete() const;
  // Everything in it but itself and its parent, in no set order.
  std::vector<DirEntry> GetEntries() const;

  friend bool operator==(Dir const&, Dir const&) noexcept = default;

 private:
  Utf8String mPath;
};

}  // namespace moxcore::filesupport
