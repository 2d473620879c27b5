#pragma once

#include <moxcore/messaging/Connection.h>
#include <moxmediaui/HostTypes.h>
#include <moxmediaui/PresetProviderInterface.h>
#include <moxmediaui/XMLHostView.h>
#include <moxui/controls/UI_ControlMessage.h>
#include <moxui/controls/UI_PictureButton.h>
#include <moxui/controls/UI_Popup.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace moxui::utility {
class ImageProvider;
}

namespace moxmediaui {

/// A strip to pick presets with: a popup of all presets, a button that saves the current state as a preset,
/// and one that deletes the current preset. What presets are is the provider's affair; the conversation with
/// the user about names, overwriting and deleting is this view's.
///
/// Create it, Initialize it, give it a provider. The provider is borrowed: it outlives the view, or is taken
/// away with SetPresetProvider(nullptr). Main thread only; all boxes are modal.
class PresetsView : public XMLHostView {
 public:
  static IntrusivePtr<PresetsView> Create();
  ~PresetsView() override;

  /// Loads the view. All three are borrowed and outlive it.
  void Initialize(ResourceManager* resources, SupplierInterface const* supplier,
                  moxui::utility::ImageProvider* imageProvider);
  /// Null takes the provider away and brings the default dialog strings back.
  void SetPresetProvider(PresetProviderInterface* provider);
  /// Title and prompt of the box that asks for a name. An empty text stands for the default one.
  void SetDialogStrings(Utf16String title, Utf16String prompt);
  /// Asks for a name and saves the current state under it. Tells whether the state is saved; with
  /// `onlyIfModified`, that of a preset that nobody has changed is.
  bool RequestSaveCurrentPreset(bool onlyIfModified);
  /// Shows that no preset is known to be the current one.
  void SetValueUnknown();

  bool UI_WantsKeyboardFocus() const override { return true; }
  void UI_SizeChanged(RectT<float> const& rect) override;

 protected:
  void ConnectControls() override;

 private:
  PresetsView();

  void InitControls();
  void UpdateControls();
  void FillPopup(std::size_t protectedCount);
  void SelectItem(Guid const& guid, std::size_t protectedCount);

  void OnPopupChanged(moxui::controls::UI_ControlChangedMessage& message);
  void OnSaveButtonChanged(moxui::controls::UI_ControlChangedMessage& message);
  void OnDeleteButtonChanged(moxui::controls::UI_ControlChangedMessage& message);
  void OnPresetProviderStateChanged();

  void ResetDialogStrings();
  bool RequestNewPresetName(Utf8String& name);
  bool RequestOverwritePreset(PresetInfo const& info);
  bool RequestDeletePreset(PresetInfo const& info);
  bool IsPresetReadyForDelete(PresetInfo const& info);
  void ShowStop(Utf16String const& text) const;
  bool IsConfirmed(Utf16String const& question) const;

  /// The last listed preset of exactly that name.
  bool GetPresetInfoByName(Utf8String const& name, PresetInfo& info) const;
  bool GetCurrentPresetInfoFromPopup(PresetInfo& info) const;

  // The provider's operations; without one they do nothing and give false.
  bool IsReservedPresetName(Utf8String const& name) const;
  void GetCurrentPresetInfo(PresetInfo& info, bool& modified) const;
  void GetPresetInfos(std::vector<PresetInfo>& infos) const;
  void GetDisplayString(Utf16String& text) const;
  bool CanCreatePreset() const;
  bool CreatePreset(Utf8String const& name);
  bool LoadPreset(PresetInfo const& info);
  bool SavePreset(PresetInfo const& info);
  bool RemovePreset(PresetInfo const& info);

  PresetProviderInterface* mPresetProvider = nullptr;
  moxcore::messaging::ScopedConnection mProviderConnection;
  IntrusivePtr<moxui::controls::UI_Popup> mPresetsPopup;
  IntrusivePtr<moxui::controls::UI_PictureButton> mSaveButton;
  IntrusivePtr<moxui::controls::UI_PictureButton> mDeleteButton;
  std::vector<PresetInfo> mPresetInfos;
  std::map<std::int64_t, PresetInfo> mPopupItems;
  bool mIsModified = false;
  Utf16String mSaveDialogTitle;
  Utf16String mSaveDialogPrompt;
  moxui::utility::ImageProvider* mImageProvider = nullptr;
  Utf16String mApplicationName;
};

}  // namespace moxmediaui
