#include "QtAccessible.h"

#include "NodeInterface.h"
#include "QtWindow.h"
#include "WindowWidget.h"

#include <QAccessibleWidget>

namespace moxui::qt {

namespace {

/// A window, whose children are the nodes of its tree.
class WindowInterface final : public QAccessibleWidget {
 public:
  explicit WindowInterface(WindowWidget& widget) : QAccessibleWidget(&widget, QAccessible::Window) {}

  int childCount() const override { return static_cast<int>(Children().size()); }

  QAccessibleInterface* child(int index) const override {
    auto const children = Children();
    return index >= 0 && static_cast<std::size_t>(index) < children.size()
               ? NodeInterface::Of(*children[static_cast<std::size_t>(index)])
               : nullptr;
  }

  int indexOfChild(QAccessibleInterface const* wanted) const override {
    for (int index = 0; index < childCount(); ++index) {
      if (child(index) == wanted) {
        return index;
      }
    }
    return -1;
  }

  QAccessibleInterface* childAt(int x, int y) const override {
    for (int index = childCount() - 1; index >= 0; --index) {
      QAccessibleInterface* const one = child(index);
      if (one != nullptr && one->rect().contains(x, y)) {
        return one;
      }
    }
    return nullptr;
  }

  QAccessibleInterface* focusChild() const override {
    ui::NodeTree const* const tree = Tree();
    ui::UI_Node* const leaf = tree != nullptr ? tree->GetFocusLeaf() : nullptr;
    return leaf != nullptr ? NodeInterface::Of(*leaf) : nullptr;
  }

 private:
  ui::NodeTree* Tree() const {
    QtWindow* const window = static_cast<WindowWidget*>(widget())->GetWindow();
    return window != nullptr ? window->FindTree() : nullptr;
  }

  std::vector<ui::UI_Node*> Children() const {
    ui::NodeTree const* const tree = Tree();
    ui::UI_Node* const root = tree != nullptr ? tree->GetRoot() : nullptr;
    if (root == nullptr) {
      return {};
    }
    if (root->UI_GetAccessibleRole() != ui::AccessibleRole::kNone) {
      return {root};
    }
    return NodeInterface::ChildrenOf(*root);
  }
};

QAccessibleInterface* MakeInterface(QString const&, QObject* object) {
  auto* const widget = dynamic_cast<WindowWidget*>(object);
  return widget != nullptr ? new WindowInterface(*widget) : nullptr;
}

}  // namespace

void InstallAccessibility() {
  // Once for the process, however many applications come and go.
  static bool const isInstalled = [] {
    QAccessible::installFactory(MakeInterface);
    return true;
  }();
  static_cast<void>(isInstalled);
}

}  // namespace moxui::qt
