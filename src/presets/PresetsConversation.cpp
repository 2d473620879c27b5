// What the presets view asks and tells its user.
#include <moxcore/config/Localizer.h>
#include <moxcore/string/Encoding.h>
#include <moxcore/string/TextOperations.h>
#include <moxmediaui/PresetsView.h>
#include <moxui/dialogs/MessageBox.h>
#include <moxui/dialogs/SimpleInputBox.h>
#include <moxworkspace/WorkspaceUtils.h>

#include <algorithm>

namespace moxmediaui {

namespace {

using moxcore::config::Localizer;
namespace dialogs = moxui::dialogs;
namespace messagebox = moxui::dialogs::messagebox;
namespace DialogButton = moxui::dialogs::DialogButton;

/// A text with a preset's name in its place.
Utf16String TextWith(char const* literal, Utf16String const& name) {
  Utf16String text = Localizer::Get().GetUTF16String(literal);
  moxcore::string::ReplaceInString(text, u"@0", name);
  return text;
}

Utf16String TextWith(char const* literal, Utf8String const& name) {
  return TextWith(literal, moxcore::string::UTF8to16(name));
}

}  // namespace

void PresetsView::ShowStop(Utf16String const& text) const {
  messagebox::ShowStop(GetDrawSupplier(), mApplicationName, text,
                       moxworkspace::WorkspaceUtils::GetModalDialogParentNode());
}

bool PresetsView::IsConfirmed(Utf16String const& question) const {
  unsigned const answer = messagebox::Messagebox(
      GetDrawSupplier(), mApplicationName, question, DialogButton::kYes | DialogButton::kNo,
      DialogButton::kYes, messagebox::MessageIcon::kQuestion,
      moxworkspace::WorkspaceUtils::GetModalDialogParentNode(), {}, 0, 0);
  return answer == DialogButton::kYes;
}

bool PresetsView::GetCurrentPresetInfoFromPopup(PresetInfo& info) const {
  auto const found = mPopupItems.find(mPresetsPopup->GetValue());
  if (found == mPopupItems.end()) {
    return false;
  }
  info = found->second;
  return true;
}

bool PresetsView::GetPresetInfoByName(Utf8String const& name, PresetInfo& info) const {
  auto const found = std::find_if(mPresetInfos.rbegin(), mPresetInfos.rend(),
                                  [&](PresetInfo const& preset) { return preset.name == name; });
  if (found == mPresetInfos.rend()) {
    return false;
  }
  info = *found;
  return true;
}

void PresetsView::OnPopupChanged(moxui::controls::UI_ControlChangedMessage&) {
  PresetInfo chosen;
  if (!GetCurrentPresetInfoFromPopup(chosen)) {
    return;
  }
  if (!LoadPreset(chosen)) {
    ShowStop(TextWith("$$$/MOXMediaUI/PresetsView/PresetLoadFailed=The preset '@0' did not load correctly.",
                      chosen.name));
  }
  UpdateControls();
}

void PresetsView::OnSaveButtonChanged(moxui::controls::UI_ControlChangedMessage&) {
  RequestSaveCurrentPreset(false);
}

bool PresetsView::RequestSaveCurrentPreset(bool onlyIfModified) {
  PresetInfo current;
  bool modified = false;
  GetCurrentPresetInfo(current, modified);
  if (onlyIfModified && !modified) {
    return true;
  }
  Utf8String name = current.name;
  while (RequestNewPresetName(name)) {
    PresetInfo listed;
    if (!GetPresetInfoByName(name, listed)) {
      return CreatePreset(name);
    }
    if (RequestOverwritePreset(listed)) {
      return SavePreset(listed);
    }
  }
  return false;
}

bool PresetsView::RequestNewPresetName(Utf8String& name) {
  Utf16String text = moxcore::string::UTF8to16(name);
  if (IsReservedPresetName(name)) {
    text = Localizer::Get().GetUTF16String("$$$/MOXMediaUI/PresetsView/UntitledPreset=Untitled Preset");
  }
  while (dialogs::SimpleInputBox(GetDrawSupplier(), mSaveDialogTitle, mSaveDialogPrompt, text, true,
                                 moxworkspace::WorkspaceUtils::GetModalDialogParentNode(), false, 0, 0,
                                 DialogButton::kOk, DialogButton::kCancel)) {
    moxcore::string::LeftTrim(text);
    moxcore::string::RightTrim(text);
    if (text.empty()) {
      continue;
    }
    Utf8String const typed = moxcore::string::UTF16to8(text);
    if (!IsReservedPresetName(typed)) {
      name = typed;
      return true;
    }
    ShowStop(
        TextWith("$$$/MOXMediaUI/PresetsView/PresetNameInvalid='@0' is not a valid name for a preset.  "
                 "Please pick a different name.",
                 text));
  }
  return false;
}

bool PresetsView::RequestOverwritePreset(PresetInfo const& info) {
  return IsConfirmed(
      TextWith("$$$/MOXMediaUI/PresetsView/OverwritePresetPrompt=The preset '@0' already exists. "
               "Would you like to overwrite it?",
               info.name));
}

void PresetsView::OnDeleteButtonChanged(moxui::controls::UI_ControlChangedMessage&) {
  PresetInfo current;
  bool modified = false;
  GetCurrentPresetInfo(current, modified);
  if (IsPresetReadyForDelete(current) && RequestDeletePreset(current)) {
    RemovePreset(current);
  }
}

bool PresetsView::IsPresetReadyForDelete(PresetInfo const& info) {
  if (info.name.empty()) {
    ShowStop(
        Localizer::Get().GetUTF16String("$$$/MOXMediaUI/PresetsView/PresetHasNoName=Please pick a preset."));
    return false;
  }
  if (IsReservedPresetName(info.name)) {
    ShowStop(
        TextWith("$$$/MOXMediaUI/PresetsView/PresetNameCantBeDeleted='@0' cannot be deleted.", info.name));
    return false;
  }
  return true;
}

bool PresetsView::RequestDeletePreset(PresetInfo const& info) {
  return IsConfirmed(
      TextWith("$$$/MOXMediaUI/PresetsView/DeleteConfirm=Are you sure you want to delete the preset '@0'?",
               info.name));
}

}  // namespace moxmediaui
