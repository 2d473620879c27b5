#include "CustomColors.h"

#include <array>
#include <cstddef>
#include <map>
#include <vector>

namespace moxui::ui {
namespace {

constexpr auto kFirst = static_cast<unsigned>(ThemeColorID::kFirstCustomThemeColor);

using Components = std::array<float, 4>;

struct Slot {
  Components components{};
  int holders = 0;
  bool isUsed = false;
};

struct ColorTable {
  std::vector<Slot> slots;
  std::vector<unsigned> free;  // unused slots
  std::map<Components, unsigned> indices;
};

// Never destroyed: nodes that static objects hold may end at the very end.
ColorTable& Table() {
  static auto* const table = new ColorTable;
  return *table;
}

// What isn't a number isn't equal to itself, and would be made anew each time.
float NumberOr0(float component) {
  return component == component ? component : 0.0f;
}

// Null for a number that names no custom colour.
Slot* FindSlot(unsigned id) {
  auto& slots = Table().slots;
  Slot* const slot = id >= kFirst && id - kFirst < slots.size() ? &slots[id - kFirst] : nullptr;
  return slot != nullptr && slot->isUsed ? slot : nullptr;
}

bool Hold(unsigned id) {
  Slot* const slot = FindSlot(id);
  if (slot == nullptr) {
    return false;
  }
  ++slot->holders;
  return true;
}

void Release(unsigned id) {
  Slot* const slot = FindSlot(id);
  if (--slot->holders == 0) {
    slot->isUsed = false;
    Table().indices.erase(slot->components);
    Table().free.push_back(id - kFirst);
  }
}

}  // namespace

ThemeColorID GetCustomColorID(ColorRGBA const& colour) {
  Components const components{NumberOr0(colour.red), NumberOr0(colour.green), NumberOr0(colour.blue),
                              NumberOr0(colour.alpha)};
  auto& table = Table();
  auto const [found, isNew] = table.indices.try_emplace(components, 0U);
  if (isNew) {
    if (table.free.empty()) {
      found->second = static_cast<unsigned>(table.slots.size());
      table.slots.emplace_back();
    } else {
      found->second = table.free.back();
      table.free.pop_back();
    }
    table.slots[found->second] = {components, 0, true};
  }
  return static_cast<ThemeColorID>(kFirst + found->second);
}

ColorRGBA GetCustomColor(ThemeColorID id) {
  Slot const* const slot = FindSlot(static_cast<unsigned>(id));
  if (slot == nullptr) {
    return ColorRGBAFixed::Black;
  }
  auto const& [red, green, blue, alpha] = slot->components;
  return {red, green, blue, alpha};
}

HeldColorID::HeldColorID(unsigned id) : mID(id), mHolds(Hold(id)) {}

HeldColorID::HeldColorID(HeldColorID const& other) : HeldColorID(other.mID) {}

HeldColorID::~HeldColorID() {
  if (mHolds) {
    Release(mID);
  }
}

}  // namespace moxui::ui
