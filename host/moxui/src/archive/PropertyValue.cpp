#include "PropertyValue.h"

#include <moxcore/config/Localizer.h>
#include <moxcore/string/Encoding.h>
#include <moxui/archive/UINodeArchive.h>
#include <moxui/skins/LayoutDirection.h>

#include <cmath>
#include <limits>

namespace moxui::archive {

namespace {

constexpr std::string_view kCompoundKey = ".aptype";
constexpr std::string_view kLiteralHead = "($$$/";

std::string_view WithoutBrackets(std::string_view text) {
  bool const isLiteral = text.starts_with(kLiteralHead) && text.ends_with(')');
  return isLiteral ? text.substr(1, text.size() - 2) : text;
}

}  // namespace

void PropertyValue::Reject() const {
  ThrowArchiveError("$$$/moxui/Archive/Error/Property=View archive, line @0: “@1” can't have this value.",
                    mValue.GetLine(), mKey);
}

bool PropertyValue::AsBoolean() const {
  if (mValue.GetKind() == ValueKind::kBoolean) {
    return mValue.GetBoolean();
  }
  if (!mValue.IsInteger()) {
    Reject();
  }
  return mValue.GetInteger() != 0;
}

std::int64_t PropertyValue::AsInteger() const {
  if (mValue.GetKind() == ValueKind::kBoolean) {
    return mValue.GetBoolean() ? 1 : 0;
  }
  if (mValue.GetKind() == ValueKind::kObject) {
    return PropertyValue(mKey, CompoundMember(CompoundType::kEnumeration, "selected")).AsInteger();
  }
  double const number = AsDouble();
  // The archive's integers have 32 bits.
  if (number != std::floor(number) || std::abs(number) > 0x1p32) {
    Reject();
  }
  return static_cast<std::int64_t>(number);
}

double PropertyValue::AsDouble() const {
  if (!mValue.IsInteger() && !mValue.IsReal()) {
    Reject();
  }
  return mValue.GetNumber();
}

float PropertyValue::AsFloat() const {
  double const number = AsDouble();
  if (std::abs(number) > double{std::numeric_limits<float>::max()}) {
    Reject();
  }
  return static_cast<float>(number);
}

moxcore::Utf8String const& PropertyValue::AsName() const {
  if (!mValue.IsText()) {
    Reject();
  }
  return mValue.GetText();
}

moxcore::Utf8String PropertyValue::AsText8() const {
  return moxcore::config::Localizer::Get().GetUTF8String(WithoutBrackets(AsName()));
}

moxcore::Utf16String PropertyValue::AsText() const {
  return moxcore::config::Localizer::Get().GetUTF16String(WithoutBrackets(AsName()));
}

std::vector<moxcore::Utf16String> PropertyValue::AsTexts() const {
  if (mValue.GetKind() != ValueKind::kArray) {
    Reject();
  }
  std::vector<moxcore::Utf16String> texts;
  for (Value const& element : mValue.GetElements()) {
    texts.push_back(PropertyValue(mKey, element).AsText());
  }
  return texts;
}

Value const& PropertyValue::CompoundMember(std::int64_t type, std::string_view member) const {
  Value const* const tag = mValue.Find(kCompoundKey);
  Value const* const found = mValue.Find(member);
  bool const isOfType = tag != nullptr && tag->IsInteger() && tag->GetInteger() == type;
  if (!isOfType || found == nullptr || (!found->IsInteger() && !found->IsReal())) {
    Reject();
  }
  return *found;
}

RectT<float> PropertyValue::AsRect() const {
  auto const edge = [this](std::string_view member) {
    return PropertyValue(mKey, CompoundMember(CompoundType::kRectangle, member)).AsFloat();
  };
  return {edge("left"), edge("top"), edge("width"), edge("height")};
}

unsigned PropertyValue::AsConstraints() const {
  Value const& bits = CompoundMember(CompoundType::kConstraints, "constraints");
  if (!bits.IsInteger() || bits.GetInteger() < 0) {
    Reject();
  }
  return static_cast<unsigned>(bits.GetInteger());
}

scriber::TextAlignment PropertyValue::AsAlignment() const {
  auto const alignment = AsEnumeration(scriber::TextAlignment::kRight);
  if (alignment == scriber::TextAlignment::kCenter || !skins::IsRightToLeft()) {
    return alignment;
  }
  return alignment == scriber::TextAlignment::kLeft ? scriber::TextAlignment::kRight
                                                    : scriber::TextAlignment::kLeft;
}

int PropertyValue::AsChoice(int count) const {
  std::int64_t const choice = AsInteger();
  if (choice < 0 || choice >= count) {
    Reject();
  }
  return static_cast<int>(choice);
}

}  // namespace moxui::archive
