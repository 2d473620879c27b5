#include <moxcore/debug/TypeName.h>

#include <cxxabi.h>

#include <cstdlib>
#include <memory>

namespace moxcore::debug {

Utf8String GetTypeName(std::type_info const& type) {
  int status = 0;
  std::unique_ptr<char, void (*)(void*)> const name(
      abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free);
  return status == 0 && name != nullptr ? Utf8String(name.get()) : Utf8String(type.name());
}

}  // namespace moxcore::debug
