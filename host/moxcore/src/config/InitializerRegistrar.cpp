#include <moxcore/config/Errors.h>
#include <moxcore/config/InitializerRegistrar.h>

#include <algorithm>
#include <exception>
#include <mutex>
#include <utility>
#include <vector>

namespace moxcore::config {

namespace {

struct Steps {
  std::mutex mutex;
  std::vector<InitializerRegistrar*> recorded;
  // In the order in which they were run.
  std::vector<InitializerRegistrar*> running;
};

// Made at the first use, which may come from any unit's static initialisation, and never destroyed, since
// steps withdraw while statics end.
Steps& TheSteps() {
  static auto* const steps = new Steps;
  return *steps;
}

bool Concerns(InitializerRegistrar const* step, ContextFlags flags) {
  return (step->GetContextFlags() & flags) != 0;
}

std::vector<InitializerRegistrar*> WaitingSteps(ContextFlags flags) {
  auto& steps = TheSteps();
  std::vector<InitializerRegistrar*> waiting;
  std::lock_guard const lock(steps.mutex);
  std::ranges::copy_if(steps.recorded, std::back_inserter(waiting), [&](InitializerRegistrar* step) {
    return Concerns(step, flags) && std::ranges::find(steps.running, step) == steps.running.end();
  });
  std::ranges::stable_sort(waiting, {}, &InitializerRegistrar::GetName);
  return waiting;
}

void Run(InitializerRegistrar* step) {
  step->Init();
  auto& steps = TheSteps();
  std::lock_guard const lock(steps.mutex);
  steps.running.push_back(step);
}

InitializerRegistrar* TakeLastRunning(ContextFlags flags) {
  auto& steps = TheSteps();
  std::lock_guard const lock(steps.mutex);
  auto const last = std::find_if(steps.running.rbegin(), steps.running.rend(),
                                 [&](InitializerRegistrar* step) { return Concerns(step, flags); });
  if (last == steps.running.rend()) {
    return nullptr;
  }
  auto* const step = *last;
  steps.running.erase(std::next(last).base());
  return step;
}

}  // namespace

InitializerRegistrar::InitializerRegistrar(std::string_view name, ContextFlags contextFlags,
                                           std::function<bool()> canRun, std::function<void()> init,
                                           std::function<void()> terminate, bool canBeSkipped)
    : mName(name),
      mContextFlags(contextFlags),
      mCanBeSkipped(canBeSkipped),
      mCanRun(std::move(canRun)),
      mInit(std::move(init)),
      mTerminate(std::move(terminate)) {
  auto& steps = TheSteps();
  std::lock_guard const lock(steps.mutex);
  steps.recorded.push_back(this);
}

InitializerRegistrar::~InitializerRegistrar() {
  auto& steps = TheSteps();
  std::lock_guard const lock(steps.mutex);
  std::erase(steps.recorded, this);
  std::erase(steps.running, this);
}

void InitializerRegistrar::Init() const {
  if (mInit) {
    mInit();
  }
}

void InitializerRegistrar::Terminate() const {
  if (mTerminate) {
    mTerminate();
  }
}

std::vector<InitializerStep> GetInitializerSteps() {
  auto& steps = TheSteps();
  std::vector<InitializerStep> found;
  {
    std::lock_guard const lock(steps.mutex);
    for (auto const* const step : steps.recorded) {
      found.push_back({step->GetName(), step->GetContextFlags()});
    }
  }
  std::ranges::stable_sort(found, {}, &InitializerStep::name);
  return found;
}

void RunInitializers(ContextFlags contextFlags) {
  auto waiting = WaitingSteps(contextFlags);
  for (bool hasProgress = true; hasProgress;) {
    hasProgress = std::erase_if(waiting, [](InitializerRegistrar* step) {
                    if (!step->CanRun()) {
                      return false;
                    }
                    Run(step);
                    return true;
                  }) > 0;
  }
  for (auto const* const step : waiting) {
    if (!step->CanBeSkipped()) {
      ThrowError(ErrorLevel::kFatal, __FILE__, __LINE__,
                 "$$$/moxcore/config/Error/StepCantRun=The start-up step @0 can't run.", true,
                 step->GetName());
    }
  }
}

void TerminateInitializers(ContextFlags contextFlags) {
  std::exception_ptr first;
  while (auto* const step = TakeLastRunning(contextFlags)) {
    try {
      step->Terminate();
    } catch (...) {
      if (first == nullptr) {
        first = std::current_exception();
      }
    }
  }
  if (first != nullptr) {
    std::rethrow_exception(first);
  }
}

}  // namespace moxcore::config
