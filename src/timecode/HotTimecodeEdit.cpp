// The edit inside a timecode field, and the field under the keyboard.
#include <moxcore/string/Encoding.h>
#include <moxmediaui/HotTimecodeControl.h>
#include <moxui/ui/KeyboardEvent.h>

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace moxmediaui {

using moxui::ui::FocusChangeReason;
using moxui::ui::KeyboardCode;
using moxui::ui::KeyboardEvent;
using moxui::ui::UI_Node;
using moxui::ui::RectSpace::kOwn;
namespace ModKey = moxui::ui::ModKey;

namespace {

bool IsKeyDown(KeyboardEvent const& event, std::initializer_list<KeyboardCode> codes) {
  bool const isPlain = event.IsAction(moxui::ui::KeyAction::kKeyDown) && event.GetModKey().IsEmpty();
  return isPlain && std::ranges::find(codes, event.GetCode()) != codes.end();
}

bool IsLoss(FocusChangeReason reason) {
  return reason == FocusChangeReason::kLost || reason == FocusChangeReason::kDeactivated;
}

}  // namespace

void UI_HotTimecodeControl::OpenEdit(bool byKey) {
  mEditOpenedByKey = byKey;
  // The focus is given up first: it can't be told of a loss to what is inside of it.
  if (mHasOwnFocus) {
    UI_LoseKeyboardFocus();
  }
  mTextEdit->SetAccessibleName(UI_GetAccessibleName());
  mTextEdit->UI_SetLocalRectF(UI_GetLocalRectF(kOwn));
  mTextEdit->UI_Show(true);
  mTextEdit->GetTextEdit()->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
}

void UI_HotTimecodeControl::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  if (mTextEdit->UI_IsShown()) {
    mTextEdit->UI_SetLocalRectF(rect);
  }
}

void UI_HotTimecodeControl::EndEdit() {
  if (!mTextIsBehind) {
    mModel.SetText(mTextEdit->GetValue());
  }
  SetInlineTextStringFromTimecode();
  if (std::exchange(mIsScrubbing, false)) {
    if (mCursorHidden) {
      ShowCursorIntern();
    }
    EndScrub();
  }
  BroadcastChangedMessage();
  mTextEdit->UI_Hide(true);
}

// An edit that comes to its end, and a drag that is cut off, are settled here. A field that merely had the
// focus itself has nothing to settle, unless keys have moved its value.
void UI_HotTimecodeControl::UI_FocusChanged(FocusChangeReason reason) {
  IntrusivePtr<UI_Node> const self(this);
  if (IsLoss(reason)) {
    // Where a drag is cut off, or the window rests, the focus itself stays.
    bool const hadFocus = std::exchange(mHasOwnFocus, UI_HasKeyboardFocus(true));
    bool const wasStepped = std::exchange(mSteppedByKeys, false);
    if (!hadFocus || wasStepped || mIsScrubbing || mTextEdit->UI_IsShown()) {
      EndEdit();
    }
  } else if (UI_HasKeyboardFocus(true)) {
    mHasOwnFocus = true;
  }
  if (mFocusVisibility.FocusChanged(reason)) {
    UI_Invalidate();
  }
  mTextEdit->UI_FocusChanged(reason);
}

bool UI_HotTimecodeControl::UI_WantsKeyboardFocus() const {
  return !mIsFixed && UI_IsEnabled();
}

// An edit that was opened by a key and is ended by one leaves the focus where it was.
bool UI_HotTimecodeControl::UI_DoPreKeyboardEvent(UI_Node* node, KeyboardEvent const& event) {
  bool const ends = mEditOpenedByKey && mTextEdit->UI_TextEditControlHasFocus() &&
                    IsKeyDown(event, {KeyboardCode::kReturn, KeyboardCode::kEnter, KeyboardCode::kEscape});
  if (!ends) {
    return UI_SubView::UI_DoPreKeyboardEvent(node, event);
  }
  IntrusivePtr<UI_Node> const self(this);
  bool const taken = mTextEdit->UI_DoKeyboardEvent(node, event);
  if (!mTextEdit->UI_IsShown()) {
    UI_GainKeyboardFocus(FocusChangeReason::kTraversal);
  }
  return taken;
}

bool UI_HotTimecodeControl::UI_DoKeyboardEvent(UI_Node* node, KeyboardEvent const& event) {
  if (node != this || mIsFixed || UI_IsDisabled() || !event.IsAction(moxui::ui::KeyAction::kKeyDown)) {
    return UI_SubView::UI_DoKeyboardEvent(node, event);
  }
  IntrusivePtr<UI_Node> const self(this);
  if (mHasOwnFocus && mFocusVisibility.KeyUsed()) {
    UI_Invalidate();
  }
  if (IsKeyDown(event, {KeyboardCode::kReturn, KeyboardCode::kEnter})) {
    OpenEdit(true);
    return true;
  }
  if (mAllowDisplayFormatOverride && IsKeyDown(event, {KeyboardCode::kContextMenu})) {
    RightButtonDownSelf(moxui::ui::MouseEvent(moxui::ui::PointerAction::kRelease,
                                              moxui::ui::MouseButton::kRight, 1,
                                              {0, UI_GetLocalRectF(kOwn).height}));
    return true;
  }
  return DoStepKey(event) || UI_SubView::UI_DoKeyboardEvent(node, event);
}

// As under the pointer: up and right are more, with Shift the large step. Timecode reads from the left in
// every language.
bool UI_HotTimecodeControl::DoStepKey(KeyboardEvent const& event) {
  auto const mods = event.GetModKey();
  if (!mods.IsEmpty() && mods != moxui::ui::ModKeys(ModKey::kShift)) {
    return false;
  }
  int step = 0;
  switch (event.GetCode()) {
    case KeyboardCode::kUp:
    case KeyboardCode::kRight:
      step = 1;
      break;
    case KeyboardCode::kDown:
    case KeyboardCode::kLeft:
      step = -1;
      break;
    default:
      return false;
  }
  TickTime const before = mModel.GetValue();
  IncrementTimecode(step, mods);
  if (mModel.GetValue() != before) {
    mSteppedByKeys = mHasOwnFocus;
    UI_Invalidate();
  }
  return true;
}

// For assistive software

moxui::ui::AccessibleRole UI_HotTimecodeControl::UI_GetAccessibleRole() const {
  return mIsFixed ? moxui::ui::AccessibleRole::kStaticText : moxui::ui::AccessibleRole::kTextField;
}

moxcore::Utf8String UI_HotTimecodeControl::UI_GetAccessibleName() const {
  return UI_GetToolTip();
}

moxcore::Utf8String UI_HotTimecodeControl::UI_GetAccessibleValue() const {
  return moxcore::string::UTF16to8(mTextEdit->GetValue());
}

moxui::ui::AccessibleState UI_HotTimecodeControl::UI_GetAccessibleState() const {
  auto state = UI_SubView::UI_GetAccessibleState();
  state.isReadOnly = mIsFixed;
  return state;
}

bool UI_HotTimecodeControl::UI_DoAccessibleAction() {
  if (mIsFixed || UI_IsDisabled()) {
    return false;
  }
  OpenEdit(true);
  return true;
}

}  // namespace moxmediaui
