#include <moxui/platform/Display.h>

#include <QCoreApplication>
#include <QtGlobal>

namespace moxui::platform {

DisplayEnvironment DisplayEnvironment::OfProcess() {
  DisplayEnvironment environment{
      .platform = qEnvironmentVariable("QT_QPA_PLATFORM").toStdString(),
      .xDisplay = qEnvironmentVariable("DISPLAY").toStdString(),
      .waylandDisplay = qEnvironmentVariable("WAYLAND_DISPLAY").toStdString(),
      .runtimeDirectory = qEnvironmentVariable("XDG_RUNTIME_DIR").toStdString(),
      .pluginFolders = {},
  };
#if !defined(Q_OS_UNIX) || defined(Q_OS_DARWIN)
  // Elsewhere the desktop is the display, whatever the environment says.
  if (environment.platform.empty()) {
    environment.platform = "desktop";
  }
#endif
  // Qt looks into this one first.
  if (QString const folder = qEnvironmentVariable("QT_QPA_PLATFORM_PLUGIN_PATH"); !folder.isEmpty()) {
    environment.pluginFolders.push_back(folder.toStdString());
  }
  for (QString const& folder : QCoreApplication::libraryPaths()) {
    environment.pluginFolders.push_back(folder.toStdString() + "/platforms");
  }
  return environment;
}

}  // namespace moxui::platform
