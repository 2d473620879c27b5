#include "DecimalNumber.h"
#include "WellFormedText.h"

#include <moxcore/serialization/JSON.h>

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <optional>

namespace moxcore::serialization {

namespace {

// What a value takes besides its text: the shared std::any and its count, and its place in the parent.
constexpr std::size_t kValueBytes = 64;
constexpr std::size_t kArrayBytes = 64;
constexpr std::size_t kObjectBytes = 80;
constexpr std::size_t kMemberBytes = 112;

// A lone low surrogate is the one thing that escapes can smuggle into UTF-8.
bool HasSurrogate(std::string_view text) noexcept {
  for (auto at = text.find('\xed'); at != std::string_view::npos; at = text.find('\xed', at + 1)) {
    if (at + 1 < text.size() && static_cast<unsigned char>(text[at + 1]) >= 0xa0) {
      return true;
    }
  }
  return false;
}

// Makes the tree out of the reader's events; false ends the reading.
class TreeMaker {
 public:
  explicit TreeMaker(JSONLimits limits) : mBytesLeft(limits.treeBytes) {}

  JSONValue const& Root() const { return mRoot; }
  char const* Fault() const { return mFault; }

  bool Null() { return Add({}, 0); }
  bool Bool(bool value) { return Add(value, 0); }
  bool RawNumber(char const* text, rapidjson::SizeType length, bool) {
    auto number = NumberFromText({text, length});
    return number.has_value() ? Add(std::move(*number), 0) : Fail("a number is too large");
  }
  bool String(char const* text, rapidjson::SizeType length, bool) {
    if (HasSurrogate({text, length})) {
      return Fail("half of a surrogate pair stands alone");
    }
    return Spend(length) && Add(Utf8String(text, length), 0);
  }
  bool Key(char const* text, rapidjson::SizeType length, bool) {
    if (HasSurrogate({text, length})) {
      return Fail("half of a surrogate pair stands alone");
    }
    if (!Spend(kMemberBytes + length)) {
      return false;
    }
    mKeys.emplace_back(text, length);
    return true;
  }
  bool StartObject() { return Open(JSONObject(), kObjectBytes); }
  bool StartArray() { return Open(JSONArray(), kArrayBytes); }
  bool EndObject(rapidjson::SizeType) { return Close(); }
  bool EndArray(rapidjson::SizeType) { return Close(); }

  // Numbers come by their text only.
  bool Int(int) { return false; }
  bool Uint(unsigned) { return false; }
  bool Int64(std::int64_t) { return false; }
  bool Uint64(std::uint64_t) { return false; }
  bool Double(double) { return false; }

 private:
  bool Fail(char const* fault) {
    mFault = fault;
    return false;
  }

  bool Spend(std::size_t bytes) {
    if (bytes > mBytesLeft) {
      return Fail("the value takes too much memory");
    }
    mBytesLeft -= bytes;
    return true;
  }

  bool Add(std::any&& content, std::size_t bytes) {
    if (!Spend(kValueBytes + bytes)) {
      return false;
    }
    auto value = MakeJSONValue(std::move(content));
    mLast = value.get();
    if (mOpen.empty()) {
      mRoot = std::move(value);
    } else if (auto const& container = mOpen.back(); container.array != nullptr) {
      container.array->push_back(std::move(value));
    } else {
      // Texts mostly have their keys in order already.
      container.object->insert_or_assign(container.object->end(), std::move(mKeys.back()), std::move(value));
      mKeys.pop_back();
    }
    return true;
  }

  bool Open(std::any&& container, std::size_t bytes) {
    if (mOpen.size() == kMaximalJSONDepth) {
      return Fail("the value is too deep");
    }
    if (!Add(std::move(container), bytes)) {
      return false;
    }
    mOpen.push_back({std::any_cast<JSONObject>(mLast), std::any_cast<JSONArray>(mLast)});
    return true;
  }

  bool Close() {
    mOpen.pop_back();
    return true;
  }

  // One of both is null.
  struct Container {
    JSONObject* object;
    JSONArray* array;
  };

  JSONValue mRoot;
  // The containers that aren't closed yet, owned by the root.
  std::vector<Container> mOpen;
  // The keys whose values haven't come.
  std::vector<Utf8String> mKeys;
  std::any* mLast = nullptr;
  std::size_t mBytesLeft;
  char const* mFault = nullptr;
};

constexpr unsigned kReading =
    rapidjson::kParseInsituFlag | rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag;

// The fault and its place, if there is one.
std::optional<parse_exception> Read(char const* bytes, std::size_t length, JSONLimits limits,
                                    JSONValue& root) {
  if (length > 0 && bytes[length - 1] == '\0') {
    --length;
  }
  if (length > kMaximalJSONBytes) {
    return parse_exception("the text is too long", 0);
  }
  if (length == 0) {
    return parse_exception("the text is empty", 0);
  }
  if (auto const* const nul = static_cast<char const*>(std::memchr(bytes, 0, length))) {
    return parse_exception("a NUL stands in the text", static_cast<std::size_t>(nul - bytes));
  }
  // The reader's own validation would look behind the end of a text that ends within a character.
  if (auto const wellFormed = WellFormedSize({bytes, length}); wellFormed != length) {
    return parse_exception("the text is no UTF-8", wellFormed);
  }
  // The reader unescapes strings where they stand.
  auto const copy = std::make_unique_for_overwrite<char[]>(length + 1);
  std::memcpy(copy.get(), bytes, length);
  copy[length] = '\0';
  rapidjson::InsituStringStream stream(copy.get());
  rapidjson::Reader reader;
  TreeMaker maker(limits);
  reader.Parse<kReading>(stream, maker);
  if (reader.HasParseError()) {
    auto const* const text =
        maker.Fault() != nullptr ? maker.Fault() : rapidjson::GetParseError_En(reader.GetParseErrorCode());
    return parse_exception(text, std::min(reader.GetErrorOffset(), length));
  }
  root = maker.Root();
  return std::nullopt;
}

}  // namespace

JSONValue JSONParse(void const* bytes, std::size_t length, JSONLimits limits) noexcept {
  try {
    JSONValue root;
    Read(static_cast<char const*>(bytes), length, limits, root);
    return root;
  } catch (std::exception const&) {
    return nullptr;
  }
}

JSONValue JSONParseOrThrow(void const* bytes, std::size_t length, JSONLimits limits) {
  JSONValue root;
  if (auto const fault = Read(static_cast<char const*>(bytes), length, limits, root)) {
    throw *fault;
  }
  return root;
}

}  // namespace moxcore::serialization
