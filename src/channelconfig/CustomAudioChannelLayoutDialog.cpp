// What the editor edits, and how its buttons and popups do; the window is in ChannelLayoutWindow.cpp.
#include <moxcore/messaging/BindMessageFunction.h>
#include <moxcore/string/Encoding.h>
#include <moxmediaui/CustomAudioChannelLayoutDialog.h>

#include <algorithm>
#include <iterator>

namespace moxmediaui::channelconfig {

namespace {

using moxmediatypes::AudioChannelDescription;
using moxmediatypes::AudioChannelLayout;
using moxui::controls::UI_ControlChangedMessage;
using moxui::controls::UI_Popup;

constexpr int kLabelColumn = 1;
// Behind the first label, which shows as the channel's number.
constexpr std::size_t kDividerPosition = 1;

}  // namespace

CustomAudioChannelLayoutDialog::CustomAudioChannelLayoutDialog(
    std::shared_ptr<ChannelLayoutPresetCache> presetCache,
    std::set<AudioChannelDescription> validDescriptions, Guid const& initialPreset)
    : mPresetCache(std::move(presetCache)),
      mPresetProvider(std::make_shared<PresetCacheAdapter<ChannelLayoutPresetCache>>(mPresetCache,
                                                                                     initialPreset, nullptr)),
      mValidDescriptions(std::move(validDescriptions)) {
  mPresetProvider->SetReadCurrentData(
      [this](AudioChannelLayoutPresetData& data) { return GetCurrentData(data); });
  mPresetProvider->SetApplyPreset([this](LayoutPreset const& preset) { return ApplyPreset(preset); });
  LayoutPreset const& current = mPresetProvider->GetCurrentPreset();
  mChannelLayout = current.data.channelLayout;
  mPresetName = moxcore::string::UTF8to16(moxappsupport::presets::LocalizedPresetName(current));
  for (AudioChannelDescription const description : mValidDescriptions) {
    mLabelItems.push_back({.text = moxcore::string::UTF8to16(
                               moxmediatypes::AudioChannelLabelDescription(description.GetLabel(), false))});
  }
  if (!mLabelItems.empty()) {
    mLabelItems.insert(mLabelItems.begin() + kDividerPosition, moxui::controls::PopupItemDescriptor{});
  }
}

CustomAudioChannelLayoutDialog::~CustomAudioChannelLayoutDialog() {
  // The view may live on in its window for a while.
  if (mPresetsView) {
    mPresetsView->SetPresetProvider(nullptr);
  }
}

// Presets

bool CustomAudioChannelLayoutDialog::GetCurrentData(AudioChannelLayoutPresetData& data) const {
  data.channelLayout = mChannelLayout;
  return true;
}

bool CustomAudioChannelLayoutDialog::ApplyPreset(LayoutPreset const& preset) {
  mChannelLayout = preset.data.channelLayout;
  RebuildRows();
  return true;
}

void CustomAudioChannelLayoutDialog::UpdateModifiedState() {
  mPresetProvider->SetModified(mChannelLayout != mPresetProvider->GetCurrentPreset().data.channelLayout);
}

// Channels

std::pair<std::size_t, AudioChannelDescription> const* CustomAudioChannelLayoutDialog::FindSelectedChannel()
    const {
  auto const rows = mChannelTree->GetSelectedRows();
  auto const info = rows.empty() ? mRowInfo.end() : mRowInfo.find(rows.front());
  return info != mRowInfo.end() ? &info->second : nullptr;
}

AudioChannelDescription CustomAudioChannelLayoutDialog::GetNextFreeLabel(
    AudioChannelDescription label) const {
  auto const place = mValidDescriptions.find(label);
  if (label == AudioChannelDescription() || place == mValidDescriptions.end()) {
    return {};
  }
  auto const isFree = [this](AudioChannelDescription const candidate) {
    return std::ranges::find(mChannelLayout, candidate) == mChannelLayout.end();
  };
  auto const free = std::find_if(std::next(place), mValidDescriptions.end(), isFree);
  return free != mValidDescriptions.end() ? *free : AudioChannelDescription();
}

void CustomAudioChannelLayoutDialog::OnAddChannel(UI_ControlChangedMessage*) {
  AudioChannelDescription newLabel;
  auto position = mChannelLayout.end();
  std::size_t index = 0;
  if (auto const* const selected = FindSelectedChannel()) {
    index = selected->first;
    position = mChannelLayout.begin() + static_cast<std::ptrdiff_t>(index) + 1;
    newLabel = GetNextFreeLabel(selected->second);
  }
  mChannelLayout.insert(position, newLabel);
  RebuildRows();
  UpdateModifiedState();
  mChannelTree->SelectRow(mChannelTree->GetRow(static_cast<std::int64_t>(index) + 1).Get(), true, false,
                          true);
}

void CustomAudioChannelLayoutDialog::OnRemoveChannel(UI_ControlChangedMessage*) {
  if (mChannelLayout.empty()) {
    return;
  }
  auto const* const selected = FindSelectedChannel();
  std::size_t const index = selected != nullptr ? selected->first : mChannelLayout.size() - 1;
  mChannelLayout.erase(mChannelLayout.begin() + static_cast<std::ptrdiff_t>(index));
  RebuildRows();
  UpdateModifiedState();
  auto const last = static_cast<std::int64_t>(mChannelTree->CountRows()) - 1;
  mChannelTree->SelectRow(mChannelTree->GetRow(std::min(static_cast<std::int64_t>(index), last)).Get(), true,
                          false, true);
}

std::int64_t CustomAudioChannelLayoutDialog::GetValueOfLabel(AudioChannelDescription label) const {
  auto const place = mValidDescriptions.find(label);
  if (place == mValidDescriptions.begin() || place == mValidDescriptions.end()) {
    return 0;
  }
  return std::distance(mValidDescriptions.begin(), place) + 1;
}

void CustomAudioChannelLayoutDialog::OnChannelPopupChanged(UI_ControlChangedMessage* message) {
  auto const* const popup =
      message != nullptr ? dynamic_cast<UI_Popup const*>(&message->GetControl()) : nullptr;
  if (popup == nullptr) {
    return;
  }
  for (std::int64_t index = 0; index < static_cast<std::int64_t>(mChannelTree->CountRows()); ++index) {
    IntrusivePtr<Row> const row = mChannelTree->GetRow(index);
    auto const cell = row->HasCellViews() ? row->GetCellView(kLabelColumn) : nullptr;
    auto const info = mRowInfo.find(row);
    if (!cell || cell->ChildGet(0) != popup || info == mRowInfo.end()) {
      continue;
    }
    auto const position = std::max<std::int64_t>(popup->GetValue() - 1, 0);
    if (position < static_cast<std::int64_t>(mValidDescriptions.size())) {
      AudioChannelDescription const label = *std::next(mValidDescriptions.begin(), position);
      mChannelLayout[info->second.first] = label;
      info->second.second = label;
      UpdateModifiedState();
    }
    return;
  }
}

}  // namespace moxmediaui::channelconfig
