#include <moxui/platform/Application.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/skins/Look.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/UI_NodeManager.h>

#include <algorithm>
#include <string>

namespace moxui::utility {

namespace {

constexpr std::string_view kLookVariantEnding = ".V7";

bool IsArchive(ResourceType type) {
  constexpr std::string_view kArchive = "XML";
  return type.value.size() == kArchive.size() &&
         std::equal(kArchive.begin(), kArchive.end(), type.value.begin(),
                    [](char upper, char unit) { return unit == upper || unit == upper - 'A' + 'a'; });
}

platform::CursorControl* FindCursorControl() {
  platform::Application* const application = platform::Application::Get();
  return application != nullptr ? &application->GetCursor() : nullptr;
}

/// A pointer that was dragged hidden comes back where it was pressed, not where the drag has taken it.
void ReturnPointers() {
  ui::UI_NodeManager const* const manager = ui::UI_NodeManager::Get(false);
  if (manager == nullptr) {
    return;
  }
  auto const trees = manager->GetTrees();
  for (ui::NodeTree* const tree : trees) {
    tree->ReturnPointer();
  }
}

}  // namespace

ResourceManager::~ResourceManager() = default;

bool ResourceManager::HasBinary(ResourceType type, ResourceName name) const {
  return FindForLook(type, name).has_value();
}

bool ResourceManager::GetBinary(ResourceType type, ResourceName name, ResourceBytes* bytes) const {
  auto const found = FindForLook(type, name);
  if (found) {
    bytes->assign(found->begin(), found->end());
  }
  return found.has_value();
}

std::optional<std::span<std::uint8_t const>> ResourceManager::FindForLook(ResourceType type,
                                                                          ResourceName name) const {
  if (IsArchive(type) && skins::IsRunningV7OrBeyond()) {
    std::string const variant = std::string(name.value).append(kLookVariantEnding);
    if (auto const found = Find(type, ResourceName(variant))) {
      return found;
    }
  }
  return Find(type, name);
}

OS_ResourceManager::OS_ResourceManager(moxcore::utility::ModuleHandle module) : mModule(module) {}
OS_ResourceManager::~OS_ResourceManager() = default;

std::vector<moxcore::Utf8String> OS_ResourceManager::GetResourceDataNames(ResourceType type) const {
  return moxcore::utility::GetResourceDataNames(mModule, type);
}

std::optional<std::span<std::uint8_t const>> OS_ResourceManager::Find(ResourceType type,
                                                                      ResourceName name) const {
  return moxcore::utility::FindBinaryInModule(mModule, type, name);
}

void OS_ResourceManager::DisplayCursor(platform::CursorID cursor, platform::CursorMode mode) {
  if (platform::CursorControl* const control = FindCursorControl()) {
    control->DisplayCursor(cursor, mode);
  }
}

void OS_ResourceManager::ShowPlatformCursor(bool show, bool immediately, bool counted) {
  if (platform::CursorControl* const control = FindCursorControl()) {
    control->ShowPlatformCursor(show, immediately, counted);
    if (control->IsCursorShown()) {
      ReturnPointers();
    }
  }
}

platform::CursorID OS_ResourceManager::MakeCursorFromPNG(std::span<std::byte const> bytes,
                                                         PointT<float> hotSpot, float scale) {
  platform::CursorControl* const control = FindCursorControl();
  return control != nullptr ? control->MakeCursorFromPNG(bytes, hotSpot, scale) : platform::CursorID::kArrow;
}

OS_ResourceManager* GetResourceManager() {
  static OS_ResourceManager manager(
      moxcore::utility::ModuleHandle::FromAddress(reinterpret_cast<void const*>(&GetResourceManager)));
  return &manager;
}

}  // namespace moxui::utility
