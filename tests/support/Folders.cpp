#include "support/Folders.h"

namespace tests {

std::string SourceFolder() {
  return MOX_SOURCE_DIR;
}

std::string BuildFolder() {
  return MOX_BUILD_DIR;
}

std::string TestFolder() {
  return MOX_SOURCE_DIR "/tests";
}

std::string GoldenFolder() {
  return TestFolder() + "/goldens";
}

std::string ProgramPath(const std::string& name) {
  return BuildFolder() + "/bin/" + name;
}

}  // namespace tests
