#pragma once

#include <moxcore/string/String.h>
#include <moxui/archive/Value.h>
#include <moxui/geometry/RectT.h>
#include <moxui/scriber/ScriberTypes.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace moxui::archive {

/// The type tags of compound values, under the key `.aptype`.
namespace CompoundType {
inline constexpr std::int64_t kRectangle = 1;
inline constexpr std::int64_t kEnumeration = 2;
inline constexpr std::int64_t kConstraints = 4;
}  // namespace CompoundType

/// A property of a section, asked for what its class needs. A value of another kind throws an error that
/// names the property and its line; numbers may stand for one another where nothing is lost.
class PropertyValue {
 public:
  PropertyValue(std::string_view key, Value const& value) : mKey(key), mValue(value) {}

  bool AsBoolean() const;
  std::int64_t AsInteger() const;
  double AsDouble() const;
  /// Within what single precision holds.
  float AsFloat() const;
  /// A name for code.
  moxcore::Utf8String const& AsName() const;
  /// A text for people: a literal in round brackets is looked up in the localizer.
  moxcore::Utf8String AsText8() const;
  moxcore::Utf16String AsText() const;
  std::vector<moxcore::Utf16String> AsTexts() const;
  RectT<float> AsRect() const;
  /// Bits of ui::LayoutBinding.
  unsigned AsConstraints() const;
  /// Left and right are said of a layout from left to right: in one from right to left they change places.
  scriber::TextAlignment AsAlignment() const;
  /// An enumeration's number, from 0 to `count` - 1.
  int AsChoice(int count) const;
  template <typename Enumeration>
  Enumeration AsEnumeration(Enumeration last) const {
    return static_cast<Enumeration>(AsChoice(static_cast<int>(last) + 1));
  }

  Value const& Get() const { return mValue; }
  /// Throws that the property has a value that it can't have.
  [[noreturn]] void Reject() const;

 private:
  /// The member of a compound value, which must have the type tag.
  Value const& CompoundMember(std::int64_t type, std::string_view member) const;

  std::string_view mKey;
  Value const& mValue;
};

}  // namespace moxui::archive
