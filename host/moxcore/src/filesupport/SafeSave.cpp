#include "PosixFiles.h"

#include <moxcore/filesupport/SafeSave.h>
#include <moxcore/utility/Guid.h>

#include <exception>
#include <utility>

namespace moxcore::filesupport {

SafeSave::SafeSave(File target)
    : mTarget(std::move(target)),
      // The target's own name may leave no room for an ending.
      mTemporary(mTarget.GetParent(), "." + Guid::CreateUnique().AsUTF8String() + Utf8String(kEnding)) {}

SafeSave::~SafeSave() {
  if (mCommitted) {
    return;
  }
  try {
    posix::RemoveFile(mTemporary.FullPath());
  } catch (std::exception const&) {
    // It lies about under a name that no one takes for content.
    return;
  }
}

void SafeSave::Commit() {
  posix::Replace(mTarget.FullPath(), mTemporary.FullPath());
  mCommitted = true;
  posix::SyncDirectory(mTarget.GetParent().FullPath());
}

}  // namespace moxcore::filesupport
