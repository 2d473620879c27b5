#pragma once

#include <moxcore/messaging/Connection.h>
#include <moxcore/utility/Noncopyable.h>
#include <moxmediaui/HostTypes.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace moxmediaui {

/// A preset as a list or a popup shows it.
struct PresetInfo {
  Guid guid;
  /// As it is displayed, in the language of the moment.
  Utf8String name;
  /// PresetFlagDefault and PresetFlagFactory of moxmediaui/Preset.h. A preset with either bit is protected:
  /// it can be neither overwritten nor removed.
  std::uint32_t flags = 0;

  friend bool operator==(PresetInfo const&, PresetInfo const&) = default;
};

/// What a preset picker asks of its model: which presets there are, which one is current, whether the state
/// that is edited differs from it, and to load, save and remove. Any client may implement it; the provider
/// outlives the views that show it, or is taken from them first. For use on the UI thread.
///
/// Operations that give a bool tell whether they have done what was asked; none of them asks the user.
class PresetProviderInterface : public moxcore::utility::noncopyable {
 public:
  /// `function` is called whenever the state of the provider changes, which may be more than once for one
  /// change.
  virtual moxcore::messaging::Connection ConnectStateChanged(std::function<void()> function) = 0;
  /// Whether no preset may be saved under this name.
  virtual bool IsReservedPresetName(Utf8String const& name) = 0;
  virtual void GetCurrentPresetInfo(PresetInfo& info, bool& modified) = 0;
  /// Fills `infos` with all presets, protected ones first.
  virtual void GetPresetInfos(std::vector<PresetInfo>& infos) = 0;
  /// The text to show while the state is modified.
  virtual void GetDisplayString(Utf16String& text) = 0;
  virtual bool CanCreatePreset() = 0;
  virtual bool CreatePreset(Utf8String const& name) = 0;
  virtual bool LoadPreset(PresetInfo const& info) = 0;
  virtual bool SavePreset(PresetInfo const& info) = 0;
  virtual bool RemovePreset(PresetInfo const& info) = 0;
  virtual ~PresetProviderInterface();
};

}  // namespace moxmediaui
