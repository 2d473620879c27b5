#pragma once

#include <moxcore/filesupport/Dir.h>
#include <moxcore/utility/Noncopyable.h>

#include <chrono>

namespace moxcore::filesupport {

// Keeps a directory for its holder among all who ask for its lock, in this process or another; those who
// don't ask aren't hindered. It ends with its holder's process at the latest.
//
// Waits for other holders, but not for longer than `patience`: a process that was stopped mustn't stop this
// one. So whoever asks goes on even if the lock isn't held, be it for that, be it that there is no such
// directory or that its file system knows no locks.
class DirLock : utility::noncopyable {
 public:
  static constexpr std::chrono::milliseconds kPatience{10'000};

  explicit DirLock(Dir const& dir, std::chrono::milliseconds patience = kPatience) noexcept;
  ~DirLock();

  bool IsHeld() const noexcept { return mDescriptor >= 0; }

 private:
  int mDescriptor;
};

}  // namespace moxcore::filesupport
