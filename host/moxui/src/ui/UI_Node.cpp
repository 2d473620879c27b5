#include "../passes/Paint.h"
#include "NodeAccess.h"

#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/ui/AccessibleText.h>
#include <moxui/ui/MouseEvent.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/NodeTreeHost.h>
#include <moxui/ui/UI_Node.h>
#include <moxui/ui/UI_NodeManager.h>

#include <utility>

namespace moxui::ui {

UI_Node::UI_Node() = default;
UI_Node::~UI_Node() = default;

AccessibleText::~AccessibleText() = default;

NodeExtras& UI_Node::Extras() {
  if (!mExtras) {
    mExtras = std::make_unique<NodeExtras>();
  }
  return *mExtras;
}

bool UI_Node::UI_IsSelfOrDescendantOf(UI_Node const* node) const {
  for (UI_Node const* up = this; up != nullptr; up = up->mParent) {
    if (up == node) {
      return true;
    }
  }
  return false;
}

void UI_Node::UI_SetNodeID(moxcore::Utf8String id) {
  Extras().id = std::move(id);
}

moxcore::Utf8String const& UI_Node::UI_GetNodeID() const {
  static moxcore::Utf8String const none;
  return mExtras ? mExtras->id : none;
}

void UI_Node::SetUserData(std::any data) {
  Extras().userData = std::move(data);
}

std::any const& UI_Node::GetUserData() const {
  static std::any const none;
  return mExtras ? mExtras->userData : none;
}

unsigned UI_Node::UI_GetColorFromChangeMap(unsigned colorID) const {
  for (UI_Node const* up = this; up != nullptr; up = up->mParent) {
    if (up->mExtras) {
      auto const change = up->mExtras->colorChanges.find(colorID);
      if (change != up->mExtras->colorChanges.end()) {
        colorID = change->second.Get();
      }
    }
  }
  return colorID;
}

void UI_Node::UI_SetColorChange(unsigned colorID, unsigned newColorID) {
  // Held before the one that it replaces is let go: they may be one.
  HeldColorID const held(newColorID);
  auto& changes = Extras().colorChanges;
  changes.erase(colorID);
  changes.emplace(colorID, held);
}

void UI_Node::UI_ClearColorChange(unsigned colorID) {
  if (mExtras) {
    mExtras->colorChanges.erase(colorID);
  }
}

namespace {

/// What `measure` finds with a scriber of the default supplier; (0, 0) without one.
template <class Measure>
ExtentT<float> WithScratchScriber(Measure measure) {
  UI_NodeManager const* const manager = UI_NodeManager::Get(false);
  auto const* const supplier = manager != nullptr ? manager->GetDefaultDrawSupplier() : nullptr;
  auto const surface = supplier != nullptr ? supplier->NewOffscreenSurface(1, 1, 1) : nullptr;
  if (!surface) {
    return {};
  }
  scriber::Scriber scratch(supplier, surface.Get());
  return measure(&scratch);
}

}  // namespace

ExtentT<float> UI_Node::UI_GetRecommendedSizeFromDefaultSupplier() const {
  return WithScratchScriber([this](scriber::Scriber* scratch) { return UI_GetRecommendedSize(scratch); });
}

ExtentT<float> UI_Node::UI_MeasureFromDefaultSupplier(ExtentT<float> available) const {
  return WithScratchScriber([&](scriber::Scriber* scratch) { return DoMeasure(scratch, available); });
}

// What a node does when a class says nothing else.

void UI_Node::UI_Draw(scriber::Scriber* scriber) const {
  passes::PaintChildren(*this, scriber);
}
PaddingT<float> UI_Node::UI_GetDrawOverhang() const {
  return {};
}
bool UI_Node::UI_ContainsPoint(PointT<float> point) const {
  return NodeAccess::OwnRect(*this).Contains(point);
}
ExtentT<float> UI_Node::UI_GetRecommendedSize(scriber::Scriber*) const {
  return mLocalRect.Extent();
}
void UI_Node::UI_SizeChanged(RectT<float> const&) {}
void UI_Node::UI_ScaleChanged(float) {}
void UI_Node::UI_SkinSetUpdated() {}
void UI_Node::UI_NodeChanged(NodeChange) {}
void UI_Node::UI_LayoutChildren() {}
ExtentT<float> UI_Node::DoMeasure(scriber::Scriber* scriber, ExtentT<float>) const {
  return UI_GetRecommendedSize(scriber);
}
void UI_Node::DoPlace(RectT<float> const& rect) {
  UI_SetLocalRectF(rect);
}

bool UI_Node::UI_DoPrePointerEvent(UI_Node*, PointerEvent const&) {
  return false;
}

bool UI_Node::UI_DoPointerEvent(UI_Node* node, PointerEvent const& event) {
  auto const* const mouseEvent = MouseEvent::GetMouseEventForPointerEvent(event);
  return mouseEvent != nullptr && UI_DoMouseEvent(node, *mouseEvent);
}

bool UI_Node::UI_DoMouseEvent(UI_Node*, MouseEvent const&) {
  return false;
}
bool UI_Node::UI_DoPreKeyboardEvent(UI_Node*, KeyboardEvent const&) {
  return false;
}
bool UI_Node::UI_DoKeyboardEvent(UI_Node*, KeyboardEvent const&) {
  return false;
}
bool UI_Node::UI_DoCursor(UI_Node*, PointT<float>, unsigned) {
  return false;
}
bool UI_Node::UI_DoTimerNotify(int) {
  return false;
}
void UI_Node::UI_FocusChanged(FocusChangeReason) {}
bool UI_Node::UI_WantsKeyboardFocus() const {
  return false;
}
bool UI_Node::UI_InvalidateOnMouseOverChange(bool) {
  return false;
}

AccessibleRole UI_Node::UI_GetAccessibleRole() const {
  return AccessibleRole::kNone;
}
moxcore::Utf8String UI_Node::UI_GetAccessibleName() const {
  return {};
}
moxcore::Utf8String UI_Node::UI_GetAccessibleValue() const {
  return {};
}
moxcore::Utf8String UI_Node::UI_GetAccessibleDescription() const {
  return UI_GetToolTip();
}

AccessibleState UI_Node::UI_GetAccessibleState() const {
  AccessibleState state;
  AccessibleRole const role = UI_GetAccessibleRole();
  state.isCheckable = role == AccessibleRole::kCheckBox || role == AccessibleRole::kRadioButton;
  state.isChecked = state.isCheckable && UI_GetAccessibleValue() == "1";
  state.isEditable = role == AccessibleRole::kTextField;
  return state;
}

std::optional<AccessibleRange> UI_Node::UI_GetAccessibleRange() const {
  return std::nullopt;
}
bool UI_Node::UI_SetAccessibleValue(double) {
  return false;
}
bool UI_Node::UI_DoAccessibleAction() {
  return false;
}
AccessibleText* UI_Node::UI_GetAccessibleText() {
  return nullptr;
}

void UI_Node::UI_TellAccessibleChange(AccessibleChange change) {
  if (mTree != nullptr) {
    mTree->GetHost().AccessibleChanged(*this, change);
  }
}

}  // namespace moxui::ui
