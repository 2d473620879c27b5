#include <moxcore/config/ApplicationName.h>

#include <cerrno>
#include <mutex>

namespace moxcore::config {

namespace {

struct NameHolder {
  std::mutex mutex;
  Utf8String name = program_invocation_short_name;
};

NameHolder& TheHolder() {
  static auto* const holder = new NameHolder;
  return *holder;
}

}  // namespace

Utf8String GetApplicationName() {
  auto& holder = TheHolder();
  std::lock_guard const lock(holder.mutex);
  return holder.name;
}

void SetApplicationName(std::string_view name) {
  auto& holder = TheHolder();
  std::lock_guard const lock(holder.mutex);
  holder.name = name;
}

}  // namespace moxcore::config
