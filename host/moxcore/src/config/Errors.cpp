#include <moxcore/config/Errors.h>
#include <moxcore/config/Localizer.h>

#include <charconv>
#include <utility>

namespace moxcore::config {

namespace {

Utf8String FillIn(Utf8String const& text, std::vector<Utf8String> const& values) {
  Utf8String result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto const index =
        i + 1 < text.size() && text[i] == '@' ? static_cast<std::size_t>(text[i + 1] - '0') : 10;
    if (index < 10 && index < values.size()) {
      result += values[index];
      ++i;
    } else {
      result += text[i];
    }
  }
  return result;
}

}  // namespace

mox_exception::mox_exception(ErrorLevel level, char const* file, int line, Utf8String code, bool showToUser,
                             Utf8String text)
    : mLevel(level),
      mLine(line),
      mShowToUser(showToUser),
      mFile(file != nullptr ? file : ""),
      mCode(std::move(code)),
      mText(std::move(text)) {}

Utf8String ErrorValueToText(std::string_view value) {
  return Utf8String(value);
}

Utf8String ErrorValueToText(double value) {
  char buffer[32];
  auto const end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  return Utf8String(buffer, end);
}

void ThrowErrorWithTexts(ErrorLevel level, char const* file, int line, Utf8String const& code,
                         bool showToUser, std::vector<Utf8String> const& values) {
  throw mox_exception(level, file, line, code, showToUser,
                      FillIn(Localizer::Get().GetUTF8String(code), values));
}

void DoThrowNullPtrException(Utf8String const& typeName) {
  ThrowError(ErrorLevel::kError, __FILE__, __LINE__,
             "$$$/moxcore/utility/Error/NullPointer=A null pointer of type @0 was used.", false, typeName);
}

void ThrowInvalidTypeConversion() {
  ThrowError(ErrorLevel::kError, __FILE__, __LINE__,
             "$$$/moxcore/utility/Error/InvalidTypeConversion=Invalid type conversion.", false);
}

}  // namespace moxcore::config
