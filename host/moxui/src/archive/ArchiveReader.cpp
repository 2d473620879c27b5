#include "ArchiveWords.h"

#include <moxcore/config/Errors.h>
#include <moxui/archive/UINodeArchive.h>

#include <expat.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <system_error>
#include <utility>

namespace moxui::archive {

void ThrowArchiveError(moxcore::Utf8String const& problem, int line, std::string_view subject) {
  moxcore::config::ThrowError(moxcore::config::ErrorLevel::kError, __FILE__, __LINE__, problem, true, line,
                              subject);
}

namespace {

constexpr std::size_t kLongestSubject = 80;  // of a document's own text in an error

bool IsSpace(char unit) {
  return unit == ' ' || unit == '\t' || unit == '\n' || unit == '\r';
}

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsSpace(text.front())) {
    text.remove_prefix(1);
  }
  while (!text.empty() && IsSpace(text.back())) {
    text.remove_suffix(1);
  }
  return text;
}

/// Nothing unless the text is a number of that type and nothing else; real numbers are finite.
template <typename T>
std::optional<T> NumberFrom(std::string_view text) {
  T number{};
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) {
    return std::nullopt;
  }
  if constexpr (std::is_floating_point_v<T>) {
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
  } else {
    return number;
  }
}

/// An element that has begun and not yet ended.
struct Open {
  Element element = Element::kMap;
  int line = 0;
  bool isUnsigned = false;             ///< of an integer
  bool hasKey = false;                 ///< of a pair
  std::optional<ValueKind> kind = {};  ///< of an array: that of its elements
  moxcore::Utf8String key = {};        ///< of a pair
  Object members = {};
  Array values = {};  ///< of an array; of a pair and of the outermost element: at most one
};

class Reader {
 public:
  explicit Reader(std::string_view bytes) : mBytes(bytes), mParser(XML_ParserCreate(nullptr)) {
    if (!mParser) {
      throw std::bad_alloc();
    }
  }

  Value Read() {
    XML_SetUserData(mParser.get(), this);
    XML_SetElementHandler(mParser.get(), &Reader::OnStart, &Reader::OnEnd);
    XML_SetCharacterDataHandler(mParser.get(), &Reader::OnText);
    XML_SetStartDoctypeDeclHandler(mParser.get(), &Reader::OnDocumentType);
    auto const status = XML_Parse(mParser.get(), mBytes.data(), static_cast<int>(mBytes.size()), XML_TRUE);
    if (mThrown) {
      std::rethrow_exception(mThrown);
    }
    if (status != XML_STATUS_OK) {
      ThrowArchiveError("$$$/moxui/Archive/Error/XML=View archive, line @0: this is no XML (@1).",
                        static_cast<int>(XML_GetCurrentLineNumber(mParser.get())),
                        XML_ErrorString(XML_GetErrorCode(mParser.get())));
    }
    return std::move(mResult);
  }

 private:
  static Reader& Self(void* data) { return *static_cast<Reader*>(data); }

  static void XMLCALL OnStart(void* data, XML_Char const* name, XML_Char const** attributes) {
    Self(data).Guarded([&](Reader& reader) { reader.Begin(name, attributes); });
  }
  static void XMLCALL OnEnd(void* data, XML_Char const*) {
    Self(data).Guarded([](Reader& reader) { reader.End(); });
  }
  static void XMLCALL OnText(void* data, XML_Char const* text, int length) {
    Self(data).Guarded([&](Reader& reader) { reader.Text({text, static_cast<std::size_t>(length)}); });
  }
  static void XMLCALL OnDocumentType(void* data, XML_Char const*, XML_Char const*, XML_Char const*, int) {
    Self(data).Guarded([](Reader& reader) {
      ThrowArchiveError(
          "$$$/moxui/Archive/Error/DocumentType=View archive, line @0: a document type isn't allowed.",
          reader.Line());
    });
  }

  /// The parser is C: nothing may be thrown through it.
  template <typename Work>
  void Guarded(Work work) {
    if (mThrown) {
      return;
    }
    try {
      work(*this);
    } catch (...) {
      mThrown = std::current_exception();
      XML_StopParser(mParser.get(), XML_FALSE);
    }
  }

  /// Of what the parser is at: lines are counted on from the last time.
  int Line() {
    auto const place =
        static_cast<std::size_t>(std::max<XML_Index>(XML_GetCurrentByteIndex(mParser.get()), 0));
    std::size_t const end = std::min(place, mBytes.size());
    if (end > mCounted) {
      mLine += static_cast<int>(std::count(mBytes.begin() + static_cast<std::ptrdiff_t>(mCounted),
                                           mBytes.begin() + static_cast<std::ptrdiff_t>(end), '\n'));
      mCounted = end;
    }
    return mLine;
  }

