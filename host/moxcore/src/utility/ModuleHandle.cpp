#include <moxcore/utility/ModuleHandle.h>

#include <dlfcn.h>

namespace moxcore::utility {

ModuleHandle ModuleHandle::FromAddress(void const* address) noexcept {
  Dl_info info{};
  return ::dladdr(address, &info) != 0 ? ModuleHandle(info.dli_fbase) : ModuleHandle();
}

}  // namespace moxcore::utility
