#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace moxaudiotoolkit {

// A plain file that is read from its start to its end. All operations throw AudioFileError.
class PlainFile {
 public:
  explicit PlainFile(const std::string& path);
  ~PlainFile();
  PlainFile(const PlainFile&) = delete;
  PlainFile& operator=(const PlainFile&) = delete;

  // Bytes, when it was opened.
  std::uint64_t GetSize() const { return mSize; }
  int GetDescriptor() const { return mDescriptor; }
  // Reads the next bytes. Throws kTruncated when there are not as many.
  void Read(std::span<std::uint8_t> destination);

 private:
  std::string mPath;
  int mDescriptor;
  std::uint64_t mSize = 0;
};

}  // namespace moxaudiotoolkit
