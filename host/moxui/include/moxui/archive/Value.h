#pragma once

#include <moxcore/string/String.h>

#include <cstdint>
#include <string_view>
#include <variant>
#include <vector>

/// The values of view archives (UINodeArchive documents), apart from what they mean.
namespace moxui::archive {

enum class ValueKind : std::uint8_t {
  kObject,      ///< `prop.list`: keys with values, in the document's order
  kArray,       ///< `array`: values of one kind
  kSigned,      ///< `int` of 32 bits
  kUnsigned,    ///< `int` of 32 bits
  kFloat,       ///< `float`, single precision; finite
  kDouble,      ///< `double`; finite
  kBoolean,     ///< `true`, `false`
  kNarrowText,  ///< `string`: names for code
  kWideText,    ///< `ustring`: texts for people, and names of classes
};

struct Member;
class Value;
using Object = std::vector<Member>;
using Array = std::vector<Value>;

/// One value of an archive. A plain value: copies are deep, comparison passes over the lines.
class Value {
 public:
  /// An empty object.
  Value();
  static Value OfObject(Object members);
  /// Elements of another kind than `elementKind` have no place in it.
  static Value OfArray(ValueKind elementKind, Array elements);
  static Value OfSigned(std::int32_t value);
  static Value OfUnsigned(std::uint32_t value);
  static Value OfFloat(float value);
  static Value OfDouble(double value);
  static Value OfBoolean(bool value);
  static Value OfNarrowText(moxcore::Utf8String text);
  static Value OfWideText(moxcore::Utf8String text);

  ValueKind GetKind() const { return mKind; }
  /// The line of the document on which it begins, from 1; 0 for one that was made by code.
  int GetLine() const { return mLine; }
  void SetLine(int line) { mLine = line; }

  bool IsInteger() const { return mKind == ValueKind::kSigned || mKind == ValueKind::kUnsigned; }
  bool IsReal() const { return mKind == ValueKind::kFloat || mKind == ValueKind::kDouble; }
  bool IsText() const { return mKind == ValueKind::kNarrowText || mKind == ValueKind::kWideText; }

  // What it holds; a value of another kind gives what is empty.
  Object const& GetMembers() const;
  Array const& GetElements() const;
  ValueKind GetElementKind() const { return mElementKind; }
  std::int64_t GetInteger() const;
  /// Of integers too.
  double GetNumber() const;
  bool GetBoolean() const;
  moxcore::Utf8String const& GetText() const;

  /// The value of a key of an object; null if there is none.
  Value const* Find(std::string_view key) const;

  friend bool operator==(Value const& a, Value const& b);

 private:
  using Data = std::variant<Object, Array, std::int64_t, double, bool, moxcore::Utf8String>;
  Value(ValueKind kind, Data data);

  Data mData;
  int mLine = 0;
  ValueKind mKind = ValueKind::kObject;
  ValueKind mElementKind = ValueKind::kObject;
};

/// A key with its value.
struct Member {
  moxcore::Utf8String key;
  Value value;

  friend bool operator==(Member const&, Member const&) = default;
};

}  // namespace moxui::archive
