#pragma once

#include "controls/StateTable.h"

#include <moxmediaui/PresetProviderInterface.h>

#include <vector>

namespace playground {

// One preset that somebody has saved, for pickers to be looked at: nothing becomes of what is asked of it.
class ShownPreset : public moxmediaui::PresetProviderInterface {
 public:
  ShownPreset();
  ~ShownPreset() override;

  moxcore::messaging::Connection ConnectStateChanged(std::function<void()> function) override;
  bool IsReservedPresetName(moxcore::Utf8String const& name) override;
  void GetCurrentPresetInfo(moxmediaui::PresetInfo& info, bool& modified) override;
  void GetPresetInfos(std::vector<moxmediaui::PresetInfo>& infos) override;
  void GetDisplayString(moxcore::Utf16String& text) override;
  bool CanCreatePreset() override;
  bool CreatePreset(moxcore::Utf8String const& name) override;
  bool LoadPreset(moxmediaui::PresetInfo const& info) override;
  bool SavePreset(moxmediaui::PresetInfo const& info) override;
  bool RemovePreset(moxmediaui::PresetInfo const& info) override;

 private:
  moxmediaui::PresetInfo mPreset;
};

// Preset pickers for a table of their states, a column for each part that can be pointed at. The presets
// outlive what is made.
std::vector<StateColumn> PickerStateColumns(moxmediaui::PresetProviderInterface& presets);

}  // namespace playground
