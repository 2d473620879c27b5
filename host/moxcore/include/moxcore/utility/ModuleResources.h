#pragma once

#include <moxcore/string/String.h>
#include <moxcore/utility/ModuleHandle.h>
#include <moxcore/utility/Noncopyable.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace moxcore::utility {

// Resources are byte sequences that are compiled into a module (mox_resources in CMake) and found by type and
// name, both without regard to the case of ASCII letters. Everything here may be called on any thread.

// Type and name have types of their own, so that they can't be swapped.
struct ResourceType {
  explicit constexpr ResourceType(std::string_view text) noexcept : value(text) {}
  std::string_view value;
};
struct ResourceName {
  explicit constexpr ResourceName(std::string_view text) noexcept : value(text) {}
  std::string_view value;
};

using ResourceBytes = std::vector<std::uint8_t>;

// Fills `bytes` with a resource. False if the module has none of that type and name, or the handle is null;
// `bytes` is untouched then.
bool GetBinaryFromModule(ModuleHandle module, ResourceType type, ResourceName name, ResourceBytes& bytes);

// The resource in place, valid as long as the module is loaded.
std::optional<std::span<std::uint8_t const>> FindBinaryInModule(ModuleHandle module, ResourceType type,
                                                                ResourceName name);

// The names of a module's resources of a type, in ascending order, as their files are written.
std::vector<Utf8String> GetResourceDataNames(ModuleHandle module, ResourceType type);

struct CompiledResource {
  char const* type;
  char const* name;
  std::uint8_t const* data;
  std::size_t size;
};

// A static object of it records compiled-in resources for the module that holds `resources`; its end, when
// the module is unloaded, withdraws them.
class ResourceRegistrar : noncopyable {
 public:
  explicit ResourceRegistrar(std::span<CompiledResource const> resources);
  ~ResourceRegistrar();

 private:
  std::span<CompiledResource const> mResources;
};

}  // namespace moxcore::utility
