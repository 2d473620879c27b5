#pragma once

#include <moxui/archive/Value.h>

#include <array>
#include <optional>
#include <string_view>
#include <utility>

/// The words of the format, for its reader and its writer.
namespace moxui::archive {

enum class Element : std::uint8_t {
  kMap,
  kList,
  kPair,
  kKey,
  kInteger,
  kFloat,
  kDouble,
  kTrue,
  kFalse,
  kNarrowText,
  kWideText,
  kArray,
  kArrayType,
};

inline constexpr std::array<std::pair<std::string_view, Element>, 13> kElements = {{
    {"prop.pair", Element::kPair},
    {"key", Element::kKey},
    {"prop.list", Element::kList},
    {"int", Element::kInteger},
    {"ustring", Element::kWideText},
    {"string", Element::kNarrowText},
    {"float", Element::kFloat},
    {"double", Element::kDouble},
    {"true", Element::kTrue},
    {"false", Element::kFalse},
    {"array", Element::kArray},
    {"array.type", Element::kArrayType},
    {"prop.map", Element::kMap},
}};

inline std::optional<Element> ElementOf(std::string_view name) {
  for (auto const& [word, element] : kElements) {
    if (word == name) {
      return element;
    }
  }
  return std::nullopt;
}

/// The words by which an array names the kind of its elements.
inline constexpr std::array<std::pair<std::string_view, ValueKind>, 9> kElementKinds = {{
    {"prop.list", ValueKind::kObject},
    {"array", ValueKind::kArray},
    {"int", ValueKind::kSigned},
    {"unsigned", ValueKind::kUnsigned},
    {"float", ValueKind::kFloat},
    {"double", ValueKind::kDouble},
    {"bool", ValueKind::kBoolean},
    {"string", ValueKind::kNarrowText},
    {"ustring", ValueKind::kWideText},
}};

inline constexpr std::string_view kVersion = "4";
inline constexpr std::string_view kArchiveKey = "UINodeArchive";
inline constexpr std::string_view kRootKey = "root";

}  // namespace moxui::archive
