#include "TracedCall.h"

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <optional>
#include <stdexcept>

namespace faults {

namespace {

constexpr int kTrue = 40;
constexpr int kFalse = 41;

[[noreturn]] void RunChild(const std::function<bool()>& function) {
  ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
  raise(SIGSTOP);
  // What the function throws ends the process, which counts as a crash.
  const bool result = function();
  _exit(result ? kTrue : kFalse);
}

std::optional<long> ErrorOf(Fault fault) {
  switch (fault) {
    case Fault::kIoError:
      return -EIO;
    case Fault::kMediumFull:
      return -ENOSPC;
    case Fault::kInterrupted:
      return -EINTR;
    case Fault::kOutOfMemory:
      return -ENOMEM;
    default:
      return std::nullopt;
  }
}

user_regs_struct Registers(pid_t child) {
  user_regs_struct registers{};
  ptrace(PTRACE_GETREGS, child, nullptr, &registers);
  return registers;
}

class Tracer {
 public:
  Tracer(pid_t child, std::size_t index, Fault fault) : mChild(child), mIndex(index), mFault(fault) {}

  TracedResult Run() {
    int status = Wait();
    if (!WIFSTOPPED(status)) {
      throw std::runtime_error("the process can't be traced");
    }
    ptrace(PTRACE_SETOPTIONS, mChild, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    for (int signal = 0;;) {
      ptrace(PTRACE_SYSCALL, mChild, nullptr, signal);
      signal = 0;
      status = Wait();
      if (!WIFSTOPPED(status)) {
        return Ended(status);
      }
      if (WSTOPSIG(status) != (SIGTRAP | 0x80)) {
        signal = WSTOPSIG(status);
      } else if (mInside) {
        mInside = false;
        Left();
      } else {
        mInside = true;
        Entered();
      }
    }
  }

 private:
  int Wait() const {
    int status = 0;
    while (waitpid(mChild, &status, 0) < 0) {
      if (errno != EINTR) {
        throw std::runtime_error("the traced process is lost");
      }
    }
    return status;
  }

  bool IsAtFault() const { return mResult.calls.size() == mIndex + 1 && mFault != Fault::kNone; }

  void Entered() {
    auto registers = Registers(mChild);
    mResult.calls.push_back(static_cast<long>(registers.orig_rax));
    if (!IsAtFault() || registers.orig_rax == SYS_exit_group) {
      return;
    }
    if (mFault == Fault::kKillBefore) {
      Kill();
    } else if (ErrorOf(mFault).has_value()) {
      registers.orig_rax = ~0ull;
      ptrace(PTRACE_SETREGS, mChild, nullptr, &registers);
      mFails = true;
    } else if (mFault == Fault::kHalf && registers.orig_rax == SYS_write) {
      registers.rdx = (registers.rdx + 1) / 2;
      ptrace(PTRACE_SETREGS, mChild, nullptr, &registers);
    }
  }

  void Left() {
    if (mFails) {
      mFails = false;
      auto registers = Registers(mChild);
      registers.rax = static_cast<unsigned long long>(*ErrorOf(mFault));
      ptrace(PTRACE_SETREGS, mChild, nullptr, &registers);
    } else if (IsAtFault() && mFault == Fault::kKillAfter) {
      Kill();
    }
  }

  void Kill() {
    mResult.wasKilled = true;
    kill(mChild, SIGKILL);
  }

  TracedResult Ended(int status) {
    const bool returned =
        WIFEXITED(status) && (WEXITSTATUS(status) == kTrue || WEXITSTATUS(status) == kFalse);
    mResult.acknowledged = returned && WEXITSTATUS(status) == kTrue;
    mResult.crashed = !returned && !mResult.wasKilled;
    return mResult;
  }

  pid_t mChild;
  std::size_t mIndex;
  Fault mFault;
  bool mInside = false;
  bool mFails = false;
  TracedResult mResult;
};

}  // namespace

TracedResult CallTraced(const std::function<bool()>& function, std::size_t index, Fault fault) {
  const pid_t child = fork();
  if (child < 0) {
    throw std::runtime_error("no process could be made");
  }
  if (child == 0) {
    RunChild(function);
  }
  return Tracer(child, index, fault).Run();
}

}  // namespace faults
