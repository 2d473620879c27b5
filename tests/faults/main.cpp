// Kills and fails saves at every system call that they make, and looks at what is on disk then: nothing may
// be torn, lost or falsely acknowledged. Arguments: --quick takes a few scenarios only.
#include "Scenarios.h"
#include "TracedCall.h"

#include <sys/syscall.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iterator>
#include <span>
#include <stdexcept>
#include <utility>

namespace {

using faults::CallTraced;
using faults::Fault;
using faults::Scenario;
using faults::TracedResult;
using faults::Verdict;

struct Tally {
  int points = 0;
  int torn = 0;
  int lost = 0;
  int falselyAcknowledged = 0;
  int leftBehind = 0;
  int crashes = 0;

  int Findings() const { return torn + lost + falselyAcknowledged + leftBehind + crashes; }
};

using NamedFault = std::pair<Fault, const char*>;
// The first ones are those of a quick run.
constexpr NamedFault kFaults[] = {
    {Fault::kKillAfter, "killed after"},
    {Fault::kIoError, "EIO in"},
    {Fault::kKillBefore, "killed before"},
    {Fault::kMediumFull, "ENOSPC in"},
    {Fault::kInterrupted, "EINTR in"},
    {Fault::kOutOfMemory, "ENOMEM in"},
    {Fault::kHalf, "half of"},
};
constexpr std::size_t kQuickFaults = 2;

TracedResult RunOnce(const Scenario& scenario, std::size_t index, Fault fault, Verdict& verdict) {
  const tests::ScratchFolder folder;
  scenario.prepare(folder);
  const TracedResult result = CallTraced([&] { return scenario.change(folder); }, index, fault);
  const bool failed = !result.acknowledged && !result.wasKilled && !result.crashed;
  verdict = scenario.judge(folder, result.acknowledged, failed);
  return result;
}

// A save that is acknowledged has synced the file, renamed it and synced the directory, in this order.
void RequireDurability(const Scenario& scenario, const std::vector<long>& calls) {
  const auto isSync = [](long call) { return call == SYS_fsync; };
  const auto rename = std::ranges::find(calls, SYS_rename);
  if (rename != calls.end() && (std::find_if(calls.begin(), rename, isSync) == rename ||
                                std::find_if(rename, calls.end(), isSync) == calls.end())) {
    throw std::runtime_error(scenario.name + ": not written through to the medium");
  }
}

void Tell(const Scenario& scenario, const char* fault, std::size_t index, long call, const Verdict& verdict,
          bool crashed) {
  std::printf("%s: %s system call %zu (number %ld):%s%s%s%s%s %s\n", scenario.name.c_str(), fault, index,
              call, verdict.isTorn ? " torn" : "", verdict.isLost ? " lost" : "",
              verdict.isFalse ? " falsely acknowledged" : "", verdict.isLeft ? " left behind" : "",
              crashed ? " crashed" : "", verdict.detail.c_str());
}

void RunScenario(const Scenario& scenario, std::span<const NamedFault> faultsToTry, Tally& tally,
                 bool tells) {
  Verdict verdict;
  const TracedResult whole = RunOnce(scenario, 0, Fault::kNone, verdict);
  if (!whole.acknowledged || verdict.isTorn || verdict.isFalse) {
    throw std::runtime_error(scenario.name + " fails without a fault: " + verdict.detail);
  }
  if (tells) {
    RequireDurability(scenario, whole.calls);
  }
  for (std::size_t i = 0; i + 1 < whole.calls.size(); ++i) {
    for (const auto& [fault, name] : faultsToTry) {
      if (fault == Fault::kHalf && whole.calls[i] != SYS_write) {
        continue;
      }
      const TracedResult result = RunOnce(scenario, i, fault, verdict);
      ++tally.points;
      tally.torn += verdict.isTorn;
      tally.lost += verdict.isLost;
      tally.falselyAcknowledged += verdict.isFalse;
      tally.leftBehind += verdict.isLeft;
      tally.crashes += result.crashed;
      if (tells &&
          (verdict.isTorn || verdict.isLost || verdict.isFalse || verdict.isLeft || result.crashed)) {
        Tell(scenario, name, i, whole.calls[i], verdict, result.crashed);
      }
    }
  }
}

int Run(bool quick) {
  auto scenarios = faults::SafeSaveScenarios();
  auto presets = faults::PresetScenarios();
  if (quick) {
    // The first start makes the most calls of all.
    scenarios.resize(2);
    presets = {presets[1], presets[2]};
  }
  std::ranges::move(presets, std::back_inserter(scenarios));
  Tally plain;
  RunScenario(faults::PlainSaveScenario(), kFaults, plain, false);
  if (plain.torn == 0) {
    throw std::runtime_error("a plain save was found whole: the faults show nothing");
  }
  Tally tally;
  for (const auto& scenario : scenarios) {
    RunScenario(scenario, std::span(kFaults).first(quick ? kQuickFaults : std::size(kFaults)), tally, true);
  }
  std::printf("%d points: %d torn, %d lost, %d falsely acknowledged, %d left behind, %d crashed\n",
              tally.points, tally.torn, tally.lost, tally.falselyAcknowledged, tally.leftBehind,
              tally.crashes);
  std::printf("a plain save, to compare: %d points, %d torn\n", plain.points, plain.torn);
  return tally.Findings() == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc > 1 && std::strcmp(argv[1], "--quick") == 0);
  } catch (const std::exception& exception) {
    std::fprintf(stderr, "%s\n", exception.what());
    return 2;
  }
}
