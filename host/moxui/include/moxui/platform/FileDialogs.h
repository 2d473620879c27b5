#pragma once

#include <moxcore/string/String.h>

#include <vector>

namespace moxui::platform {

class Window;

/// One line of the list of file kinds: a name ("Sound files") and patterns ("*.wav").
struct FileKind {
  moxcore::Utf16String name{};
  std::vector<moxcore::Utf8String> patterns{};
};

struct FileRequest {
  moxcore::Utf16String title{};
  moxcore::Utf8String startPath{};  ///< directory, or proposed file; empty: where one was last
  std::vector<FileKind> kinds{};
  bool allowsSeveral = false;
  moxcore::Utf8String defaultSuffix{};  ///< "wav": of a file to save whose name has none
  Window* parent = nullptr;
};

/// Asks the user for files. Paths are absolute, UTF-8; empty answers mean that the user gave up.
class FileDialogs {
 public:
  virtual ~FileDialogs();
  virtual std::vector<moxcore::Utf8String> AskForFilesToOpen(FileRequest const& request) = 0;
  virtual moxcore::Utf8String AskForFileToSave(FileRequest const& request) = 0;
  virtual moxcore::Utf8String AskForDirectory(FileRequest const& request) = 0;
};

}  // namespace moxui::platform
