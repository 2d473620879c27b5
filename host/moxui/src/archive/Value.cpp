#include <moxui/archive/Value.h>

#include <algorithm>
#include <utility>

namespace moxui::archive {

namespace {

template <typename T, typename Data>
T const& HeldOrEmpty(Data const& data) {
  static T const empty{};
  auto const* const held = std::get_if<T>(&data);
  return held != nullptr ? *held : empty;
}

}  // namespace

Value::Value() = default;
Value::Value(ValueKind kind, Data data) : mData(std::move(data)), mKind(kind) {}

Value Value::OfObject(Object members) {
  return {ValueKind::kObject, std::move(members)};
}

Value Value::OfArray(ValueKind elementKind, Array elements) {
  Value array(ValueKind::kArray, std::move(elements));
  array.mElementKind = elementKind;
  return array;
}

Value Value::OfSigned(std::int32_t value) {
  return {ValueKind::kSigned, std::int64_t{value}};
}
Value Value::OfUnsigned(std::uint32_t value) {
  return {ValueKind::kUnsigned, std::int64_t{value}};
}
Value Value::OfFloat(float value) {
  return {ValueKind::kFloat, double{value}};
}
Value Value::OfDouble(double value) {
  return {ValueKind::kDouble, value};
}
Value Value::OfBoolean(bool value) {
  return {ValueKind::kBoolean, value};
}
Value Value::OfNarrowText(moxcore::Utf8String text) {
  return {ValueKind::kNarrowText, std::move(text)};
}
Value Value::OfWideText(moxcore::Utf8String text) {
  return {ValueKind::kWideText, std::move(text)};
}

Object const& Value::GetMembers() const {
  return HeldOrEmpty<Object>(mData);
}
Array const& Value::GetElements() const {
  return HeldOrEmpty<Array>(mData);
}
std::int64_t Value::GetInteger() const {
  return HeldOrEmpty<std::int64_t>(mData);
}
double Value::GetNumber() const {
  return IsInteger() ? static_cast<double>(GetInteger()) : HeldOrEmpty<double>(mData);
}
bool Value::GetBoolean() const {
  return HeldOrEmpty<bool>(mData);
}
moxcore::Utf8String const& Value::GetText() const {
  return HeldOrEmpty<moxcore::Utf8String>(mData);
}

Value const* Value::Find(std::string_view key) const {
  Object const& members = GetMembers();
  auto const found = std::ranges::find(members, key, &Member::key);
  return found != members.end() ? &found->value : nullptr;
}

bool operator==(Value const& a, Value const& b) {
  return a.mKind == b.mKind && a.mElementKind == b.mElementKind && a.mData == b.mData;
}

}  // namespace moxui::archive
