#include "RuntimeDirectory.h"

#include <QtGlobal>

#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)

#include <sys/stat.h>
#include <unistd.h>

#include <QDir>

namespace moxui::qt {

namespace {

constexpr char const* kVariable = "XDG_RUNTIME_DIR";

// Whether it is a directory, no link to one, that nobody else can read.
bool IsPrivateDirectory(QByteArray const& path) {
  struct stat found = {};
  return lstat(path.constData(), &found) == 0 && S_ISDIR(found.st_mode) && found.st_uid == geteuid() &&
         (found.st_mode & 0777) == 0700;
}

}  // namespace

void ProvideRuntimeDirectory() {
  if (!qEnvironmentVariableIsEmpty(kVariable)) {
    return;
  }
  QByteArray path = QDir::tempPath().toLocal8Bit() + "/moxui-runtime-" + QByteArray::number(geteuid());
  mkdir(path.constData(), 0700);
  if (!IsPrivateDirectory(path)) {
    // Somebody else has taken the name.
    path += "-XXXXXX";
    if (mkdtemp(path.data()) == nullptr) {
      return;
    }
  }
  qputenv(kVariable, path);
}

}  // namespace moxui::qt

#else

namespace moxui::qt {

void ProvideRuntimeDirectory() {}

}  // namespace moxui::qt

#endif
