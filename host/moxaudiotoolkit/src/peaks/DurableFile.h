#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace moxaudiotoolkit {

// A file that takes the name of another once all its bytes are on the disk, so that there is at any moment,
// power cuts included, the old file or the new one, whole. Gone at its end unless committed. Two of them
// for the same name, in one or several processes, don't meet; the last to commit stays.
class DurableFile {
 public:
  // Begins a file of a unique name, which starts with a dot and ends in kEnding, beside `path`.
  explicit DurableFile(const std::string& path);
  ~DurableFile();
  DurableFile(const DurableFile&) = delete;
  DurableFile& operator=(const DurableFile&) = delete;

  static constexpr std::string_view kEnding = ".pending";

  // All throw std::system_error.
  // Takes room for that many bytes at once, where the file system can: a full disk is found at the beginning.
  void Reserve(std::int64_t size);
  void Write(std::span<const std::uint8_t> bytes);
  // Replaces the first bytes of what was written.
  void WriteAtStart(std::span<const std::uint8_t> bytes);
  // The new file has the permissions of the one that it replaces.
  void Commit();

 private:
  std::string mPath;
  std::string mFolder;
  std::string mTemporary;
  int mDescriptor = -1;
  bool mCommitted = false;
};

}  // namespace moxaudiotoolkit
