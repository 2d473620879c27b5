#pragma once

#include <moxcore/string/String.h>

#include <any>
#include <cstddef>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

namespace moxcore::serialization {

// JSON (RFC 8259) as trees of std::any. What a value holds:
//
//   object   JSONObject, its keys in ascending order of their bytes
//   array    JSONArray
//   string   Utf8String, well-formed UTF-8
//   number   std::uint64_t from 0 up, std::int64_t below 0; double for all others
//   bool     bool
//   null     nothing: a std::any without a value
//
// Copies of an object or an array share their members. A value of another type than the one asked for makes
// std::any_cast throw std::bad_any_cast, and the functions here as well.
using JSONValue = std::shared_ptr<std::any>;
using JSONArray = std::vector<JSONValue, STLAllocator<JSONValue>>;
using JSONObject =
    std::map<Utf8String, JSONValue, std::less<>, STLAllocator<std::pair<Utf8String const, JSONValue>>>;

// A shared value. A tree of them ends without recursion, however deep it is.
JSONValue MakeJSONValue(std::any value);

// Objects and arrays may lie inside one another to this depth, the outermost being the first.
inline constexpr std::size_t kMaximalJSONDepth = 256;
// Longer texts, of 4 GiB and more, aren't read.
inline constexpr std::size_t kMaximalJSONBytes = 0xfffffffe;

struct JSONLimits {
  // About as many bytes the tree may take in memory, whatever the text's size. Short members take some forty
  // times the bytes of their text.
  std::size_t treeBytes = std::size_t{1} << 30;
};

// Reads one value with white space around it. Null if the text isn't well formed, is no UTF-8 or is beyond a
// limit; a text that is just "null" gives a value that holds nothing. One NUL behind the text may be inside
// the range. Of members with the same key the last one counts. Never throws.
JSONValue JSONParse(void const* bytes, std::size_t length, JSONLimits limits = {}) noexcept;

// What is wrong with a text, and where.
class parse_exception : public std::runtime_error {
 public:
  parse_exception(char const* text, std::size_t offset) : std::runtime_error(text), mOffset(offset) {}
  // In bytes from the beginning of the text.
  std::size_t GetOffset() const noexcept { return mOffset; }

 private:
  std::size_t mOffset;
};

// The same for callers that want to tell of the fault.
JSONValue JSONParseOrThrow(void const* bytes, std::size_t length, JSONLimits limits = {});

// A required member of an object is absent.
class missing_key_exception : public std::runtime_error {
 public:
  explicit missing_key_exception(Utf8String key);
  Utf8String const& GetKey() const noexcept { return mKey; }

 private:
  Utf8String mKey;
};

// The text of a value: members in ascending order of their keys, doubles with the fewest digits that read as
// the same number and always with a point or an exponent. The same value gives the same text, and the text
// reads as the same value, but for whole numbers from 0 up, which are read as std::uint64_t. `pretty` breaks
// the text into lines that are indented by tabs.
//
// Throws std::bad_any_cast for a value that holds a type other than those above (or a null JSONValue), and
// std::invalid_argument for what no text can hold: NaN and infinity, strings that aren't UTF-8, and depths
// beyond kMaximalJSONDepth, such as that of an object inside itself.
Utf8String GetJSONUTF8String(std::any const& value, bool pretty = false);
Utf8String GetJSONString(std::any const& value, bool pretty = false);

// Adds a member to an object; one that is there already is replaced only if `replace` says so. Gives whether
// `value` is in the object now. A `object` that holds nothing becomes an object.
bool AddToObject(std::any& object, Utf8String const& key, JSONValue value, bool replace);
bool AddToObject(std::any& object, Utf8String const& key, std::any value, bool replace);

// Appends to an array; an `array` that holds nothing becomes one.
void AppendToArray(std::any& array, JSONValue value);
void AppendToArray(std::any& array, std::any value);

// Whether `object` is an object that has the member; `ignoreCase` is about the letters of ASCII.
bool ObjectHasProperty(std::any const& object, std::string_view key, bool ignoreCase = false);

// The member, or null if there is none.
JSONValue GetVariantInObject(std::any const& object, std::string_view key);
JSONValue GetVariantInObject(JSONObject const& object, std::string_view key);

// The member; throws missing_key_exception if there is none.
std::any const& GetRequiredInObject(std::any const& object, std::string_view key);

// Converts a type to JSON and back; specialised beside each type:
//   static T FromJSON(std::any const& value);
//   static std::any ToJSON(T const& value);
template <class T>
struct JSONConvert;

}  // namespace moxcore::serialization
