#pragma once

#include <moxcore/string/String.h>

#include <concepts>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

namespace moxcore::config {

// How grave an error is. A program may go on after all but the last.
enum class ErrorLevel { kNote = 0, kWarning = 1, kError = 2, kFatal = 3 };

// What the host throws. It carries the literal that names the error ($$$/path/key=Default text), its text in
// the language of the moment at which it was thrown, with the values filled in, and where it was thrown.
class mox_exception : public std::exception {
 public:
  mox_exception(ErrorLevel level, char const* file, int line, Utf8String code, bool showToUser,
                Utf8String text);

  // The localised text, UTF-8.
  char const* what() const noexcept override { return mText.c_str(); }

  ErrorLevel GetLevel() const noexcept { return mLevel; }
  Utf8String const& GetCode() const noexcept { return mCode; }
  Utf8String const& GetFile() const noexcept { return mFile; }
  int GetLine() const noexcept { return mLine; }
  // Whether a program that reports errors should show this one, rather than write it to its log only.
  bool ShowToUser() const noexcept { return mShowToUser; }

 private:
  ErrorLevel mLevel;
  int mLine;
  bool mShowToUser;
  Utf8String mFile;
  Utf8String mCode;
  Utf8String mText;
};

Utf8String ErrorValueToText(std::string_view value);
Utf8String ErrorValueToText(double value);
template <std::integral T>
Utf8String ErrorValueToText(T value) {
  auto const text = std::to_string(value);
  return Utf8String(text.begin(), text.end());
}

[[noreturn]] void ThrowErrorWithTexts(ErrorLevel level, char const* file, int line, Utf8String const& code,
                                      bool showToUser, std::vector<Utf8String> const& values);

// Throws a mox_exception whose text is `code` looked up in the localizer, with the values, which are texts or
// numbers, in the places @0, @1 and so on.
template <class... Values>
[[noreturn]] void ThrowError(ErrorLevel level, char const* file, int line, Utf8String const& code,
                             bool showToUser, Values const&... values) {
  ThrowErrorWithTexts(level, file, line, code, showToUser, {ErrorValueToText(values)...});
}

// Throws the error of a null smart pointer that was used; the name of its type is in the text.
[[noreturn]] void DoThrowNullPtrException(Utf8String const& typeName);

// Throws "Invalid type conversion.": an object isn't of the type that a cast required.
[[noreturn]] void ThrowInvalidTypeConversion();

}  // namespace moxcore::config
