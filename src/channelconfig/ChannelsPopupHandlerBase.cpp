#include <moxcore/config/Localizer.h>
#include <moxcore/string/Encoding.h>
#include <moxmediaui/ChannelsPopupHandlerBase.h>
#include <moxmediaui/CustomAudioChannelLayoutDialog.h>

#include <algorithm>
#include <utility>

namespace moxmediaui::channelconfig {

namespace {

using moxappsupport::presets::IsProtectedPreset;
using moxcore::config::Localizer;
using moxmediatypes::AudioChannelLayout;
using moxui::controls::UI_Popup;
using LayoutPreset = ChannelLayoutPresetCache::PresetType;

constexpr std::int32_t kConfirmed = 1;

LayoutPreset const* FindPreset(std::vector<LayoutPreset> const& presets, Guid const& guid) {
  auto const found = std::ranges::find(presets, guid, &LayoutPreset::guid);
  return found != presets.end() ? &*found : nullptr;
}

}  // namespace

ChannelsPopupHandlerBase::ChannelsPopupHandlerBase(bool allowCustomLayouts)
    : mValidChannelDescriptions(moxmediatypes::GetSupportedAudioChannelDescriptions()),
      mAllowCustomLayouts(allowCustomLayouts),
      mPresetCache(std::make_shared<ChannelLayoutPresetCache>(u"AudioChannelLayout", u".preset")) {}

ChannelsPopupHandlerBase::~ChannelsPopupHandlerBase() = default;

// By value, so that a client may keep what it is given.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void ChannelsPopupHandlerBase::SaveLayoutsToPreferences(PopupData, AudioChannelLayout, Utf16String) {}

AudioChannelLayout ChannelsPopupHandlerBase::GetDefaultChannelLayout(PopupData&) {
  return moxmediatypes::CreateStereoChannelLayout();
}

void ChannelsPopupHandlerBase::AddPopup(IntrusivePtr<UI_Popup> popup, Utf16String const& a,
                                        Utf16String const& b, Utf16String const& c) {
  PopupData data;
  data.popup = std::move(popup);
  data.preferenceKeys = {a, b, c};
  data.popup->SetItemCheckStyle(moxui::controls::ItemCheckStyle::kCurrent);
  PopulatePopup(data);
  std::uint64_t const index = mPopups.size();
  data.popup->NotifyWhenChanged(std::make_shared<moxcore::messaging::MessageFunction>(
      [this, index](moxcore::messaging::Message* message) {
        OnChannelLayoutPopupChanged(dynamic_cast<moxui::controls::UI_ControlChangedMessage*>(message), index);
      }));
  mPopups.push_back(std::move(data));
}

void ChannelsPopupHandlerBase::PopulatePopup(PopupData& data) {
  UI_Popup& popup = *data.popup;
  popup.DeleteAllItems();
  data.itemPresets.clear();
  data.chosenValue = UI_Popup::kNoItem;
  AudioChannelLayout const defaultLayout = GetDefaultChannelLayout(data);
  AudioChannelLayout const stereoLayout = moxmediatypes::CreateStereoChannelLayout();
  auto const presets = mPresetCache->GetPresets();
  auto const firstOfUser = std::ranges::find_if_not(
      presets, [](LayoutPreset const& preset) { return IsProtectedPreset(preset.flags); });
  for (auto preset = presets.begin(); preset != presets.end(); ++preset) {
    if (!mAllowCustomLayouts && !IsProtectedPreset(preset->flags)) {
      continue;
    }
    if (preset == firstOfUser) {
      popup.AddSeparator();
    }
    std::int64_t const value = popup.AddItem(
        moxcore::string::UTF8to16(moxappsupport::presets::LocalizedPresetName(*preset)), UI_Popup::kAppend);
    data.itemPresets[value] = preset->guid;
    // The last preset with the default layout wins; the first with Stereo stands in for it.
    bool const standsIn = data.chosenValue == UI_Popup::kNoItem && preset->data.channelLayout == stereoLayout;
    if (preset->data.channelLayout == defaultLayout || standsIn) {
      data.chosenValue = value;
    }
  }
  if (mAllowCustomLayouts) {
    popup.AddSeparator();
    popup.AddItem(Localizer::Get().GetUTF16String("$$$/aui/ChannelsPopup/Custom=Custom..."),
                  UI_Popup::kAppend);
  }
  popup.SetValue(data.chosenValue);
}

void ChannelsPopupHandlerBase::PopulateAllPopups() {
  for (PopupData& data : mPopups) {
    PopulatePopup(data);
  }
}

void ChannelsPopupHandlerBase::OnChannelLayoutPopupChanged(moxui::controls::UI_ControlChangedMessage*,
                                                           std::uint64_t popupIndex) {
  PopupData& data = mPopups[popupIndex];
  auto const lastItem = static_cast<std::int64_t>(data.popup->GetItems().size()) - 1;
  if (!mAllowCustomLayouts || data.popup->GetValue() != lastItem) {
    data.chosenValue = data.popup->GetValue();
    return;
  }
  RunCustomLayoutDialog(popupIndex);
}

void ChannelsPopupHandlerBase::RunCustomLayoutDialog(std::size_t popupIndex) {
  PopupData const& chosen = mPopups[popupIndex];
  IntrusivePtr<UI_Popup> const popup = chosen.popup;
  auto const item = chosen.itemPresets.find(chosen.chosenValue);
  Guid const initial = item != chosen.itemPresets.end() ? item->second : Guid();
  auto const dialog = moxcore::utility::MakeIntrusive<CustomAudioChannelLayoutDialog>(
      mPresetCache, mValidChannelDescriptions, initial);
  dialog->RunDialog();
  bool const isConfirmed = dialog->GetResponse() == kConfirmed;
  if (isConfirmed) {
    SaveLayoutsToPreferences(mPopups[popupIndex], dialog->GetLayout(), dialog->GetPresetName());
  }
  PopulateAllPopups();
  if (isConfirmed) {
    SetSelectedLayout(dialog->GetLayout(), popup);
  }
  popup->UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kByCode);
}

