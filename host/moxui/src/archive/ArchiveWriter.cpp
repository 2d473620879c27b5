#include "ArchiveWords.h"

#include <moxcore/string/Encoding.h>
#include <moxui/archive/UINodeArchive.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <type_traits>

namespace moxui::archive {

namespace {

using Text = moxcore::Utf8String;

[[noreturn]] void Refuse(std::string_view subject) {
  ThrowArchiveError("$$$/moxui/Archive/Error/Unwritable=View archive: “@1” can't be written.", 0, subject);
}

/// What no XML document can hold, escaped or not.
bool IsUnwritable(char32_t character) {
  bool const isControl = character < 0x20 && character != '\t' && character != '\n' && character != '\r';
  return isControl || character == 0xfffe || character == 0xffff;
}

void RequireWritable(std::string_view text) {
  constexpr std::string_view kReplacement = "\xef\xbf\xbd";
  for (std::size_t position = 0; position < text.size();) {
    std::size_t const begin = position;
    char32_t const character = moxcore::string::NextCharacter(text, position);
    bool const isBroken = character == moxcore::string::kReplacementCharacter &&
                          text.substr(begin, position - begin) != kReplacement;
    if (isBroken || IsUnwritable(character)) {
      Refuse(text.substr(0, begin));
    }
  }
}

void AppendEscaped(Text& out, std::string_view text) {
  RequireWritable(text);
  for (char const unit : text) {
    switch (unit) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '\r':
        out += "&#13;";  // a reader takes a bare one for a line feed
        break;
      default:
        out += unit;
    }
  }
}

template <typename T>
void AppendNumber(Text& out, T number) {
  if constexpr (std::is_floating_point_v<T>) {
    if (!std::isfinite(number)) {
      Refuse(std::isnan(number) ? "nan" : "inf");
    }
  }
  std::array<char, 32> digits{};
  auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  out.append(digits.data(), end);
}

class Writer {
 public:
  Text Write(Value const& archive) {
    mOut = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<prop.map version='";
    mOut += kVersion;
    mOut += "'>\n";
    Append(archive);
    mOut += "</prop.map>\n";
    return std::move(mOut);
  }

 private:
  void Append(Value const& value) {
    switch (value.GetKind()) {
      case ValueKind::kObject:
        AppendObject(value.GetMembers());
        return;
      case ValueKind::kArray:
        AppendArray(value);
        return;
      case ValueKind::kSigned:
        AppendInteger("signed", value);
        return;
      case ValueKind::kUnsigned:
        AppendInteger("unsigned", value);
        return;
      case ValueKind::kFloat:
        mOut += "<float>";
        AppendNumber(mOut, static_cast<float>(value.GetNumber()));
        mOut += "</float>\n";
        return;
      case ValueKind::kDouble:
        mOut += "<double>";
        AppendNumber(mOut, value.GetNumber());
        mOut += "</double>\n";
        return;
      case ValueKind::kBoolean:
        mOut += value.GetBoolean() ? "<true/>\n" : "<false/>\n";
        return;
      case ValueKind::kNarrowText:
        AppendText("string", value);
        return;
      case ValueKind::kWideText:
        AppendText("ustring", value);
        return;
    }
  }

  void AppendObject(Object const& members) {
    mOut += "<prop.list>\n";
    for (Member const& member : members) {
      mOut += "<prop.pair>\n<key>";
      AppendEscaped(mOut, member.key);
      mOut += "</key>\n";
      Append(member.value);
      mOut += "</prop.pair>\n";
    }
    mOut += "</prop.list>\n";
  }

  void AppendArray(Value const& array) {
    auto const* const kind = std::ranges::find(kElementKinds, array.GetElementKind(),
                                               &std::pair<std::string_view, ValueKind>::second);
    mOut += "<array>\n<array.type>";
    mOut += kind->first;
    mOut += "</array.type>\n";
    for (Value const& element : array.GetElements()) {
      Append(element);
    }
    mOut += "</array>\n";
  }

  void AppendInteger(std::string_view type, Value const& value) {
    mOut += "<int type='";
    mOut += type;
    mOut += "' size='32'>";
    AppendNumber(mOut, value.GetInteger());
    mOut += "</int>\n";
  }

  void AppendText(std::string_view element, Value const& value) {
    mOut += '<';
    mOut += element;
    mOut += '>';
    AppendEscaped(mOut, value.GetText());
    mOut += "</";
    mOut += element;
    mOut += ">\n";
  }

  Text mOut;
};

}  // namespace

Text WriteArchive(Value const& archive) {
  return Writer().Write(archive);
}

}  // namespace moxui::archive
