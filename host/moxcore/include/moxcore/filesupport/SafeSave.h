#pragma once

#include <moxcore/filesupport/File.h>
#include <moxcore/utility/Noncopyable.h>

#include <string_view>

namespace moxcore::filesupport {

// Replaces a file as a whole or not at all: the caller writes the new content to a temporary file, which
// takes the place of the target on Commit. Whenever the program or the machine stops, the target is the old
// one or the new one.
//
//   SafeSave save(file);
//   FileUtils::SimpleWriteStringToFile(save.GetTempFile().FullPath(), text);
//   save.Commit();
class SafeSave : utility::noncopyable {
 public:
  // Names of temporary files end so.
  static constexpr std::string_view kEnding = ".mox-tmp";

  // Deletes the temporary files that programs which were stopped left in a directory: those that no one has
  // written to for a day, since younger ones may be those of a save under way. What can't be deleted stays.
  static void DeleteLeftovers(Dir const& dir) noexcept;

  // `target` needn't be there. A link there will be replaced, not followed.
  explicit SafeSave(File target);
  // Without a Commit the target stays as it was; the temporary file is deleted.
  ~SafeSave();

  // A file in the directory of the target, under a name that no other SafeSave has. It isn't made yet.
  File const& GetTempFile() const noexcept { return mTemporary; }
  // Writes the temporary file through to the medium and puts it in the target's place, with the target's
  // permissions. Once it returns, not even a power cut loses the content; if it throws (mox_exception), the
  // target is whole, but may be the new one already.
  void Commit();

 private:
  File mTarget;
  File mTemporary;
  bool mCommitted = false;
};

}  // namespace moxcore::filesupport
