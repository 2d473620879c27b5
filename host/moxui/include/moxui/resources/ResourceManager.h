#pragma once

#include <moxcore/utility/ModuleHandle.h>
#include <moxcore/utility/ModuleResources.h>
#include <moxui/geometry/PointT.h>
#include <moxui/platform/CursorControl.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace moxui::utility {

using moxcore::utility::ResourceBytes;
using moxcore::utility::ResourceName;
using moxcore::utility::ResourceType;

/// Finds resources by type and name, both without regard to case. While the V7 look runs, an "XML" resource
/// that has a variant NAME.V7 is that variant.
class ResourceManager {
 public:
  virtual ~ResourceManager();

  bool HasBinary(ResourceType type, ResourceName name) const;
  /// False if there is no such resource; `bytes` is untouched then.
  bool GetBinary(ResourceType type, ResourceName name, ResourceBytes* bytes) const;
  /// Names of a type in ascending order, variants by their own names.
  virtual std::vector<moxcore::Utf8String> GetResourceDataNames(ResourceType type) const = 0;

 protected:
  /// The resource of exactly that name, valid as long as the manager; nothing if there is none.
  virtual std::optional<std::span<std::uint8_t const>> Find(ResourceType type, ResourceName name) const = 0;

 private:
  std::optional<std::span<std::uint8_t const>> FindForLook(ResourceType type, ResourceName name) const;
};

/// The resources compiled into a module. With a null handle nothing is found. Beside them stands what else
/// belongs to the process: the platform's cursors, which need a running application and do nothing without.
class OS_ResourceManager : public ResourceManager {
 public:
  explicit OS_ResourceManager(moxcore::utility::ModuleHandle module);
  ~OS_ResourceManager() override;

  std::vector<moxcore::Utf8String> GetResourceDataNames(ResourceType type) const override;

  static void DisplayCursor(platform::CursorID cursor, platform::CursorMode mode);
  static void ShowPlatformCursor(bool show, bool immediately, bool counted);
  /// kArrow if the bytes can't be read.
  static platform::CursorID MakeCursorFromPNG(std::span<std::byte const> bytes, PointT<float> hotSpot,
                                              float scale);

 protected:
  std::optional<std::span<std::uint8_t const>> Find(ResourceType type, ResourceName name) const override;

 private:
  moxcore::utility::ModuleHandle mModule;
};

/// The host's own resources; never null.
OS_ResourceManager* GetResourceManager();

}  // namespace moxui::utility
