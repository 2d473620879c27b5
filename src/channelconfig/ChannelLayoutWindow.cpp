// The window of CustomAudioChannelLayoutDialog: its table of channels above all.
#include <moxcore/config/Localizer.h>
#include <moxcore/messaging/BindMessageFunction.h>
#include <moxcore/string/Encoding.h>
#include <moxcore/string/NumberText.h>
#include <moxcore/string/TextOperations.h>
#include <moxcore/utility/PointerCasts.h>
#include <moxmediaui/CustomAudioChannelLayoutDialog.h>
#include <moxmediaui/Module.h>
#include <moxui/controls/UI_MultiColumnTreeHeaderRow.h>
#include <moxui/skins/Design.h>
#include <moxui/skins/Look.h>
#include <moxui/skins/ThemeColors.h>
#include <moxui/skins/ThemeFont.h>
#include <moxui/ui/NodeTree.h>
#include <moxworkspace/TopLevelWindow.h>
#include <moxworkspace/WorkspaceUtils.h>

#include <utility>

namespace moxmediaui::channelconfig {

namespace {

using moxcore::config::Localizer;
using moxcore::messaging::BindMessageFunction;
using moxcore::utility::CheckedCast;
using moxcore::utility::DynamicCast;
using moxcore::utility::MakeIntrusive;
using moxui::controls::UI_ControlChangedMessage;
using moxui::controls::UI_MultiColumnTree;
using moxui::controls::UI_MultiColumnTreeHeaderRow;
using moxui::controls::UI_Popup;
using moxui::controls::UI_TextButton;
using moxui::dialogs::UI_ArchivedDialog;
using moxui::dialogs::UI_Dialog;
using moxui::skins::IsRunningV7OrBeyond;
using moxui::ui::UI_Node;

constexpr char const* kPopupID = "ChannelsPopupID";
constexpr int kNumberColumn = 0;
constexpr int kLabelColumn = 1;
constexpr float kNumberWidth = 80.0f;
constexpr float kLabelWidth = 194.0f;
constexpr float kV7PopupInset = 2.0f;  // to either side of a popup in its cell

moxui::dialogs::WindowVariant MainWindow() {
  moxworkspace::TopLevelWindow const* const window = moxworkspace::WorkspaceUtils::FindMainTopLevelWindow();
  return window != nullptr ? moxui::dialogs::WindowVariant(window->GetTree().GetRoot())
                           : moxui::dialogs::WindowVariant();
}

IntrusivePtr<UI_Node> MakeCustomNode(Utf8String const& type) {
  return type == "PresetsView" ? IntrusivePtr<UI_Node>(PresetsView::Create()) : nullptr;
}

Utf16String NumberText(std::size_t number) {
  char16_t text[moxcore::string::kUInt64TextSize];
  return {text, moxcore::string::ConvertUInt64ToBufferT(number, text)};
}

Utf16String AccessiblePopupName(std::size_t number) {
  Utf16String name = Localizer::Get().GetUTF16String(
      "$$$/moxmediaui/CustomAudioChannelLayoutDialog/LabelOfChannel=Label of channel @0#{comment} for screen "
      "readers");
  moxcore::string::ReplaceInString(name, u"@0", NumberText(number));
  return name;
}

/// A function that calls a member while its object lives.
template <class Owner, class Result, class... Arguments>
auto WeaklyBound(Owner* owner, Result (Owner::*member)(Arguments...)) {
  return [weak = RefCountedWeakPtr<Owner>(owner), member](Arguments... arguments) -> Result {
    if (auto const locked = weak.Lock()) {
      return (locked.Get()->*member)(arguments...);
    }
    return Result();
  };
}

/// Sets a flag for as long as it lives.
class FlagGuard {
 public:
  explicit FlagGuard(bool& flag) : mFlag(flag), mBefore(std::exchange(flag, true)) {}
  ~FlagGuard() { mFlag = mBefore; }
  FlagGuard(FlagGuard const&) = delete;
  FlagGuard& operator=(FlagGuard const&) = delete;

