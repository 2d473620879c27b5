#include "TreeState.h"

#include <moxui/ui/InputState.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/NodeTreeHost.h>
#include <moxui/ui/UI_NodeManager.h>

namespace moxui::ui {

namespace {

RadialDevice* gRadialDevice = nullptr;

NodeTree* CurrentTree() {
  UI_NodeManager const* const manager = UI_NodeManager::Get(false);
  return manager != nullptr ? manager->GetCurrentTree() : nullptr;
}

NodeTreeHost* CurrentHost() {
  NodeTree const* const tree = CurrentTree();
  return tree != nullptr ? &tree->GetHost() : nullptr;
}

/// A finger or pen that is down: the platform's pointer and buttons are those of the mouse only.
PointerState const* HeldPointer() {
  NodeTree const* const tree = CurrentTree();
  if (tree == nullptr) {
    return nullptr;
  }
  PointerState const& pointer = tree->State().pointer;
  bool const isMouse = pointer.subType == PointerSubType::kMouse;
  return isMouse || pointer.buttons.IsEmpty() ? nullptr : &pointer;
}

}  // namespace

RadialDevice::~RadialDevice() = default;
NodeTreeHost::~NodeTreeHost() = default;

PointT<float> GetGlobalMousePosition() {
  NodeTreeHost const* const host = CurrentHost();
  if (host == nullptr) {
    return {};
  }
  if (PointerState const* const held = HeldPointer()) {
    float const zoom = host->GetZoom();
    return PointT<float>(held->position.x * zoom, held->position.y * zoom) + host->GetOrigin();
  }
  return CurrentTree()->GetPointerPlace();
}

void SetGlobalMousePosition(int x, int y) {
  if (NodeTree* const tree = CurrentTree()) {
    tree->PlacePointer({static_cast<float>(x), static_cast<float>(y)});
  }
}

ModKeys GetCurrentModKeys() {
  NodeTreeHost const* const host = CurrentHost();
  return host != nullptr ? host->GetModKeys() : ModKeys{};
}

MouseButtons GetCurrentMouseButtonState() {
  if (PointerState const* const held = HeldPointer()) {
    return held->buttons;
  }
  NodeTreeHost const* const host = CurrentHost();
  return host != nullptr ? host->GetMouseButtons() : MouseButtons{};
}

RadialDevice* GetRadialDevice() {
  return gRadialDevice;
}
void SetRadialDevice(RadialDevice* device) {
  gRadialDevice = device;
}

}  // namespace moxui::ui
