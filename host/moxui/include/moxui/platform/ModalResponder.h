#pragma once

#include <moxcore/string/String.h>
#include <moxui/geometry/PointT.h>
#include <moxui/ui/OS_Menu.h>

#include <functional>
#include <optional>
#include <vector>

namespace moxui::ui {
class UI_Node;
}

namespace moxui::platform {

enum class ModalKind { kMessageBox, kInputBox, kDialog, kMenu, kFileDialog };

/// A box that is about to open and wait.
struct ModalRequest {
  ModalKind kind = ModalKind::kMessageBox;
  moxcore::Utf16String title{};
  moxcore::Utf16String text{};
  unsigned buttons = 0;  ///< of message and input boxes: the sum of their answers
  int defaultAnswer = 0;
  ui::UI_Node* content = nullptr;                           ///< of a box or dialog: its root, to be driven
  std::function<void()> opened{};                           ///< of such: to be called once it is in a tree
  std::vector<ui::OS_MenuItem> const* menuItems = nullptr;  ///< of a menu
  PointT<float> position{};                                 ///< of a menu: its place on the desktop
  moxcore::Utf16String* editedText = nullptr;               ///< of an input box: may be changed
  std::vector<moxcore::Utf8String>* files = nullptr;        ///< of a file dialog: to be filled
};

/// Answers modal boxes in place of the user. Whoever opens one asks here first; no answer has the box open.
class ModalResponder {
 public:
  virtual ~ModalResponder();
  /// A button, an answer of a dialog (unless driving its content has given one, which then counts), a menu's
  /// id (0 for none), or not 0 for a file dialog that was accepted.
  virtual std::optional<int> Answer(ModalRequest& request) = 0;
};

/// Null (as at first) for none; it stays its owner's. Gives the one before.
ModalResponder* SetModalResponder(ModalResponder* responder);
ModalResponder* GetModalResponder();

/// For whoever is about to open a box: what the responder answers, or nothing, which has the box open. While
/// it answers for anything but a menu, every tree is as under a modal window: not active, its capture lost.
std::optional<int> AskModalResponder(ModalRequest& request);

}  // namespace moxui::platform
