#pragma once

#include <moxcore/utility/RefCountedWeakPtr.h>
#include <moxui/ui/AccessibleState.h>
#include <moxui/ui/NodeTree.h>

#include <QAccessible>
#include <QAccessibleInterface>
#include <functional>
#include <optional>
#include <vector>

namespace moxui::qt {

/// One node as assistive software sees it. Nodes without a role are passed over: their children count as
/// those of the nearest above that has one.
class NodeInterface final : public QAccessibleInterface,
                            public QAccessibleActionInterface,
                            public QAccessibleValueInterface,
                            public QAccessibleTextInterface,
                            public QAccessibleEditableTextInterface {
 public:
  /// The interface of a node, the same at each call; it belongs to Qt's table of them.
  static QAccessibleInterface* Of(ui::UI_Node& node);
  /// The nodes with a role nearest below a node.
  static std::vector<ui::UI_Node*> ChildrenOf(ui::UI_Node& node);

  /// Announces a change of a node, if somebody listens.
  static void Tell(ui::UI_Node& node, ui::AccessibleChange change);
  /// Has the interface of a node that has left its tree deleted, once nobody can be inside it.
  static void Drop(ui::UI_Node const& node);

  explicit NodeInterface(ui::UI_Node& node);

  bool isValid() const override;
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override;
  QAccessibleInterface* child(int index) const override;
  int childCount() const override;
  int indexOfChild(QAccessibleInterface const* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QString text(QAccessible::Text kind) const override;
  void setText(QAccessible::Text, QString const&) override {}
  QRect rect() const override;
  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  QStringList actionNames() const override;
  void doAction(QString const& name) override;
  QStringList keyBindingsForAction(QString const&) const override { return {}; }

  QVariant currentValue() const override;
  void setCurrentValue(QVariant const& value) override;
  QVariant maximumValue() const override;
  QVariant minimumValue() const override;
  QVariant minimumStepSize() const override;

  // Text; positions are UTF-16 units, as Qt's are.
  void selection(int index, int* begin, int* end) const override;
  int selectionCount() const override;
  void addSelection(int begin, int end) override;
  void removeSelection(int index) override;
  void setSelection(int index, int begin, int end) override;
  int cursorPosition() const override;
  void setCursorPosition(int position) override;
  QString text(int begin, int end) const override;
  int characterCount() const override;
  QRect characterRect(int position) const override;
  int offsetAtPoint(QPoint const& point) const override;
  void scrollToSubstring(int begin, int end) override;
  QString attributes(int position, int* begin, int* end) const override;
  void deleteText(int begin, int end) override;
  void insertText(int position, QString const& text) override;
  void replaceText(int begin, int end, QString const& text) override;

 private:
  moxcore::utility::IntrusivePtr<ui::UI_Node> Node() const;
  /// Whether a user could reach the node: it is shown, enabled and no other window is waited for.
  bool CanAct() const;
  /// Calls something that may run listeners; exceptions don't go on into Qt.
  void Run(std::function<void(ui::UI_Node&)> const& function) const;
  std::optional<ui::AccessibleRange> Range() const;
  QString AllText() const;
  QRect ToScreen(ui::UI_Node const& node, RectT<float> const& rect) const;
  void TellText();
  void TellState();

  moxcore::utility::RefCountedWeakPtr<ui::UI_Node> mNode;
  QString mToldText;
  QAccessible::State mToldState;
};

}  // namespace moxui::qt