AudioChannelLayout ChannelsPopupHandlerBase::GetSelectedLayout(IntrusivePtr<UI_Popup> const& popup) const {
  std::int64_t const value = popup->GetValue();
  AudioChannelLayout mono = moxmediatypes::CreateMonoChannelLayout();
  auto const data = std::ranges::find(mPopups, popup, &PopupData::popup);
  if (data == mPopups.end()) {
    return mono;
  }
  auto const item = data->itemPresets.find(value);
  if (item == data->itemPresets.end()) {
    return mono;
  }
  auto const presets = mPresetCache->GetPresets();
  LayoutPreset const* const preset = FindPreset(presets, item->second);
  return preset != nullptr ? preset->data.channelLayout : mono;
}

void ChannelsPopupHandlerBase::SetSelectedLayout(AudioChannelLayout const& layout,
                                                 IntrusivePtr<UI_Popup> const& popup) {
  auto const data = std::ranges::find(mPopups, popup, &PopupData::popup);
  if (layout.empty() || data == mPopups.end()) {
    return;
  }
  auto const presets = mPresetCache->GetPresets();
  for (auto const& [value, guid] : data->itemPresets) {
    LayoutPreset const* const preset = FindPreset(presets, guid);
    if (preset != nullptr && preset->data.channelLayout == layout) {
      data->chosenValue = value;
      popup->SetValue(value);
      return;
    }
  }
}

void ChannelsPopupHandlerBase::SetValidChannelDescriptions(
    std::set<moxmediatypes::AudioChannelDescription> const& descriptions) {
  mValidChannelDescriptions = descriptions;
}

}  // namespace moxmediaui::channelconfig