  [[noreturn]] void Misplaced(std::string_view what) {
    ThrowArchiveError("$$$/moxui/Archive/Error/Element=View archive, line @0: “@1” has no place here.",
                      Line(), what.substr(0, kLongestSubject));
  }

  void Begin(char const* name, char const** attributes) {
    int const line = Line();
    if (++mElements > kMaximalArchiveElements) {
      ThrowArchiveError(
          "$$$/moxui/Archive/Error/Elements=View archive, line @0: there are too many elements.", line);
    }
    if (mOpen.size() >= static_cast<std::size_t>(kMaximalArchiveDepth)) {
      ThrowArchiveError(
          "$$$/moxui/Archive/Error/Depth=View archive, line @0: elements are nested too deeply.", line);
    }
    auto const element = ElementOf(name);
    if (!element || !MayBegin(*element)) {
      Misplaced(name);
    }
    Open open;
    open.element = *element;
    open.line = line;
    ReadAttributes(open, attributes);
    mOpen.push_back(std::move(open));
    mText.clear();
  }

  bool MayBegin(Element element) const {
    if (mOpen.empty()) {
      return element == Element::kMap;
    }
    bool const isValue = element != Element::kMap && element != Element::kPair && element != Element::kKey &&
                         element != Element::kArrayType;
    Open const& parent = mOpen.back();
    switch (parent.element) {
      case Element::kMap:
        return element == Element::kList && parent.values.empty();
      case Element::kList:
        return element == Element::kPair;
      case Element::kPair:
        return parent.hasKey ? isValue && parent.values.empty() : element == Element::kKey;
      case Element::kArray:
        return parent.kind ? isValue : element == Element::kArrayType;
      default:
        return false;
    }
  }

  void ReadAttributes(Open& open, char const** attributes) {
    int count = 0;
    for (char const** attribute = attributes; *attribute != nullptr; attribute += 2) {
      if (++count > kMaximalArchiveAttributes) {
        ThrowArchiveError(
            "$$$/moxui/Archive/Error/Attributes=View archive, line @0: there are too many attributes.",
            open.line);
      }
      ReadAttribute(open, attribute[0], attribute[1]);
    }
    if (open.element == Element::kMap && count == 0) {
      WrongVersion(open.line, "");
    }
  }

  [[noreturn]] static void WrongVersion(int line, std::string_view version) {
    ThrowArchiveError("$$$/moxui/Archive/Error/Version=View archive, line @0: version “@1” isn't known.",
                      line, version.substr(0, kLongestSubject));
  }

  static void ReadAttribute(Open& open, std::string_view name, std::string_view value) {
    if (open.element == Element::kMap && name == "version") {
      if (value != kVersion) {
        WrongVersion(open.line, value);
      }
      return;
    }
    bool const isInteger = open.element == Element::kInteger;
    bool const isKnown = isInteger && ((name == "type" && (value == "signed" || value == "unsigned")) ||
                                       (name == "size" && value == "32"));
    if (!isKnown) {
      ThrowArchiveError(
          "$$$/moxui/Archive/Error/Attribute=View archive, line @0: the attribute “@1” is wrong.", open.line,
          name.substr(0, kLongestSubject));
    }
    open.isUnsigned = open.isUnsigned || value == "unsigned";
  }

  void Text(std::string_view text) {
    if (!mOpen.empty()) {
      switch (mOpen.back().element) {
        case Element::kKey:
        case Element::kInteger:
        case Element::kFloat:
        case Element::kDouble:
        case Element::kNarrowText:
        case Element::kWideText:
        case Element::kArrayType:
          mText += text;
          return;
        default:
          break;
      }
    }
    if (!std::ranges::all_of(text, IsSpace)) {
      Misplaced(Trimmed(text));
    }
  }

  void End() {
    Open ended = std::move(mOpen.back());
    mOpen.pop_back();
    switch (ended.element) {
      case Element::kMap:
        Finish(ended);
        return;
      case Element::kPair:
        EndPair(ended);
        return;
      case Element::kKey:
        mOpen.back().key = mText;
        mOpen.back().hasKey = true;
        return;
      case Element::kArrayType:
        EndArrayType();
        return;
      default:
        break;
    }
    Value value = ValueFrom(ended);
    value.SetLine(ended.line);
    AddToParent(std::move(value));
  }

