#pragma once

#include <string>
#include <vector>

namespace moxui::platform {

/// What tells whether windows can be opened. All is empty where the environment says nothing.
struct DisplayEnvironment {
  std::string platform;        ///< the one that is asked for by its name: QT_QPA_PLATFORM
  std::string xDisplay;        ///< DISPLAY
  std::string waylandDisplay;  ///< WAYLAND_DISPLAY: a socket, by its path or its name below runtimeDirectory
  std::string runtimeDirectory;            ///< XDG_RUNTIME_DIR
  std::vector<std::string> pluginFolders;  ///< those with plugins that speak to displays

  /// That of the program. May be called before there is an application.
  static DisplayEnvironment OfProcess();
};

/// Whether there is a display to open windows on. An application that is created without one ends the
/// program. A platform or an X display that is named is taken at its word; one of Wayland counts where its
/// socket is there and a plugin that speaks to it.
bool HasDisplay(DisplayEnvironment const& environment);

}  // namespace moxui::platform
