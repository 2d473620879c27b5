#pragma once

#include <moxcore/serialization/JSON.h>
#include <moxcore/string/String.h>
#include <moxcore/threads/ParallelContainers.h>
#include <moxcore/utility/Guid.h>

#include <any>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

/// Named records with a payload, each kept as one JSON object:
///
///   {"Flags": 2, "Guid": "c33cc6bf-...", "Name": "...", "PresetData": {...}, "SortOrder": 100,
///    "Type": "d11e182d-...", "Version": 1}
///
/// "Flags" and "SortOrder" may be absent and are 0 then. Presets are plain values; everything here may be
/// called on any thread.
namespace moxappsupport::presets {

/// Bits of the flags. A preset with either of them is protected: it can be neither overwritten nor removed.
inline constexpr std::uint32_t PresetFlagDefault = 1;
/// It came with the program, and is listed before all others.
inline constexpr std::uint32_t PresetFlagFactory = 2;

constexpr bool IsProtectedPreset(std::uint32_t flags) noexcept {
  return (flags & (PresetFlagDefault | PresetFlagFactory)) != 0;
}

/// What every preset has, whatever its payload.
struct PresetRecord {
  /// Nil is no preset.
  moxcore::Guid guid;
  /// The kind of preset; kept, but never compared.
  moxcore::Guid type;
  /// A user's text, or a literal ($$$/path/key=Default text) of which the user sees the translation.
  moxcore::Utf8String name;
  std::uint32_t flags = 0;
  std::uint32_t sortOrder = 0;

  friend bool operator==(PresetRecord const&, PresetRecord const&) = default;
};

/// T has a JSONConvert<T>.
template <class T>
struct Preset : PresetRecord {
  T data;

  friend bool operator==(Preset const&, Preset const&) = default;
};

/// The name as the user reads it.
moxcore::Utf8String LocalizedPresetName(PresetRecord const& preset);

/// The order of all lists: presets that came with the program first, then by `sortOrder`, then by the UTF-16
/// units of the names as the user reads them, without regard to language.
bool PresetLess(PresetRecord const& a, PresetRecord const& b);

/// "Foo copy" in the user's language.
moxcore::Utf8String CopiedPresetName(PresetRecord const& preset);

/// The same preset under a new GUID and the name of a copy.
template <class T>
Preset<T> MakePresetCopy(Preset<T> const& preset) {
  auto copy = preset;
  copy.guid = moxcore::Guid::CreateUnique();
  copy.name = CopiedPresetName(preset);
  return copy;
}

/// The parts of the conversions below that don't depend on the payload.
namespace json {

inline constexpr char const* kPresetData = "PresetData";

void ReadRecord(std::any const& object, PresetRecord& record);
/// An object of everything but the payload.
std::any WriteRecord(PresetRecord const& record);
bool IsObject(std::any const& value);
/// The value that a text holds, taken out of its wrapper; throws std::runtime_error if there is none.
moxcore::serialization::JSONValue RootOfText(void const* bytes, std::size_t length);

}  // namespace json

/// A value that is no object gives a record with the nil GUID. Throws missing_key_exception for a required
/// key that is absent, std::bad_any_cast for a value of another type, and what the payload's conversion
/// throws.
template <class T>
Preset<T> PresetFromJSON(std::any const& value) {
  Preset<T> preset;
  if (json::IsObject(value)) {
    json::ReadRecord(value, preset);
    preset.data = moxcore::serialization::JSONConvert<T>::FromJSON(
        moxcore::serialization::GetRequiredInObject(value, json::kPresetData));
  }
  return preset;
}

template <class T>
std::any PresetToJSON(Preset<T> const& preset) {
  auto object = json::WriteRecord(preset);
  moxcore::serialization::AddToObject(object, json::kPresetData,
                                      moxcore::serialization::JSONConvert<T>::ToJSON(preset.data), false);
  return object;
}

/// Reads the text of one preset, with or without a NUL at its end. The object may be wrapped:
/// {"SerializerWrappedObject": {...}}. Throws std::runtime_error("JSON not well-formed"), or as
/// PresetFromJSON.
template <class T>
Preset<T> ParsePresetText(void const* bytes, std::size_t length) {
  return PresetFromJSON<T>(*json::RootOfText(bytes, length));
}

/// Lists of so many presets are converted on all processors.
inline constexpr std::size_t kFewestParallelPresets = 513;

/// Reads the text of a list of presets, in the order of the list. As ParsePresetText, and std::bad_any_cast
/// if the text holds no list.
template <class T>
std::vector<Preset<T>> ParsePresetListText(void const* bytes, std::size_t length) {
  auto const root = json::RootOfText(bytes, length);
  auto const& elements = std::any_cast<moxcore::serialization::JSONArray const&>(*root);
  std::vector<Preset<T>> presets;
  presets.reserve(elements.size());
  if (elements.size() < kFewestParallelPresets) {
    for (auto const& element : elements) {
      presets.push_back(PresetFromJSON<T>(*element));
    }
    return presets;
  }
  presets.resize(elements.size());
  moxcore::threads::ExecuteFunctionOnContainersAllProcessorsHelperWithTail(
      [](auto const& element, Preset<T>& preset) { preset = PresetFromJSON<T>(*element); }, elements.size(),
      elements, presets);
  return presets;
}

}  // namespace moxappsupport::presets
