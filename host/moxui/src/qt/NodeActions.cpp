// What assistive software does with a node: actions and numbers.
#include "../ui/TreeState.h"
#include "EventTranslation.h"
#include "NodeInterface.h"
#include "QtApplication.h"
#include "QtWindow.h"
#include "WindowWidget.h"

#include <moxui/ui/UI_Node.h>

#include <QApplication>

namespace moxui::qt {

namespace {

using moxcore::utility::IntrusivePtr;
using ui::AccessibleRole;

bool IsShownToRoot(ui::UI_Node const& node) {
  for (ui::UI_Node const* up = &node; up != nullptr; up = up->UI_GetParentNode()) {
    if (!up->UI_IsShown()) {
      return false;
    }
  }
  return true;
}

bool WaitsForAnotherWindow(QtWindow& window) {
  QWidget const* const modal = QApplication::activeModalWidget();
  return modal != nullptr && modal != &window.GetWidget();
}

void Reveal(ui::UI_Node& node) {
  for (IntrusivePtr<ui::UI_Node> up(node.UI_GetParentNode()); up;
       up = IntrusivePtr<ui::UI_Node>(up->UI_GetParentNode())) {
    up->UI_RevealDescendant(node);
  }
}

/// A click in the middle of a node, if that is where the pointer would hit it.
void Click(ui::UI_Node& node) {
  // A handler of the press may end the tree.
  auto const state = node.UI_GetTree()->State().shared_from_this();
  RectT<float> const rect = node.UI_ConvertRectTo(nullptr, node.UI_GetLocalRectF(ui::RectSpace::kOwn));
  ui::PointerInput input;
  input.position = rect.Center();
  input.button = ui::MouseButton::kLeft;
  ui::UI_Node const* const hit = state->tree->FindNode(input.position);
  if (hit == nullptr || !hit->UI_IsSelfOrDescendantOf(&node)) {
    return;
  }
  for (auto const action :
       {ui::PointerAction::kMove, ui::PointerAction::kPress, ui::PointerAction::kRelease}) {
    input.action = action;
    if (!state->HasEnded()) {
      state->tree->HandlePointer(input);
    }
  }
}

}  // namespace

bool NodeInterface::CanAct() const {
  auto const node = Node();
  if (!node || node->UI_IsDisabled() || !IsShownToRoot(*node)) {
    return false;
  }
  auto* const window = dynamic_cast<QtWindow*>(&node->UI_GetTree()->GetHost());
  return window == nullptr || !WaitsForAnotherWindow(*window);
}

void NodeInterface::Run(std::function<void(ui::UI_Node&)> const& function) const {
  auto const node = Node();
  if (!node || !CanAct()) {
    return;
  }
  auto* const window = dynamic_cast<QtWindow*>(&node->UI_GetTree()->GetHost());
  // Held by itself: the function may end the window.
  QtApplication* const application = window != nullptr ? &window->GetApplication() : nullptr;
  try {
    function(*node);
  } catch (...) {
    if (application == nullptr) {
      throw;
    }
    application->CatchException(std::current_exception());
  }
}

QStringList NodeInterface::actionNames() const {
  auto const node = Node();
  if (!node || node->UI_IsDisabled()) {
    return {};
  }
  QStringList names;
  switch (node->UI_GetAccessibleRole()) {
    case AccessibleRole::kComboBox:
      names.push_back(showMenuAction());
      [[fallthrough]];
    case AccessibleRole::kButton:
    case AccessibleRole::kTab:
    case AccessibleRole::kRow:
    case AccessibleRole::kColumnHeader:
      names.push_back(pressAction());
      break;
    case AccessibleRole::kCheckBox:
    case AccessibleRole::kRadioButton:
      names.push_back(toggleAction());
      names.push_back(pressAction());
      break;
    default:
      break;
  }
  if (node->UI_WantsKeyboardFocus()) {
    names.push_back(setFocusAction());
  }
  return names;
}

void NodeInterface::doAction(QString const& name) {
  if (!actionNames().contains(name)) {
    return;
  }
  bool const isFocus = name == setFocusAction();
  Run([isFocus](ui::UI_Node& node) {
    Reveal(node);
    if (isFocus) {
      node.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
    } else if (node.UI_GetTree() != nullptr && !node.UI_DoAccessibleAction()) {
      Click(node);
    }
  });
}

std::optional<ui::AccessibleRange> NodeInterface::Range() const {
  auto const node = Node();
  return node ? node->UI_GetAccessibleRange() : std::nullopt;
}

QVariant NodeInterface::currentValue() const {
  auto const range = Range();
  return range ? QVariant(range->value) : QVariant();
}

void NodeInterface::setCurrentValue(QVariant const& value) {
  bool isNumber = false;
  double const number = value.toDouble(&isNumber);
  if (isNumber) {
    Run([number](ui::UI_Node& node) { node.UI_SetAccessibleValue(number); });
  }
}

QVariant NodeInterface::maximumValue() const {
  auto const range = Range();
  return range ? QVariant(range->maximum) : QVariant();
}

QVariant NodeInterface::minimumValue() const {
  auto const range = Range();
  return range ? QVariant(range->minimum) : QVariant();
}

QVariant NodeInterface::minimumStepSize() const {
  auto const range = Range();
  return range ? QVariant(range->step) : QVariant();
}

// Announcements

void NodeInterface::Tell(ui::UI_Node& node, ui::AccessibleChange change) {
  if (!QAccessible::isActive()) {
    return;
  }
  auto* const told = static_cast<NodeInterface*>(Of(node));
  switch (change) {
    case ui::AccessibleChange::kName: {
      QAccessibleEvent event(told, QAccessible::NameChanged);
      QAccessible::updateAccessibility(&event);
      break;
    }
    case ui::AccessibleChange::kValue: {
      auto const range = told->Range();
      QAccessibleValueChangeEvent event(
          told, range ? QVariant(range->value) : QVariant(told->text(QAccessible::Value)));
      QAccessible::updateAccessibility(&event);
      break;
    }
    case ui::AccessibleChange::kState:
      told->TellState();
      for (ui::UI_Node* const child : ChildrenOf(node)) {
        Tell(*child, change);  // disabled with those above them
      }
      break;
    case ui::AccessibleChange::kText:
      told->TellText();
      [[fallthrough]];
    case ui::AccessibleChange::kCaret: {
      QAccessibleTextCursorEvent event(told, told->cursorPosition());
      QAccessible::updateAccessibility(&event);
      break;
    }
    case ui::AccessibleChange::kDetached:
      break;
  }
}

void NodeInterface::TellState() {
  QAccessible::State const now = state();
  QAccessible::State changed;
  changed.disabled = now.disabled != mToldState.disabled;
  changed.focusable = now.focusable != mToldState.focusable;
  changed.pressed = now.pressed != mToldState.pressed;
  changed.checkable = now.checkable != mToldState.checkable;
  changed.checked = now.checked != mToldState.checked;
  changed.checkStateMixed = now.checkStateMixed != mToldState.checkStateMixed;
  changed.selected = now.selected != mToldState.selected;
  changed.expanded = now.expanded != mToldState.expanded;
  changed.collapsed = now.collapsed != mToldState.collapsed;
  changed.editable = now.editable != mToldState.editable;
  changed.readOnly = now.readOnly != mToldState.readOnly;
  mToldState = now;
  if (changed == QAccessible::State()) {
    return;
  }
  QAccessibleStateChangeEvent event(this, changed);
  QAccessible::updateAccessibility(&event);
}

}  // namespace moxui::qt
