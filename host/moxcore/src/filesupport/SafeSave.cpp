#include "PosixFiles.h"

#include <moxcore/filesupport/SafeSave.h>
#include <moxcore/utility/Guid.h>

#include <cstdint>
#include <exception>
#include <utility>

namespace moxcore::filesupport {

namespace {

constexpr std::int64_t kSecondsOfADay = 86'400;

Utf8String TemporaryName(Guid const& guid) {
  return "." + guid.AsUTF8String() + Utf8String(SafeSave::kEnding);
}

bool IsTemporaryName(Utf8String const& name) {
  // Nothing else that a user may keep under such an ending.
  return name.ends_with(SafeSave::kEnding) && name.size() > SafeSave::kEnding.size() &&
         name == TemporaryName(Guid(name.substr(1, name.size() - SafeSave::kEnding.size() - 1)));
}

}  // namespace

void SafeSave::DeleteLeftovers(Dir const& dir) noexcept {
  try {
    for (auto const& entry : dir.GetEntries()) {
      if (entry.kind != DirEntryKind::kFile || !IsTemporaryName(entry.name)) {
        continue;
      }
      auto const path = File(dir, entry.name).FullPath();
      if (posix::SecondsSinceWritten(path) >= kSecondsOfADay) {
        posix::RemoveFile(path);
      }
    }
  } catch (std::exception const&) {
    // They disturb no one.
    return;
  }
}

SafeSave::SafeSave(File target)
    : mTarget(std::move(target)),
      // The target's own name may leave no room for an ending.
      mTemporary(mTarget.GetParent(), TemporaryName(Guid::CreateUnique())) {}

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