 private:
  bool& mFlag;
  bool mBefore;
};

}  // namespace

void CustomAudioChannelLayoutDialog::RunDialog() {
  IntrusivePtr<CustomAudioChannelLayoutDialog> const self(this);
  CreateWindow();
  RebuildRows();
  mDialog->SetPostCloseCallback(WeaklyBound(this, &CustomAudioChannelLayoutDialog::OnPostClose));
  mDialog->RunModal();
  mResponse = static_cast<std::int32_t>(mDialog->GetResponse());
}

bool CustomAudioChannelLayoutDialog::OnPostClose(UI_Dialog::Response response) {
  if (response == UI_Dialog::Response::kOk) {
    mPresetsView->RequestSaveCurrentPreset(true);
  }
  return false;
}

void CustomAudioChannelLayoutDialog::CreateWindow() {
  mDialog = MakeIntrusive<UI_ArchivedDialog>(
      GetDrawSupplier(), GetResourceManager(), "CustomAudioChannelLayoutDialog",
      Localizer::Get().GetUTF16String("$$$/moxmediaui/CustomAudioChannelLayoutDialog/"
                                      "CustomAudioChannelLayout=Custom Audio Channel Layout"),
      MainWindow(), MakeCustomNode);
  mDialog->SetMinimumSize(mDialog->GetLocalRectF().Extent());
  SetUpButtons();
  SetUpPresets();
  SetUpTree();
  NameParts();
}

void CustomAudioChannelLayoutDialog::SetUpButtons() {
  mOKButton = CheckedCast<UI_TextButton>(mDialog->GetNodeForID("OKButtonID"));
  mOKButton->NotifyWhenChanged(BindMessageFunction(this, &CustomAudioChannelLayoutDialog::OnOK));
  mDialog->SetCancelButton(CheckedCast<UI_TextButton>(mDialog->GetNodeForID("CancelButtonID")));
  mAddChannelButton = CheckedCast<UI_TextButton>(mDialog->GetNodeForID("AddChannelButtonID"));
  mAddChannelButton->NotifyWhenChanged(
      BindMessageFunction(this, &CustomAudioChannelLayoutDialog::OnAddChannel));
  mRemoveChannelButton = CheckedCast<UI_TextButton>(mDialog->GetNodeForID("RemoveChannelButtonID"));
  mRemoveChannelButton->NotifyWhenChanged(
      BindMessageFunction(this, &CustomAudioChannelLayoutDialog::OnRemoveChannel));
}

void CustomAudioChannelLayoutDialog::NameParts() {
  // A plus and a minus say little when they are read out.
  for (IntrusivePtr<UI_TextButton> const& button : {mAddChannelButton, mRemoveChannelButton}) {
    button->SetAccessibleName(button->UI_GetToolTip());
  }
  mChannelTree->SetAccessibleName(Localizer::Get().GetUTF8String(
      "$$$/moxmediaui/CustomAudioChannelLayoutDialog/Channels=Channels#{comment} for screen readers"));
}

void CustomAudioChannelLayoutDialog::SetUpPresets() {
  mPresetsView = CheckedCast<PresetsView>(mDialog->GetNodeForID("PresetsViewID"));
  mPresetsView->Initialize(GetResourceManager(), GetDrawSupplier(), GetModuleImageProvider());
  // It had its size before it had its content, which takes that size over only now.
  mPresetsView->UI_SizeChanged(mPresetsView->UI_GetLocalRectF(moxui::ui::RectSpace::kOwn));
  mPresetsView->SetPresetProvider(mPresetProvider.get());
}

void CustomAudioChannelLayoutDialog::SetUpTree() {
  mChannelTree = CheckedCast<UI_MultiColumnTree>(mDialog->GetNodeForID("TreeID"));
  mChannelTree->SetAllowChildren(false);
  mChannelTree->SetSupportUserSelectableCells(false);
  mChannelTree->SetSupportUserSelectableRows(true);
  mChannelTree->SetIndicateFocus(false);
  mChannelTree->SetSupportNoneSelected(false);
  mChannelTree->SetSupportDeselectAllOnEmptyTreeClick(false);
  mChannelTree->SetSupportMultipleSelections(false);
  mChannelTree->SetDrawCellOfRowCallback(WeaklyBound(this, &CustomAudioChannelLayoutDialog::OnDrawCell));
  mChannelTree->SetRowVisibilityChangedCallback(
      WeaklyBound(this, &CustomAudioChannelLayoutDialog::OnRowVisibilityChanged));
  mChannelTree->SetCellSelectionChangedCallback(
      WeaklyBound(this, &CustomAudioChannelLayoutDialog::OnSelectionChanged));
  mChannelTree->SetNumberOfColumns(2);
  auto const header = MakeIntrusive<UI_MultiColumnTreeHeaderRow>(mChannelTree.Get());
  header->ShowSortIndicator(false);
  header->SetAllowUserColumnMove(false);
  header->SetColumnName(
      header->GetColumnAt(kNumberColumn),
      Localizer::Get().GetUTF16String("$$$/aui/CustomAudioChannelLayoutDialog/Number=Number"));
  header->SetColumnWidth(header->GetColumnAt(kNumberColumn), kNumberWidth);
  header->SetColumnName(
      header->GetColumnAt(kLabelColumn),
      Localizer::Get().GetUTF16String("$$$/aui/CustomAudioChannelLayoutDialog/ChannelLabel=Channel Label"));
  header->SetColumnWidth(header->GetColumnAt(kLabelColumn), kLabelWidth);
  mChannelTree->UI_Show(true);
}

void CustomAudioChannelLayoutDialog::OnOK(UI_ControlChangedMessage*) {
  mDialog->Accept();
}

// Rows

void CustomAudioChannelLayoutDialog::RebuildRows() {
  mChannelTree->ClearRows();
  mRowInfo.clear();
  IntrusivePtr<Row> last;
  for (std::size_t index = 0; index < mChannelLayout.size(); ++index) {
    last = mChannelTree->CreateAndAppendRow();
    mRowInfo[last] = {index, mChannelLayout[index]};
  }
  mChannelTree->LayoutAfterAppendRow();
  mChannelTree->SelectRow(last.Get(), true, false, true);
  mChannelTree->UI_UpdateNow(moxui::ui::kUpdateAll);
  EnableButtons();
}

void CustomAudioChannelLayoutDialog::EnableButtons() {
  std::size_t const count = mChannelLayout.size();
  mAddChannelButton->UI_SetEnabled(count < kMostChannels);
  mRemoveChannelButton->UI_SetEnabled(count > 1);
  mOKButton->UI_SetEnabled(count != 0 && count <= kMostChannels);
}

IntrusivePtr<UI_Popup> CustomAudioChannelLayoutDialog::MakeChannelPopup(std::size_t index) const {
  auto popup = MakeIntrusive<UI_Popup>();
  popup->UI_SetNodeID(kPopupID);
  popup->SetItemCheckStyle(moxui::controls::ItemCheckStyle::kCurrent);
  auto items = mLabelItems;
  if (!items.empty()) {
    items.front().text = NumberText(index + 1);
  }
  popup->SetItems(items);
  popup->SetWantsKeyboardFocus(true);
  popup->SetValue(0);
  return popup;
}

void CustomAudioChannelLayoutDialog::OnRowVisibilityChanged(Row* row) {
  auto const info = mRowInfo.find(IntrusivePtr<Row>(row));
  if (mChannelTree->GetHeaderRow() == nullptr || !mChannelTree->IsRowVisible(row) || info == mRowInfo.end()) {
    return;
  }
  auto const cell = row->GetCellView(kLabelColumn);
  if (!cell || cell->ChildSize() > 0) {
    return;
  }
  auto const [index, label] = info->second;
  IntrusivePtr<UI_Popup> const popup = MakeChannelPopup(index);
  RectT<float> rect = cell->UI_GetLocalRectF(moxui::ui::RectSpace::kOwn);
  if (IsRunningV7OrBeyond()) {
    float const height = popup->UI_GetRecommendedSizeFromDefaultSupplier().height;
    rect = {rect.left + kV7PopupInset, rect.top + (rect.height - height) * 0.5f,
            rect.width - 2.0f * kV7PopupInset, height};
  }
  popup->UI_SetLocalRectF(rect);
  popup->InstallFocusChangedFunction(WeaklyBound(this, &CustomAudioChannelLayoutDialog::OnPopupFocus));
  popup->SetValue(GetValueOfLabel(label));
  popup->NotifyWhenChanged(BindMessageFunction(this, &CustomAudioChannelLayoutDialog::OnChannelPopupChanged));
  popup->SetAccessibleName(moxcore::string::UTF16to8(AccessiblePopupName(index + 1)));
  cell->ChildPushBack(popup);
  popup->UI_Show(true);
}

void CustomAudioChannelLayoutDialog::OnDrawCell(moxui::scriber::Scriber* scriber, Row* row, int column,
                                                RectT<float> const& rect) {
  auto const info = mRowInfo.find(IntrusivePtr<Row>(row));
  if (info == mRowInfo.end()) {
    return;
  }
  bool const isV7 = IsRunningV7OrBeyond();
  if (column == kLabelColumn) {
    auto const cell = row->HasCellViews() ? row->GetCellView(kLabelColumn) : nullptr;
    auto const popup = cell ? DynamicCast<UI_Popup>(cell->ChildGet(0)) : nullptr;
    if (!popup) {
      return;
    }
    float const width = cell->UI_GetLocalRectF(moxui::ui::RectSpace::kOwn).width;
    RectT<float> place = popup->UI_GetLocalRectF(moxui::ui::RectSpace::kParent);
    if (place.Right() != width) {
      // Set once: an equal rectangle asks for no further frame.
      place.left = isV7 ? kV7PopupInset : 0.0f;
      place.width = width - (isV7 ? 2.0f * kV7PopupInset : 0.0f);
      popup->UI_SetLocalRectF(place);
    }
    return;
  }
  ColorRGBA const colour =
      isV7 ? moxui::skins::design::GetTableColor(moxui::skins::design::TableProperty::kText, nullptr)
           : moxui::skins::utilities::GetDefaultTextColor();
  UI_MultiColumnTree::DrawCellString(scriber, NumberText(info->second.first + 1), rect, colour,
                                     moxui::ui::GetFontName(moxui::ui::FontIndex::kText),
                                     UI_MultiColumnTree::GetCellTextFontSize(),
                                     UI_MultiColumnTree::GetCellTextLeftInset(),
                                     isV7 ? UI_MultiColumnTree::GetDefaultCellPadding() : PaddingT<float>());
}

// Focus and selection follow each other.

void CustomAudioChannelLayoutDialog::OnPopupFocus(UI_Node* node, moxui::ui::FocusChangeReason) {
  if (mUpdatingSelection) {
    return;
  }
  auto const* const cell = dynamic_cast<moxui::controls::CellView const*>(node->UI_GetParentNode());
  Row* const row = cell != nullptr ? cell->GetTreeRow() : nullptr;
  if (row != nullptr && !mChannelTree->IsRowSelected(row)) {
    mChannelTree->SelectRow(row, true, false, true);
  }
}

void CustomAudioChannelLayoutDialog::OnSelectionChanged() {
  auto const cell = mChannelTree->GetSelectedCellOfSelectedRow();
  if (auto const popup = cell ? DynamicCast<UI_Popup>(cell->ChildGet(0)) : nullptr) {
    FlagGuard const guard(mUpdatingSelection);
    popup->UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kByCode);
    return;
  }
  IntrusivePtr<UI_Node> const leaf(mChannelTree->UI_GetKeyboardFocusLeafNode());
  if (leaf && leaf->UI_GetNodeID() == kPopupID) {
    FlagGuard const guard(mUpdatingSelection);
    leaf->UI_LoseKeyboardFocus();
  }
}

}  // namespace moxmediaui::channelconfig
