#pragma once

#include "support/ScratchFolder.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace faults {

// How a folder stands after a change that met a fault.
struct Verdict {
  bool isTorn = false;   // something is neither as before nor as it should have become
  bool isLost = false;   // something that was there before, and wasn't to be changed, is gone
  bool isFalse = false;  // the change was acknowledged, but not made
  bool isLeft = false;   // the change failed, and left more than was there
  std::string detail;
};

// A change of files that has to be made as a whole or not at all.
struct Scenario {
  std::string name;
  // Makes the folder as it is before the change.
  std::function<void(const tests::ScratchFolder&)> prepare;
  // Makes the change and gives whether it says that it did. Called in a copy of the process.
  std::function<bool(const tests::ScratchFolder&)> change;
  // Judges the folder; `failed`: the change said that it failed.
  std::function<Verdict(const tests::ScratchFolder&, bool acknowledged, bool failed)> judge;
};

// Saves of 1 byte to 1 MiB by SafeSave, over a file and where there is none.
std::vector<Scenario> SafeSaveScenarios();
// A save that isn't safe: the faults have to show that.
Scenario PlainSaveScenario();
// Restoring, saving, overwriting and removing of presets by the store.
std::vector<Scenario> PresetScenarios();

}  // namespace faults
