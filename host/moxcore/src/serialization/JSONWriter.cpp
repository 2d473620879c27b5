#include "DecimalNumber.h"
#include "WellFormedText.h"

#include <moxcore/serialization/JSON.h>
#include <moxcore/string/NumberText.h>

#include <cmath>
#include <cstdint>
#include <variant>

namespace moxcore::serialization {

namespace {

void AppendEscaped(Utf8String& text, char unit) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  constexpr std::string_view kNamed = "\"\\\b\f\n\r\t";
  constexpr std::string_view kNames = "\"\\bfnrt";
  text.push_back('\\');
  if (auto const named = kNamed.find(unit); named != std::string_view::npos) {
    text.push_back(kNames[named]);
    return;
  }
  text.append("u00");
  text.push_back(kDigits[static_cast<unsigned char>(unit) >> 4]);
  text.push_back(kDigits[static_cast<unsigned char>(unit) & 15]);
}

// Writes a tree without recursion: an open container is a frame that knows its next member.
class Writer {
 public:
  explicit Writer(bool pretty) : mPretty(pretty) {}

  Utf8String Text(std::any const& root) {
    Value(root);
    while (!mOpen.empty()) {
      std::visit([&](auto& frame) { Next(frame); }, mOpen.back());
    }
    return std::move(mText);
  }

 private:
  template <class Container, char kOpening, char kClosing>
  struct Frame {
    explicit Frame(Container const& members) : next(members.begin()), end(members.end()) {}
    static constexpr char kBegin = kOpening;
    static constexpr char kEnd = kClosing;
    typename Container::const_iterator next;
    typename Container::const_iterator end;
    bool isFirst = true;
  };
  using ObjectFrame = Frame<JSONObject, '{', '}'>;
  using ArrayFrame = Frame<JSONArray, '[', ']'>;

  template <class AnyFrame>
  void Open(AnyFrame const& frame) {
    if (mOpen.size() == kMaximalJSONDepth) {
      throw std::invalid_argument("the value is too deep for JSON");
    }
    mText.push_back(AnyFrame::kBegin);
    mOpen.emplace_back(frame);
  }

  template <class AnyFrame>
  void Next(AnyFrame& frame) {
    if (frame.next == frame.end) {
      auto const wasEmpty = frame.isFirst;
      mOpen.pop_back();
      if (!wasEmpty) {
        Line();
      }
      mText.push_back(AnyFrame::kEnd);
      return;
    }
    if (!std::exchange(frame.isFirst, false)) {
      mText.push_back(',');
    }
    Line();
    // The frame may move once its member opens another.
    Member(*frame.next++);
  }

  void Member(JSONArray::value_type const& element) { Shared(element); }
  void Member(JSONObject::value_type const& member) {
    String(member.first);
    mText.append(mPretty ? ": " : ":");
    Shared(member.second);
  }

  void Shared(JSONValue const& value) {
    if (value == nullptr) {
      throw std::bad_any_cast();
    }
    Value(*value);
  }

  void Value(std::any const& value) {
    if (!value.has_value()) {
      mText.append("null");
    } else if (auto const* const string = std::any_cast<Utf8String>(&value)) {
      String(*string);
    } else if (auto const* const object = std::any_cast<JSONObject>(&value)) {
      Open(ObjectFrame(*object));
    } else if (auto const* const array = std::any_cast<JSONArray>(&value)) {
      Open(ArrayFrame(*array));
    } else if (auto const* const truth = std::any_cast<bool>(&value)) {
      mText.append(*truth ? "true" : "false");
    } else {
      Number(value);
    }
  }

  void Number(std::any const& value) {
    if (auto const* const whole = std::any_cast<std::uint64_t>(&value)) {
      Whole(*whole);
    } else if (auto const* const negative = std::any_cast<std::int64_t>(&value)) {
      if (*negative < 0) {
        mText.push_back('-');
      }
      auto const bits = static_cast<std::uint64_t>(*negative);
      Whole(*negative < 0 ? 0 - bits : bits);
    } else {
      auto const real = std::any_cast<double>(value);
      if (!std::isfinite(real)) {
        throw std::invalid_argument("JSON has no such number");
      }
      AppendDouble(mText, real);
    }
  }

  void Whole(std::uint64_t value) {
    char digits[string::kUInt64TextSize];
    mText.append(digits, string::ConvertUInt64ToBufferT(value, digits));
  }

  void String(std::string_view text) {
    if (WellFormedSize(text) != text.size()) {
      throw std::invalid_argument("a string is no UTF-8");
    }
    mText.push_back('"');
    std::size_t plain = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] == '"' || text[i] == '\\' || static_cast<unsigned char>(text[i]) < 0x20) {
        mText.append(text.substr(plain, i - plain));
        AppendEscaped(mText, text[i]);
        plain = i + 1;
      }
    }
    mText.append(text.substr(plain));
    mText.push_back('"');
  }

  void Line() {
    if (mPretty) {
      mText.push_back('\n');
      mText.append(mOpen.size(), '\t');
    }
  }

  bool mPretty;
  Utf8String mText;
  std::vector<std::variant<ObjectFrame, ArrayFrame>> mOpen;
};

}  // namespace

Utf8String GetJSONUTF8String(std::any const& value, bool pretty) {
  return Writer(pretty).Text(value);
}

Utf8String GetJSONString(std::any const& value, bool pretty) {
  return GetJSONUTF8String(value, pretty);
}

}  // namespace moxcore::serialization