  void EndPair(Open& pair) {
#ifndef MOX_SEEDED_BUG
    if (pair.values.empty()) {
      ThrowArchiveError("$$$/moxui/Archive/Error/Pair=View archive, line @0: a pair needs a key and a value.",
                        pair.line);
    }
#endif
    mOpen.back().members.push_back({std::move(pair.key), std::move(pair.values.front())});
  }

  void EndArrayType() {
    std::string_view const word = Trimmed(mText);
    auto const* const found =
        std::ranges::find(kElementKinds, word, &std::pair<std::string_view, ValueKind>::first);
    if (found == kElementKinds.end()) {
      Misplaced(word);
    }
    mOpen.back().kind = found->second;
  }

  void AddToParent(Value value) {
    Open& parent = mOpen.back();
    if (parent.element == Element::kArray && value.GetKind() != *parent.kind) {
      ThrowArchiveError(
          "$$$/moxui/Archive/Error/ArrayType=View archive, line @0: the value isn't of its array's type.",
          value.GetLine());
    }
    parent.values.push_back(std::move(value));
  }

  Value ValueFrom(Open& ended) {
    switch (ended.element) {
      case Element::kList:
        RequireDifferentKeys(ended.members);
        return Value::OfObject(std::move(ended.members));
      case Element::kArray:
        if (!ended.kind) {
          Misplaced("array");
        }
        return Value::OfArray(*ended.kind, std::move(ended.values));
      case Element::kInteger:
        return ended.isUnsigned ? Value::OfUnsigned(Number<std::uint32_t>(ended))
                                : Value::OfSigned(Number<std::int32_t>(ended));
      case Element::kFloat:
        return Value::OfFloat(Number<float>(ended));
      case Element::kDouble:
        return Value::OfDouble(Number<double>(ended));
      case Element::kNarrowText:
        return Value::OfNarrowText(mText);
      case Element::kWideText:
        return Value::OfWideText(mText);
      default:
        return Value::OfBoolean(ended.element == Element::kTrue);
    }
  }

  template <typename T>
  T Number(Open const& ended) const {
    std::string_view const text = Trimmed(mText);
    auto const number = NumberFrom<T>(text);
    if (!number) {
      ThrowArchiveError("$$$/moxui/Archive/Error/Number=View archive, line @0: “@1” is no such number.",
                        ended.line, text.substr(0, kLongestSubject));
    }
    return *number;
  }

  static void RequireDifferentKeys(Object const& members) {
    std::vector<Member const*> sorted(members.size());
    std::ranges::transform(members, sorted.begin(), [](Member const& member) { return &member; });
    std::ranges::sort(
        sorted, {}, [](Member const* member) -> auto const& { return member->key; });
    auto const twin = std::ranges::adjacent_find(
        sorted, {}, [](Member const* member) -> auto const& { return member->key; });
    if (twin != sorted.end()) {
      Member const* const second = std::max(*twin, *std::next(twin));
      ThrowArchiveError("$$$/moxui/Archive/Error/Key=View archive, line @0: there are two keys “@1”.",
                        second->value.GetLine(), std::string_view(second->key).substr(0, kLongestSubject));
    }
  }

  void Finish(Open& map) {
    if (!map.values.empty()) {
      mResult = std::move(map.values.front());
    }
    Value const* const format = mResult.Find(kArchiveKey);
    if (format == nullptr || !format->IsInteger() || format->GetInteger() != 1) {
      ThrowArchiveError("$$$/moxui/Archive/Error/Format=View archive, line @0: this is no view archive.",
                        map.line);
    }
    Value const* const root = mResult.Find(kRootKey);
    if (root == nullptr || root->GetKind() != ValueKind::kObject) {
      ThrowArchiveError("$$$/moxui/Archive/Error/Root=View archive, line @0: there is no root.", map.line);
    }
  }

  struct Free {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
  };

  std::string_view mBytes;
  std::unique_ptr<std::remove_pointer_t<XML_Parser>, Free> mParser;
  std::vector<Open> mOpen;
  moxcore::Utf8String mText;
  Value mResult;
  std::exception_ptr mThrown;
  std::size_t mElements = 0;
  std::size_t mCounted = 0;
  int mLine = 1;
};

}  // namespace

Value ReadArchive(std::string_view bytes) {
  if (bytes.size() > kMaximalArchiveBytes) {
    ThrowArchiveError("$$$/moxui/Archive/Error/Bytes=View archive, line @0: it is too large.", 1);
  }
  return Reader(bytes).Read();
}

}  // namespace moxui::archive
