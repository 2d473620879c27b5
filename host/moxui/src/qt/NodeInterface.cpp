#include "NodeInterface.h"

#include "EventTranslation.h"
#include "QtWindow.h"
#include "WindowWidget.h"

#include <moxui/ui/AccessibleText.h>
#include <moxui/ui/UI_Container.h>

#include <QCoreApplication>
#include <algorithm>
#include <unordered_map>

namespace moxui::qt {

namespace {

using ui::AccessibleRole;

std::unordered_map<ui::UI_Node const*, QAccessible::Id>& Known() {
  static std::unordered_map<ui::UI_Node const*, QAccessible::Id> known;
  return known;
}

void Collect(ui::UI_Node& node, std::vector<ui::UI_Node*>& found) {
  ui::UI_Container const* const container = node.UI_GetContainer();
  if (container == nullptr) {
    return;
  }
  for (auto child = container->ChildBegin(); child != container->ChildEnd(); ++child) {
    if (!(*child)->UI_IsShown()) {
      continue;
    }
    if ((*child)->UI_GetAccessibleRole() == AccessibleRole::kNone) {
      Collect(**child, found);
    } else {
      found.push_back(child->Get());
    }
  }
}

QAccessible::Role ToRole(AccessibleRole role) {
  switch (role) {
    case AccessibleRole::kNone:
      return QAccessible::NoRole;
    case AccessibleRole::kGroup:
      return QAccessible::Grouping;
    case AccessibleRole::kButton:
      return QAccessible::Button;
    case AccessibleRole::kCheckBox:
      return QAccessible::CheckBox;
    case AccessibleRole::kRadioButton:
      return QAccessible::RadioButton;
    case AccessibleRole::kStaticText:
      return QAccessible::StaticText;
    case AccessibleRole::kTextField:
      return QAccessible::EditableText;
    case AccessibleRole::kSlider:
      return QAccessible::Slider;
    case AccessibleRole::kSpinBox:
      return QAccessible::SpinBox;
    case AccessibleRole::kDial:
      return QAccessible::Dial;
    case AccessibleRole::kComboBox:
      return QAccessible::ComboBox;
    case AccessibleRole::kList:
      return QAccessible::List;
    case AccessibleRole::kListItem:
      return QAccessible::ListItem;
    case AccessibleRole::kTable:
      return QAccessible::Table;
    case AccessibleRole::kRow:
      return QAccessible::Row;
    case AccessibleRole::kCell:
      return QAccessible::Cell;
    case AccessibleRole::kColumnHeader:
      return QAccessible::ColumnHeader;
    case AccessibleRole::kScrollBar:
      return QAccessible::ScrollBar;
    case AccessibleRole::kImage:
      return QAccessible::Graphic;
    case AccessibleRole::kDialog:
      return QAccessible::Dialog;
    case AccessibleRole::kProgress:
      return QAccessible::ProgressBar;
    case AccessibleRole::kTab:
      return QAccessible::PageTab;
  }
  return QAccessible::NoRole;
}

}  // namespace

QAccessibleInterface* NodeInterface::Of(ui::UI_Node& node) {
  auto& known = Known();
  // Another node may have the address of one that is gone.
  if (auto const found = known.find(&node); found != known.end()) {
    QAccessibleInterface* const held = QAccessible::accessibleInterface(found->second);
    if (held != nullptr && held->isValid()) {
      return held;
    }
    if (held != nullptr) {
      QAccessible::deleteAccessibleInterface(found->second);
    }
    known.erase(found);
  }
  auto* const made = new NodeInterface(node);
  known[&node] = QAccessible::registerAccessibleInterface(made);
  made->mToldText = made->AllText();
  made->mToldState = made->state();
  return made;
}

void NodeInterface::Drop(ui::UI_Node const& node) {
  auto& known = Known();
  auto const found = known.find(&node);
  if (found == known.end()) {
    return;
  }
  QAccessible::Id const id = found->second;
  known.erase(found);
  // What it does itself may be what takes its node away.
  QMetaObject::invokeMethod(
      QCoreApplication::instance(),
      [id] {
        if (QAccessible::accessibleInterface(id) != nullptr) {
          QAccessible::deleteAccessibleInterface(id);
        }
      },
      Qt::QueuedConnection);
}

std::vector<ui::UI_Node*> NodeInterface::ChildrenOf(ui::UI_Node& node) {
  std::vector<ui::UI_Node*> found;
  Collect(node, found);
  return found;
}

NodeInterface::NodeInterface(ui::UI_Node& node) : mNode(&node) {}

moxcore::utility::IntrusivePtr<ui::UI_Node> NodeInterface::Node() const {
  auto node = mNode.Lock();
  return node && node->UI_GetTree() != nullptr ? node : nullptr;
}

bool NodeInterface::isValid() const {
  return Node() != nullptr;
}

QAccessibleInterface* NodeInterface::parent() const {
  auto const node = Node();
  if (!node) {
    return nullptr;
  }
  for (ui::UI_Node* up = node->UI_GetParentNode(); up != nullptr; up = up->UI_GetParentNode()) {
    if (up->UI_GetAccessibleRole() != AccessibleRole::kNone) {
      return Of(*up);
    }
  }
  auto* const window = dynamic_cast<QtWindow*>(&node->UI_GetTree()->GetHost());
  return window != nullptr ? QAccessible::queryAccessibleInterface(&window->GetWidget()) : nullptr;
}

QAccessibleInterface* NodeInterface::child(int index) const {
  auto const node = Node();
  auto const children = node ? ChildrenOf(*node) : std::vector<ui::UI_Node*>();
  return index >= 0 && static_cast<std::size_t>(index) < children.size()
             ? Of(*children[static_cast<std::size_t>(index)])
             : nullptr;
}

int NodeInterface::childCount() const {
  auto const node = Node();
  return node ? static_cast<int>(ChildrenOf(*node).size()) : 0;
}

int NodeInterface::indexOfChild(QAccessibleInterface const* child) const {
  for (int index = 0; index < childCount(); ++index) {
    if (this->child(index) == child) {
      return index;
    }
  }
  return -1;
}

QAccessibleInterface* NodeInterface::childAt(int x, int y) const {
  for (int index = childCount() - 1; index >= 0; --index) {
    QAccessibleInterface* const one = child(index);
    if (one != nullptr && one->rect().contains(x, y)) {
      return one;
    }
  }
  return nullptr;
}

QString NodeInterface::text(QAccessible::Text kind) const {
  auto const node = Node();
  if (!node) {
    return {};
  }
  switch (kind) {
    case QAccessible::Name:
      return ToQString(node->UI_GetAccessibleName());
    case QAccessible::Value:
      return ToQString(node->UI_GetAccessibleValue());
    case QAccessible::Description:
    case QAccessible::Help:
      return ToQString(node->UI_GetAccessibleDescription());
    default:
      return {};
  }
}

QRect NodeInterface::ToScreen(ui::UI_Node const& node, RectT<float> const& rect) const {
  PointT<float> const place = node.UI_LocalToGlobalF(rect.TopLeft());
  PointT<float> const end = node.UI_LocalToGlobalF(
      {rect.left + std::max(rect.width, 0.0F), rect.top + std::max(rect.height, 0.0F)});
  return QRectF(place.x, place.y, end.x - place.x, end.y - place.y).toAlignedRect();
}

QRect NodeInterface::rect() const {
  auto const node = Node();
  return node ? ToScreen(*node, node->UI_GetLocalRectF(ui::RectSpace::kOwn)) : QRect();
}

QAccessible::Role NodeInterface::role() const {
  auto const node = Node();
  return node ? ToRole(node->UI_GetAccessibleRole()) : QAccessible::NoRole;
}

QAccessible::State NodeInterface::state() const {
  QAccessible::State state;
  auto const node = Node();
  if (!node) {
    state.invalid = true;
    return state;
  }
  state.disabled = node->UI_IsDisabled();
  state.focusable = node->UI_WantsKeyboardFocus() && !state.disabled;
  state.focused = node->UI_HasKeyboardFocus(true);
  state.hotTracked = node->UI_GetTree()->IsHovered(node.Get(), false);
  state.modal = node->UI_GetAccessibleRole() == AccessibleRole::kDialog;
  ui::AccessibleState const own = node->UI_GetAccessibleState();
  state.pressed = own.isPressed;
  state.checkable = own.isCheckable;
  state.checked = own.isChecked;
  state.checkStateMixed = own.isMixed;
  state.expandable = own.isExpandable;
  state.expanded = own.isExpandable && own.isExpanded;
  state.collapsed = own.isExpandable && !own.isExpanded;
  state.selectable = own.isSelectable;
  state.selected = own.isSelected;
  state.hasPopup = own.hasPopup;
  state.defaultButton = own.isDefault;
  state.editable = own.isEditable;
  state.readOnly = own.isReadOnly;
  state.multiLine = own.isMultiLine;
  state.selectableText = node->UI_GetAccessibleText() != nullptr;
  return state;
}

void* NodeInterface::interface_cast(QAccessible::InterfaceType type) {
  auto const node = Node();
  if (!node) {
    return nullptr;
  }
  switch (type) {
    case QAccessible::ActionInterface:
      return static_cast<QAccessibleActionInterface*>(this);
    case QAccessible::ValueInterface:
      return Range() ? static_cast<QAccessibleValueInterface*>(this) : nullptr;
    case QAccessible::TextInterface:
      return node->UI_GetAccessibleText() != nullptr ? static_cast<QAccessibleTextInterface*>(this) : nullptr;
    case QAccessible::EditableTextInterface:
      return node->UI_GetAccessibleText() != nullptr && node->UI_GetAccessibleState().isEditable
                 ? static_cast<QAccessibleEditableTextInterface*>(this)
                 : nullptr;
    default:
      return nullptr;
  }
}

}  // namespace moxui::qt
