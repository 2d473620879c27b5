#pragma once

#include <moxcore/utility/ModuleResources.h>

#include <string_view>

namespace moxcore::utility {

// Puts bytes in the place of one of a module's resources, or adds one, for as long as it lives: so that
// tests, and who tries out a changed document, need no other build of the module. What was found before lies
// where it did. Overrides of one resource end in the reverse order of their beginnings.
class ResourceOverride : noncopyable {
 public:
  ResourceOverride(ModuleHandle module, ResourceType type, ResourceName name, std::string_view bytes);
  ~ResourceOverride();

 private:
  ModuleHandle mModule;
  Utf8String mType;
  Utf8String mName;
  ResourceBytes mBytes;
  CompiledResource mResource;
  CompiledResource const* mBefore = nullptr;
};

}  // namespace moxcore::utility
