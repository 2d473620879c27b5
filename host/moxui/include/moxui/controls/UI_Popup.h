#pragma once

#include <moxui/controls/ControlText.h>
#include <moxui/controls/TypeAhead.h>
#include <moxui/controls/UI_Button.h>

#include <cstdint>
#include <vector>

namespace moxui::controls {

enum class PopupType { kList = 0 };
/// A quiet popup has no box of its own until the pointer comes.
enum class PopupVariant { kStandard = 0, kQuiet = 1 };
enum class ItemCheckStyle { kNone = 0, kCurrent = 1 };

/// One line of a popup's menu. With an empty text it is a divider.
struct PopupItemDescriptor {
  moxcore::Utf16String text;
  bool isEnabled = true;
};

/// One line as the popup keeps it.
struct PopupItem {
  moxcore::Utf16String text;
  bool isSeparator = false;
  bool isEnabled = true;
};

/// A box that shows its current item and opens a menu of all of them. Values are positions from 0, separators
/// counted; -1 is no item. A click, Space, Enter, Up or Down opens the menu, Left and Right step through the
/// items, and typing chooses the next item that begins so. Listeners hear of choices only, after the menu has
/// closed; choosing the current item again is none, unless SetAlwaysNotify.
class UI_Popup : public UI_Button {
 public:
  static constexpr std::int64_t kNoItem = -1;
  static constexpr std::int64_t kAppend = -1;

  explicit UI_Popup(PopupType type = PopupType::kList, PopupVariant variant = PopupVariant::kStandard,
                    ComponentSize size = ComponentSize::kMedium);
  ~UI_Popup() override;

  // Items. They may change while the popup notifies.
  /// At a position, or after the last; gives the item's value. An empty text is a blank item.
  std::int64_t AddItem(moxcore::Utf16String text, std::int64_t position = kAppend);
  /// After the last; takes a value and can't be chosen.
  std::int64_t AddSeparator();
  void SetItems(std::vector<PopupItemDescriptor> const& items);
  std::vector<PopupItem> const& GetItems() const { return mItems; }
  /// The value becomes -1.
  void DeleteAllItems();
  void EnableItem(std::int64_t value, bool enabled);

  // Value
  /// Any number is stored; -1 or past the end shows a blank. Makes the value known, except -1, which leaves
  /// that.
  void SetValue(std::int64_t value);
  std::int64_t GetValue() const { return mValue; }
  /// Shows a text in the closed popup. With `clearsItem` no item is the current one: the value becomes -1,
  /// known, and any choice is a change. With `repaint` it is invalidated.
  void SetValueString(moxcore::Utf16String text, bool clearsItem, bool repaint);
  /// What the closed popup shows.
  moxcore::Utf16String GetShownText() const;

  void SetItemCheckStyle(ItemCheckStyle style) { mCheckStyle = style; }
  void SetTextTruncation(TextTruncation truncation);
  void SetAlwaysNotify(bool always) { mAlwaysNotify = always; }
  void SetPopupType(PopupType type) { mType = type; }
  PopupType GetPopupType() const { return mType; }
  void SetPopupVariantType(PopupVariant variant);
  PopupVariant GetPopupVariantType() const { return mVariant; }
  /// Whether a line divides the text from the arrow in the classic look, as at first.
  void SetDrawDivider(bool draws);
  void SetFontIndex(ui::FontIndex index);
  void SetFontSize(float size);

  /// Opens the menu and waits, as a click would.
  void OpenMenu();

  void UI_Draw(scriber::Scriber* scriber) const override;
  ExtentT<float> UI_GetRecommendedSize(scriber::Scriber* scriber) const override;
  bool UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) override;
  bool UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override;
  ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;
  ui::AccessibleState UI_GetAccessibleState() const override;

 protected:
  void Clicked() override;

 private:
  void ItemsChanged(moxcore::Utf16String const& shownBefore);
  bool CanChoose(std::int64_t value) const;
  void Choose(std::int64_t value);
  bool Step(int step);
  double GetTypingTime() const;
  bool ChooseTyped(moxcore::Utf16String const& typed);

  std::vector<PopupItem> mItems;
  std::int64_t mValue = kNoItem;
  ControlText mText;
  moxcore::Utf16String mValueString;
  bool mShowsValueString = false;
  ItemCheckStyle mCheckStyle = ItemCheckStyle::kNone;
  PopupType mType;
  PopupVariant mVariant;
  bool mAlwaysNotify = false;
  bool mDrawDivider = true;
  TypeAhead mTypeAhead;
};

}  // namespace moxui::controls
