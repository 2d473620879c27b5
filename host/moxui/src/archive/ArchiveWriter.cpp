#include "ArchiveWords.h"

#include <moxui/archive/UINodeArchive.h>

#include <algorithm>
#include <array>
#include <charconv>

namespace moxui::archive {

namespace {

using Text = moxcore::Utf8String;

void AppendEscaped(Text& out, std::string_view text) {
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
