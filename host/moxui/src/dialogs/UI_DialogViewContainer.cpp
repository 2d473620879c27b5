#include <moxcore/messaging/BindMessageFunction.h>
#include <moxcore/string/Encoding.h>
#include <moxui/dialogs/UI_DialogViewContainer.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/Theme.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/NodeTree.h>

#include <utility>

namespace moxui::dialogs {

namespace {

using controls::UI_Button;
using moxcore::messaging::BindMessageFunction;
using moxcore::utility::IntrusivePtr;

/// The first button of a subtree that says of itself that Enter means it.
UI_Button* FindDefaultButton(ui::UI_Node& node) {
  if (!node.UI_IsShown()) {
    return nullptr;
  }
  auto* const button = dynamic_cast<UI_Button*>(&node);
  if (button != nullptr && button->GetDefaultAppearance()) {
    return button;
  }
  ui::UI_Container const* const container = node.UI_GetContainer();
  for (std::size_t i = 0; container != nullptr && i < container->ChildSize(); ++i) {
    if (UI_Button* const found = FindDefaultButton(*container->ChildGet(i))) {
      return found;
    }
  }
  return nullptr;
}

bool IsKey(ui::KeyboardEvent const& event, ui::KeyboardCode code) {
  return event.CompareShortcut(code, ui::ModKey::kNone);
}

}  // namespace

UI_DialogViewContainer::UI_DialogViewContainer(moxcore::Utf16String title)
    : mTitle(std::move(title)), mContentView(moxcore::utility::MakeIntrusive<ui::UI_SubView>()) {
  mContentView->UI_SetLayoutsChildren(true);
  ChildPushBack(mContentView);
}

UI_DialogViewContainer::~UI_DialogViewContainer() = default;

void UI_DialogViewContainer::SetOkButton(IntrusivePtr<UI_Button> button) {
  mOkButton = std::move(button);
  if (mOkButton) {
    mOkButton->NotifyWhenChanged(BindMessageFunction(this, &UI_DialogViewContainer::OkPressed));
  }
}

void UI_DialogViewContainer::SetCancelButton(IntrusivePtr<UI_Button> button) {
  mCancelButton = std::move(button);
  if (mCancelButton) {
    mCancelButton->NotifyWhenChanged(BindMessageFunction(this, &UI_DialogViewContainer::CancelPressed));
  }
}

void UI_DialogViewContainer::OkPressed(controls::UI_ControlChangedMessage&) {
  Close(Response::kOk);
}

void UI_DialogViewContainer::CancelPressed(controls::UI_ControlChangedMessage&) {
  Close(Response::kCancel);
}

void UI_DialogViewContainer::Open(std::function<void(Response)> closed) {
  mResponse = Response::kNone;
  mClosed = std::move(closed);
}

void UI_DialogViewContainer::Close(Response response) {
  if (auto const closed = std::exchange(mClosed, nullptr)) {
    mResponse = response;
    closed(response);
  }
}

void UI_DialogViewContainer::FocusFirstControl() {
  ui::NodeTree* const tree = UI_GetTree();
  if (tree != nullptr && tree->GetFocusLeaf() == nullptr) {
    tree->MoveFocus(false);
  }
}

void UI_DialogViewContainer::UI_Draw(scriber::Scriber* scriber) const {
  scriber->GetSurface()->FillRect(UI_GetLocalRectF(ui::RectSpace::kOwn),
                                  GetColor(ui::ThemeColorID::kTabBackground));
  UI_SubView::UI_Draw(scriber);
}

void UI_DialogViewContainer::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  mContentView->UI_SetLocalRectF(rect);
}

bool UI_DialogViewContainer::UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  if (event.IsAction(ui::KeyAction::kKeyDown) && !event.IsRepeat()) {
    bool const isReturn = IsKey(event, ui::KeyboardCode::kReturn) || IsKey(event, ui::KeyboardCode::kEnter);
    if (IntrusivePtr<UI_Button> const button(mOkButton ? mOkButton.Get() : FindDefaultButton(*this));
        isReturn && button) {
      button->PerformClick();
      return true;
    }
    if (IsKey(event, ui::KeyboardCode::kEscape)) {
      if (mCancelButton) {
        mCancelButton->PerformClick();
      } else {
        Close(Response::kCancel);
      }
      return true;
    }
  }
  return UI_SubView::UI_DoKeyboardEvent(node, event);
}

ui::AccessibleRole UI_DialogViewContainer::UI_GetAccessibleRole() const {
  return ui::AccessibleRole::kDialog;
}

moxcore::Utf8String UI_DialogViewContainer::UI_GetAccessibleName() const {
  return moxcore::string::UTF16to8(mTitle);
}

}  // namespace moxui::dialogs
