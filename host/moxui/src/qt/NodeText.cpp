// Edited text as assistive software reads and changes it.
#include "EventTranslation.h"
#include "NodeInterface.h"

#include <moxui/ui/AccessibleText.h>
#include <moxui/ui/UI_Node.h>

#include <algorithm>
#include <utility>

namespace moxui::qt {

namespace {

using platform::TextSelection;

std::size_t Place(int position) {
  return static_cast<std::size_t>(std::max(position, 0));
}

TextSelection Stretch(int begin, int end) {
  return {.anchor = Place(begin), .caret = Place(end)};
}

}  // namespace

QString NodeInterface::AllText() const {
  auto const node = Node();
  auto const* const text = node ? node->UI_GetAccessibleText() : nullptr;
  return text != nullptr ? ToQString(text->GetText()) : QString();
}

QString NodeInterface::text(int begin, int end) const {
  QString const all = AllText();
  return all.mid(std::max(begin, 0), (end < 0 ? all.size() : end) - std::max(begin, 0));
}

int NodeInterface::characterCount() const {
  return static_cast<int>(AllText().size());
}

void NodeInterface::selection(int index, int* begin, int* end) const {
  auto const node = Node();
  auto const* const text = node ? node->UI_GetAccessibleText() : nullptr;
  TextSelection const selected = text != nullptr && index == 0 ? text->GetSelection() : TextSelection();
  *begin = static_cast<int>(selected.Begin());
  *end = static_cast<int>(selected.End());
}

int NodeInterface::selectionCount() const {
  int begin = 0;
  int end = 0;
  selection(0, &begin, &end);
  return begin != end ? 1 : 0;
}

void NodeInterface::addSelection(int begin, int end) {
  setSelection(0, begin, end);
}

void NodeInterface::removeSelection(int index) {
  if (index == 0) {
    setCursorPosition(cursorPosition());
  }
}

void NodeInterface::setSelection(int index, int begin, int end) {
  if (index != 0) {
    return;
  }
  Run([&](ui::UI_Node& node) {
    if (auto* const text = node.UI_GetAccessibleText()) {
      text->SetSelection(Stretch(begin, end));
    }
  });
}

int NodeInterface::cursorPosition() const {
  auto const node = Node();
  auto const* const text = node ? node->UI_GetAccessibleText() : nullptr;
  return text != nullptr ? static_cast<int>(text->GetSelection().caret) : 0;
}

void NodeInterface::setCursorPosition(int position) {
  setSelection(0, position, position);
}

QRect NodeInterface::characterRect(int position) const {
  auto const node = Node();
  auto const* const text = node ? node->UI_GetAccessibleText() : nullptr;
  return text != nullptr ? ToScreen(*node, text->GetCharacterRect(Place(position))) : QRect();
}

int NodeInterface::offsetAtPoint(QPoint const& point) const {
  auto const node = Node();
  auto const* const text = node ? node->UI_GetAccessibleText() : nullptr;
  if (text == nullptr || !rect().contains(point)) {
    return -1;
  }
  PointT<float> const place(static_cast<float>(point.x()), static_cast<float>(point.y()));
  return static_cast<int>(text->GetPositionAt(node->UI_GlobalToLocalF(place)));
}

void NodeInterface::scrollToSubstring(int, int end) {
  // The caret is kept in sight.
  setCursorPosition(end);
}

QString NodeInterface::attributes(int, int* begin, int* end) const {
  *begin = 0;
  *end = characterCount();
  return {};
}

void NodeInterface::deleteText(int begin, int end) {
  replaceText(begin, end, {});
}

void NodeInterface::insertText(int position, QString const& text) {
  replaceText(position, position, text);
}

void NodeInterface::replaceText(int begin, int end, QString const& text) {
  Run([&](ui::UI_Node& node) {
    if (auto* const edited = node.UI_GetAccessibleText()) {
      edited->ReplaceText(Stretch(begin, end), ToUtf16(text));
    }
  });
}

void NodeInterface::TellText() {
  QString const now = AllText();
  if (now == mToldText) {
    return;
  }
  QAccessibleTextUpdateEvent update(this, 0, std::exchange(mToldText, now), now);
  QAccessible::updateAccessibility(&update);
  QAccessibleValueChangeEvent value(this, now);
  QAccessible::updateAccessibility(&value);
}

}  // namespace moxui::qt
