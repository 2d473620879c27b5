#include <moxui/platform/Display.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace moxui::platform {

namespace fs = std::filesystem;

namespace {

bool HasWaylandPlugin(fs::path const& folder) {
  std::error_code error;
  fs::directory_iterator const entries(folder, error);
  return std::any_of(begin(entries), end(entries), [](fs::directory_entry const& entry) {
    return entry.path().filename().string().starts_with("libqwayland");
  });
}

bool HasWaylandDisplay(DisplayEnvironment const& environment) {
  fs::path const name(environment.waylandDisplay);
  if (name.empty() || (name.is_relative() && environment.runtimeDirectory.empty())) {
    return false;
  }
  std::error_code error;
  // A name that begins at the root stays as it is.
  return fs::is_socket(fs::path(environment.runtimeDirectory) / name, error) &&
         std::any_of(environment.pluginFolders.begin(), environment.pluginFolders.end(), HasWaylandPlugin);
}

}  // namespace

bool HasDisplay(DisplayEnvironment const& environment) {
  return !environment.platform.empty() || !environment.xDisplay.empty() || HasWaylandDisplay(environment);
}

}  // namespace moxui::platform
