#pragma once

#include <moxcore/filesupport/Dir.h>
#include <moxcore/string/String.h>

#include <string_view>

namespace moxcore::filesupport {

// The path of a file that may or may not be there. A value; operations fail with a mox_exception that names
// the path and the reason.
class File {
 public:
  File() = default;
  explicit File(Utf8String path);
  File(Dir const& parent, std::string_view name);

  Utf8String const& FullPath() const noexcept { return mPath; }
  // Its directory, and its name in it.
  Dir GetParent() const;
  Utf8String GetName() const;

  // Whether a regular file is there, or a link to one.
  bool Exists() const;
  // Makes an empty file where there is none, and gives whether it did. A file that is there stays as it is,
  // unless `truncate` empties it.
  bool Create(bool truncate) const;
  // Deletes the file for good: when this returns, a power cut doesn't bring it back. Nothing if there is
  // none.
  void Delete() const;

  friend bool operator==(File const&, File const&) noexcept = default;

 private:
  Utf8String mPath;
};

}  // namespace moxcore::filesupport
