#pragma once

#include <moxmediatypes/AudioChannels.h>
#include <moxmediaui/AudioChannelLayoutPresetData.h>
#include <moxmediaui/HostTypes.h>
#include <moxmediaui/PresetCache.h>
#include <moxui/controls/UI_ControlMessage.h>
#include <moxui/controls/UI_Popup.h>

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace moxmediaui::channelconfig {

using ChannelLayoutPresetCache = moxappsupport::presets::PresetCache<AudioChannelLayoutPresetData,
                                                                     moxappsupport::presets::DirBasedStorage>;

/// Keeps popups of channel layouts in step with the presets on disk: the presets that came with the program
/// and, where custom layouts are allowed, the user's own and a last item that opens the editor of layouts. A
/// client derives from it to say which layout a popup shows at first, and to remember what was confirmed.
///
/// Popups bind the handler by address and their place: a copy shares the presets and the popups, but doesn't
/// hear from popups that were added to its source, and a popup must not outlive the handler it was added to.
/// For use on the UI thread.
class ChannelsPopupHandlerBase {
 public:
  /// Loads the presets.
  explicit ChannelsPopupHandlerBase(bool allowCustomLayouts);
  ChannelsPopupHandlerBase(ChannelsPopupHandlerBase const&) = default;
  ChannelsPopupHandlerBase& operator=(ChannelsPopupHandlerBase const&) = default;
  ChannelsPopupHandlerBase(ChannelsPopupHandlerBase&&) = default;
  ChannelsPopupHandlerBase& operator=(ChannelsPopupHandlerBase&&) = default;

  /// Fills a popup and listens to it from then on. The three keys are the client's, who gets them back with
  /// SaveLayoutsToPreferences. Null throws.
  void AddPopup(IntrusivePtr<moxui::controls::UI_Popup> popup, Utf16String const& a, Utf16String const& b,
                Utf16String const& c);
  /// The layout of the popup's item; Mono where there is none, or the popup was never added. Null throws.
  moxmediatypes::AudioChannelLayout GetSelectedLayout(
      IntrusivePtr<moxui::controls::UI_Popup> const& popup) const;
  /// Chooses the first item with exactly this layout, in order of channels too. Nothing changes for an empty
  /// layout, or one that no item has.
  void SetSelectedLayout(moxmediatypes::AudioChannelLayout const& layout,
                         IntrusivePtr<moxui::controls::UI_Popup> const& popup);
  /// The labels that the editor offers from the next time it opens; at first, all.
  void SetValidChannelDescriptions(std::set<moxmediatypes::AudioChannelDescription> const& descriptions);

 protected:
  struct PopupData {
    /// The item last chosen; -1 for none.
    std::int64_t chosenValue = -1;
    /// What each item stands for; separators and the last item stand for nothing.
    std::map<std::int64_t, Guid> itemPresets;
    IntrusivePtr<moxui::controls::UI_Popup> popup;
    std::array<Utf16String, 3> preferenceKeys;
  };

  /// The user has confirmed a layout in the editor; `name` is that of the preset it began with.
  virtual void SaveLayoutsToPreferences(PopupData data, moxmediatypes::AudioChannelLayout layout,
                                        Utf16String name);
  /// What a popup shows when it is filled; Stereo unless a client knows better. Where no preset has that
  /// layout, the popup shows Stereo, else nothing.
  virtual moxmediatypes::AudioChannelLayout GetDefaultChannelLayout(PopupData& data);

  void OnChannelLayoutPopupChanged(moxui::controls::UI_ControlChangedMessage* message,
                                   std::uint64_t popupIndex);
  /// Fills a popup anew and chooses its default layout.
  void PopulatePopup(PopupData& data);
  std::shared_ptr<ChannelLayoutPresetCache> const& GetPresetCache() const { return mPresetCache; }

 public:
  virtual ~ChannelsPopupHandlerBase();

 private:
  void RunCustomLayoutDialog(std::size_t popupIndex);
  void PopulateAllPopups();

  std::set<moxmediatypes::AudioChannelDescription> mValidChannelDescriptions;
  bool mAllowCustomLayouts;
  std::shared_ptr<ChannelLayoutPresetCache> mPresetCache;
  std::vector<PopupData> mPopups;
};

}  // namespace moxmediaui::channelconfig
