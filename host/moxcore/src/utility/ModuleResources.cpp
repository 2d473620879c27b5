#include <moxcore/utility/ModuleResources.h>
#include <moxcore/utility/ResourceOverride.h>

#include <map>
#include <mutex>
#include <shared_mutex>
#include <tuple>
#include <utility>

namespace moxcore::utility {

namespace {

Utf8String Folded(std::string_view text) {
  Utf8String result(text);
  for (auto& unit : result) {
    if (unit >= 'a' && unit <= 'z') {
      unit = static_cast<char>(unit - 'a' + 'A');
    }
  }
  return result;
}

struct Key {
  ModuleHandle module;
  Utf8String type;
  Utf8String name;
  friend bool operator<(Key const& a, Key const& b) {
    return std::tie(a.module, a.type, a.name) < std::tie(b.module, b.type, b.name);
  }
};

struct Registry {
  std::shared_mutex mutex;
  std::map<Key, CompiledResource const*> resources;
};

// Made at the first use, which may come from any unit's static initialisation, and never destroyed, since
// modules are unloaded while statics end.
Registry& TheRegistry() {
  static auto* const registry = new Registry;
  return *registry;
}

Key KeyOf(ModuleHandle module, CompiledResource const& resource) {
  return {module, Folded(resource.type), Folded(resource.name)};
}

}  // namespace

bool GetBinaryFromModule(ModuleHandle module, ResourceType type, ResourceName name, ResourceBytes& bytes) {
  auto const found = FindBinaryInModule(module, type, name);
  if (found) {
    bytes.assign(found->begin(), found->end());
  }
  return found.has_value();
}

std::optional<std::span<std::uint8_t const>> FindBinaryInModule(ModuleHandle module, ResourceType type,
                                                                ResourceName name) {
  auto& registry = TheRegistry();
  std::shared_lock const lock(registry.mutex);
  auto const found = registry.resources.find({module, Folded(type.value), Folded(name.value)});
  if (!module || found == registry.resources.end()) {
    return std::nullopt;
  }
  return std::span(found->second->data, found->second->size);
}

std::vector<Utf8String> GetResourceDataNames(ModuleHandle module, ResourceType type) {
  auto& registry = TheRegistry();
  auto const folded = Folded(type.value);
  std::vector<Utf8String> names;
  std::shared_lock const lock(registry.mutex);
  for (auto i = registry.resources.lower_bound({module, folded, {}});
       i != registry.resources.end() && i->first.module == module && i->first.type == folded; ++i) {
    names.emplace_back(i->second->name);
  }
  return names;
}

ResourceRegistrar::ResourceRegistrar(std::span<CompiledResource const> resources) : mResources(resources) {
  auto& registry = TheRegistry();
  auto const module = ModuleHandle::FromAddress(resources.data());
  std::lock_guard const lock(registry.mutex);
  for (auto const& resource : mResources) {
    registry.resources.insert_or_assign(KeyOf(module, resource), &resource);
  }
}

ResourceRegistrar::~ResourceRegistrar() {
  auto& registry = TheRegistry();
  auto const module = ModuleHandle::FromAddress(mResources.data());
  std::lock_guard const lock(registry.mutex);
  for (auto const& resource : mResources) {
    auto const found = registry.resources.find(KeyOf(module, resource));
    if (found != registry.resources.end() && found->second == &resource) {
      registry.resources.erase(found);
    }
  }
}

ResourceOverride::ResourceOverride(ModuleHandle module, ResourceType type, ResourceName name,
                                   std::string_view bytes)
    : mModule(module),
      mType(type.value),
      mName(name.value),
      mBytes(bytes.begin(), bytes.end()),
      mResource{mType.c_str(), mName.c_str(), mBytes.data(), mBytes.size()} {
  auto& registry = TheRegistry();
  std::lock_guard const lock(registry.mutex);
  mBefore = std::exchange(registry.resources[KeyOf(mModule, mResource)], &mResource);
}

ResourceOverride::~ResourceOverride() {
  auto& registry = TheRegistry();
  std::lock_guard const lock(registry.mutex);
  if (mBefore != nullptr) {
    registry.resources[KeyOf(mModule, mResource)] = mBefore;
  } else {
    registry.resources.erase(KeyOf(mModule, mResource));
  }
}

}  // namespace moxcore::utility
