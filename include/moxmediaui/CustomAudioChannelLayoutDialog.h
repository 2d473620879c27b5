#pragma once

#include <moxcore/utility/RefCountedObjectWithWeakPtr.h>
#include <moxmediatypes/AudioChannels.h>
#include <moxmediaui/ChannelsPopupHandlerBase.h>
#include <moxmediaui/HostTypes.h>
#include <moxmediaui/PresetCacheAdapter.h>
#include <moxmediaui/PresetsView.h>
#include <moxui/controls/UI_MultiColumnTree.h>
#include <moxui/controls/UI_Popup.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/dialogs/UI_ArchivedDialog.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <utility>
#include <vector>

namespace moxmediaui::channelconfig {

/// The editor of channel layouts: a table with a row for each channel, its number and a popup with its label,
/// buttons that add and remove channels (1 to 32), and a strip of presets above. Make it, run it, look at the
/// response; on OK a layout that no preset has is offered for saving. For use on the UI thread; one run each.
class CustomAudioChannelLayoutDialog : public moxcore::utility::RefCountedObjectWithWeakPtr {
 public:
  static constexpr std::size_t kMostChannels = 32;

  /// Begins with the preset of that GUID, else with the first one. The set is what labels are on offer.
  CustomAudioChannelLayoutDialog(std::shared_ptr<ChannelLayoutPresetCache> presetCache,
                                 std::set<moxmediatypes::AudioChannelDescription> validDescriptions,
                                 Guid const& initialPreset);
  ~CustomAudioChannelLayoutDialog() override;

  /// Opens the window and waits until it is closed. Throws "Invalid type conversion." for a layout of the
  /// window without what belongs into it.
  void RunDialog();
  /// 1: confirmed.
  std::int32_t GetResponse() const { return mResponse; }
  moxmediatypes::AudioChannelLayout GetLayout() const { return mChannelLayout; }
  /// Of the preset that was current at the construction, as the user reads it.
  Utf16String GetPresetName() const { return mPresetName; }

 private:
  using LayoutPreset = ChannelLayoutPresetCache::PresetType;
  using Row = moxui::controls::UI_MultiColumnTreeRow;
  using ChannelDescription = moxmediatypes::AudioChannelDescription;

  // For the preset strip
  bool GetCurrentData(AudioChannelLayoutPresetData& data) const;
  bool ApplyPreset(LayoutPreset const& preset);
  void UpdateModifiedState();

  void CreateWindow();
  void SetUpButtons();
  void SetUpPresets();
  void SetUpTree();
  /// For assistive software.
  void NameParts();
  void RebuildRows();
  void EnableButtons();
  /// The channel of the selected row, or `otherwise`.
  std::pair<std::size_t, ChannelDescription> const* FindSelectedChannel() const;
  ChannelDescription GetNextFreeLabel(ChannelDescription label) const;
  std::int64_t GetValueOfLabel(ChannelDescription label) const;
  IntrusivePtr<moxui::controls::UI_Popup> MakeChannelPopup(std::size_t index) const;

  void OnOK(moxui::controls::UI_ControlChangedMessage* message);
  void OnAddChannel(moxui::controls::UI_ControlChangedMessage* message);
  void OnRemoveChannel(moxui::controls::UI_ControlChangedMessage* message);
  void OnRowVisibilityChanged(Row* row);
  void OnChannelPopupChanged(moxui::controls::UI_ControlChangedMessage* message);
  void OnPopupFocus(moxui::ui::UI_Node* node, moxui::ui::FocusChangeReason reason);
  void OnSelectionChanged();
  void OnDrawCell(moxui::scriber::Scriber* scriber, Row* row, int column, RectT<float> const& rect);
  bool OnPostClose(moxui::dialogs::UI_Dialog::Response response);

  IntrusivePtr<moxui::dialogs::UI_ArchivedDialog> mDialog;
  std::shared_ptr<ChannelLayoutPresetCache> mPresetCache;
  std::shared_ptr<PresetCacheAdapter<ChannelLayoutPresetCache>> mPresetProvider;
  IntrusivePtr<PresetsView> mPresetsView;
  IntrusivePtr<moxui::controls::UI_MultiColumnTree> mChannelTree;
  IntrusivePtr<moxui::controls::UI_TextButton> mAddChannelButton;
  IntrusivePtr<moxui::controls::UI_TextButton> mRemoveChannelButton;
  IntrusivePtr<moxui::controls::UI_TextButton> mOKButton;
  std::int32_t mResponse = 0;
  std::vector<moxui::controls::PopupItemDescriptor> mLabelItems;
  Utf16String mPresetName;
  moxmediatypes::AudioChannelLayout mChannelLayout;
  /// Which channel a row shows: its index and its label.
  std::map<IntrusivePtr<Row>, std::pair<std::size_t, ChannelDescription>> mRowInfo;
  bool mUpdatingSelection = false;
  std::set<ChannelDescription> mValidDescriptions;
};

}  // namespace moxmediaui::channelconfig
