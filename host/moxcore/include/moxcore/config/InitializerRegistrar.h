#pragma once

#include <moxcore/string/String.h>
#include <moxcore/utility/Noncopyable.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <string_view>
#include <vector>

namespace moxcore::config {

// Which programs a start-up step is for; bits may be joined.
using ContextFlags = std::uint32_t;
inline constexpr ContextFlags kCoreContext = 1;
inline constexpr ContextFlags kPlaygroundContext = 2;
inline constexpr ContextFlags kApplicationContext = 4;
inline constexpr ContextFlags kAllContexts = std::numeric_limits<ContextFlags>::max();

// A named start-up step. A static object of it records the step; the program runs the steps of its contexts
// with RunInitializers in its own start, whatever order modules were loaded in, and ends them with
// TerminateInitializers. The object's end withdraws the step without calling anything.
class InitializerRegistrar : utility::noncopyable {
 public:
  // `canRun` tells whether what the step needs is there; empty functions stand for true and for nothing to
  // do. A step that may not be skipped makes the start fail when it can't run.
  InitializerRegistrar(std::string_view name, ContextFlags contextFlags, std::function<bool()> canRun,
                       std::function<void()> init, std::function<void()> terminate, bool canBeSkipped = true);
  virtual ~InitializerRegistrar();

  Utf8String const& GetName() const noexcept { return mName; }
  ContextFlags GetContextFlags() const noexcept { return mContextFlags; }
  virtual bool CanBeSkipped() const { return mCanBeSkipped; }

  bool CanRun() const { return !mCanRun || mCanRun(); }
  void Init() const;
  void Terminate() const;

 private:
  Utf8String mName;
  ContextFlags mContextFlags;
  bool mCanBeSkipped;
  std::function<bool()> mCanRun;
  std::function<void()> mInit;
  std::function<void()> mTerminate;
};

// What is known of a step without running it.
struct InitializerStep {
  Utf8String name;
  ContextFlags contextFlags = 0;
};

// All steps that are recorded now, running or not, in order of their names.
std::vector<InitializerStep> GetInitializerSteps();

// Runs the steps of which one context bit at least is in `contextFlags` and that aren't running already, in
// order of their names; a step that can't run yet is tried again after others have run. Throws what a step
// throws, or an error with the name of a step that can't run and may not be skipped; what was run until then
// stays so. On the main thread.
void RunInitializers(ContextFlags contextFlags);

// Terminates the running steps of these contexts, the last one first. All of them are called, even if one
// throws; the first exception goes to the caller at the end.
void TerminateInitializers(ContextFlags contextFlags = kAllContexts);

}  // namespace moxcore::config
