#pragma once

#include <moxmediaui/AudioChannelLayoutPresetData.h>
#include <moxmediaui/Preset.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Presets of channel layouts as tests need them.
namespace layout_presets {

using moxappsupport::presets::Preset;
using moxcore::Guid;
using moxcore::Utf8String;
using moxmediaui::AudioChannelLayoutPresetData;
using LayoutPreset = Preset<AudioChannelLayoutPresetData>;

inline constexpr char const* kType = "d11e182d-f09c-4d27-871c-0034a7d2e3f8";
inline constexpr char const* kMono = "c33cc6bf-e279-4498-8e0e-35fe442c2c8b";
inline constexpr char const* kStereo = "5f1ee7bd-e898-4f6c-a8a0-a377fc856eff";
inline constexpr char const* kFiveOne = "fb83d986-e05b-4d06-ae62-848c5f6310ea";
inline constexpr char const* kUser = "11111111-2222-4333-8444-555555555555";
inline constexpr char const* kOther = "99999999-2222-4333-8444-555555555555";

inline Guid GuidOf(std::string_view text) {
  return Guid(Utf8String(text));
}

inline AudioChannelLayoutPresetData Layout(std::vector<std::uint32_t> const& labels) {
  AudioChannelLayoutPresetData data;
  for (auto const label : labels) {
    data.channelLayout.emplace_back(label);
  }
  return data;
}

inline LayoutPreset MakePreset(std::string_view name, std::string_view guid = kUser,
                               std::vector<std::uint32_t> const& labels = {100}, std::uint32_t flags = 0,
                               std::uint32_t sortOrder = 0) {
  LayoutPreset preset;
  preset.guid = GuidOf(guid);
  preset.type = GuidOf(kType);
  preset.name = Utf8String(name);
  preset.flags = flags;
  preset.sortOrder = sortOrder;
  preset.data = Layout(labels);
  return preset;
}

/// The text of a preset's file; `data` is the text of "PresetData", `more` further members.
inline std::string TextOf(std::string_view name, std::string_view guid = kUser,
                          std::string_view data = R"({"audiochannellayout":[{"channellabel":100}]})",
                          std::string_view more = "") {
  return R"({"Guid":")" + std::string(guid) + R"(","Type":")" + kType + R"(","Name":")" + std::string(name) +
         R"(","PresetData":)" + std::string(data) + std::string(more) + "}";
}

}  // namespace layout_presets
