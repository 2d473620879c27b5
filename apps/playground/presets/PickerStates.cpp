#include "presets/PickerStates.h"

#include "program/Localized.h"
#include "shell/Painting.h"

#include <moxmediaui/Module.h>
#include <moxmediaui/PresetsView.h>

#include <cstddef>
#include <string_view>
#include <utility>

namespace playground {
namespace {

using moxmediaui::PresetInfo;
using moxmediaui::PresetsView;

constexpr float kPickerWidth = 260.0f;  // where there is room

// Its parts, in the order in which they stand in it.
constexpr std::size_t kPopup = 0;
constexpr std::size_t kSaveButton = 1;
constexpr std::size_t kDeleteButton = 2;

StateColumn Column(std::string_view title, std::size_t part, moxmediaui::PresetProviderInterface& presets) {
  auto const make = [part, &presets]() -> StateColumn::Made {
    auto picker = PresetsView::Create();
    picker->Initialize(moxmediaui::GetResourceManager(), moxmediaui::GetDrawSupplier(),
                       moxmediaui::GetModuleImageProvider());
    picker->SetPresetProvider(&presets);
    PreviewAim aim;
    aim.part = picker->GetContentView()->ChildGet(part).Get();
    aim.makeUnknown = [shown = picker.Get()] { shown->SetValueUnknown(); };
    return {std::move(picker), std::move(aim)};
  };
  return {.title = title, .make = make, .size = {kPickerWidth, ControlHeight()}};
}

}  // namespace

ShownPreset::ShownPreset() {
  mPreset.guid = moxcore::Guid::CreateUnique();
  mPreset.name = moxcore::Utf8String(Text("$$$/playground/presets/shown=Dialogue, close up"));
}

ShownPreset::~ShownPreset() = default;

moxcore::messaging::Connection ShownPreset::ConnectStateChanged(std::function<void()>) {
  return {};
}

bool ShownPreset::IsReservedPresetName(moxcore::Utf8String const&) {
  return false;
}

void ShownPreset::GetCurrentPresetInfo(PresetInfo& info, bool& modified) {
  info = mPreset;
  modified = false;
}

void ShownPreset::GetPresetInfos(std::vector<PresetInfo>& infos) {
  infos = {mPreset};
}

void ShownPreset::GetDisplayString(moxcore::Utf16String& text) {
  text = To16(mPreset.name);
}

bool ShownPreset::CanCreatePreset() {
  return true;
}

bool ShownPreset::CreatePreset(moxcore::Utf8String const&) {
  return false;
}

bool ShownPreset::LoadPreset(PresetInfo const&) {
  return false;
}

bool ShownPreset::SavePreset(PresetInfo const&) {
  return false;
}

bool ShownPreset::RemovePreset(PresetInfo const&) {
  return false;
}

std::vector<StateColumn> PickerStateColumns(moxmediaui::PresetProviderInterface& presets) {
  return {Column("$$$/playground/presets/part/popup=Popup", kPopup, presets),
          Column("$$$/playground/presets/part/save=Save button", kSaveButton, presets),
          Column("$$$/playground/presets/part/delete=Delete button", kDeleteButton, presets)};
}

}  // namespace playground
