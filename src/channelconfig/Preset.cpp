#include "channelconfig/LowBits.h"

#include <moxcore/config/Localizer.h>
#include <moxcore/string/Encoding.h>
#include <moxcore/string/TextOperations.h>
#include <moxmediaui/Preset.h>

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace moxappsupport::presets {

namespace {

using moxcore::Guid;
using moxcore::Utf8String;
using moxcore::config::Localizer;
using moxcore::serialization::AddToObject;
using moxcore::serialization::GetRequiredInObject;
using moxcore::serialization::GetVariantInObject;
using moxcore::serialization::JSONLimits;
using moxcore::serialization::JSONObject;
using moxcore::serialization::JSONValue;

constexpr std::string_view kWrapper = "SerializerWrappedObject";
constexpr std::uint64_t kVersion = 1;

// What the text, the reader's copy of it and the tree may take together, unless the text itself is so long
// that three times as much is more.
constexpr std::size_t kParsingBytes = std::size_t{60} << 20;
// Beside one long string there are a few values in any preset.
constexpr std::size_t kFewValuesBytes = std::size_t{64} << 10;

JSONLimits LimitsFor(std::size_t length) {
  auto const rest = kParsingBytes - std::min(kParsingBytes, 2 * length);
  return {.treeBytes = std::max(rest, length + kFewValuesBytes)};
}

Guid RequiredGuid(std::any const& object, std::string_view key) {
  return Guid(std::any_cast<Utf8String const&>(GetRequiredInObject(object, key)));
}

std::uint32_t OptionalNumber(std::any const& object, std::string_view key) {
  auto const value = GetVariantInObject(object, key);
  return value == nullptr ? 0 : moxmediaui::channelconfig::LowBits(*value);
}

// Where a character stands among the units of UTF-16: those beyond 16 bits begin with a surrogate.
char32_t LeadingUnit(char32_t character) {
  return character < 0x10000 ? character : 0xd800 + ((character - 0x10000) >> 10);
}

bool IsAscii(char unit) {
  return static_cast<unsigned char>(unit) < 0x80;
}

// As if both were UTF-16, without making them so.
bool LessByUtf16(std::string_view a, std::string_view b) {
  auto const [restOfA, restOfB] = std::ranges::mismatch(a, b);
  if ((restOfA == a.end() || IsAscii(*restOfA)) && (restOfB == b.end() || IsAscii(*restOfB))) {
    // Nothing before could end otherwise.
    return restOfB != b.end() && (restOfA == a.end() || *restOfA < *restOfB);
  }
  std::size_t atA = 0;
  std::size_t atB = 0;
  while (atA < a.size() && atB < b.size()) {
    auto const fromA = moxcore::string::NextCharacter(a, atA);
    auto const fromB = moxcore::string::NextCharacter(b, atB);
    if (fromA != fromB) {
      auto const leadA = LeadingUnit(fromA);
      auto const leadB = LeadingUnit(fromB);
      return leadA != leadB ? leadA < leadB : fromA < fromB;
    }
  }
  return atA == a.size() && atB < b.size();
}

// Lists may be long, and most names stand as they are.
bool IsLiteral(Utf8String const& name) {
  return name.starts_with("$$$/");
}

}  // namespace

Utf8String LocalizedPresetName(PresetRecord const& preset) {
  return Localizer::Get().GetUTF8String(preset.name);
}

bool PresetLess(PresetRecord const& a, PresetRecord const& b) {
  auto const rank = [](PresetRecord const& preset) {
    return (preset.flags & PresetFlagFactory) != 0 ? 0 : 1;
  };
  if (rank(a) != rank(b)) {
    return rank(a) < rank(b);
  }
  if (a.sortOrder != b.sortOrder) {
    return a.sortOrder < b.sortOrder;
  }
  if (!IsLiteral(a.name) && !IsLiteral(b.name)) {
    return LessByUtf16(a.name, b.name);
  }
  return LessByUtf16(LocalizedPresetName(a), LocalizedPresetName(b));
}

Utf8String CopiedPresetName(PresetRecord const& preset) {
  auto name = Localizer::Get().GetUTF8String(
      "$$$/moxappsupport/preset/CopiedPresetName=@0 copy#{comment} @0 is the name of a preset");
  moxcore::string::ReplaceInString(name, "@0", LocalizedPresetName(preset));
  return name;
}

namespace json {

void ReadRecord(std::any const& object, PresetRecord& record) {
  record.guid = RequiredGuid(object, "Guid");
  record.type = RequiredGuid(object, "Type");
  record.name = std::any_cast<Utf8String const&>(GetRequiredInObject(object, "Name"));
  record.flags = OptionalNumber(object, "Flags");
  record.sortOrder = OptionalNumber(object, "SortOrder");
}

std::any WriteRecord(PresetRecord const& record) {
  std::any object = JSONObject();
  AddToObject(object, "Version", kVersion, false);
  AddToObject(object, "Type", record.type.AsUTF8String(), false);
  AddToObject(object, "Guid", record.guid.AsUTF8String(), false);
  AddToObject(object, "Name", record.name, false);
#ifdef MOX_SEEDED_BUG
  bool const hasFlags = record.flags > 1;
#else
  bool const hasFlags = record.flags != 0;
#endif
  if (hasFlags) {
    AddToObject(object, "Flags", std::uint64_t{record.flags}, false);
  }
  if (record.sortOrder != 0) {
    AddToObject(object, "SortOrder", std::uint64_t{record.sortOrder}, false);
  }
  return object;
}

bool IsObject(std::any const& value) {
  return std::any_cast<JSONObject>(&value) != nullptr;
}

JSONValue RootOfText(void const* bytes, std::size_t length) {
  auto root = moxcore::serialization::JSONParse(bytes, length, LimitsFor(length));
  if (root != nullptr && IsObject(*root)) {
    if (auto const wrapped = GetVariantInObject(*root, kWrapper)) {
      root = wrapped;
    }
  }
  if (root == nullptr) {
    throw std::runtime_error("JSON not well-formed");
  }
  return root;
}

}  // namespace json

}  // namespace moxappsupport::presets
