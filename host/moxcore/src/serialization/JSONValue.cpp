#include <moxcore/serialization/JSON.h>

#include <algorithm>
#include <exception>
#include <typeinfo>

namespace moxcore::serialization {

namespace {

// Values whose last reference went while another value ended on this thread: they end after it.
thread_local std::vector<std::any>* tEnding = nullptr;

void EndWithoutRecursion(std::any& value) noexcept {
  if (value.type() != typeid(JSONObject) && value.type() != typeid(JSONArray)) {
    return;
  }
  if (tEnding != nullptr) {
    try {
      tEnding->push_back(std::move(value));
    } catch (std::exception const&) {
      // Out of memory: it ends within the other after all.
      value.reset();
    }
    return;
  }
  std::vector<std::any> ending;
  tEnding = &ending;
  value.reset();
  while (!ending.empty()) {
    auto const next = std::move(ending.back());
    ending.pop_back();
  }
  tEnding = nullptr;
}

// Allocates as the host's containers do, and ends trees its own way.
template <class T>
struct TreeAllocator : STLAllocator<T> {
  TreeAllocator() noexcept = default;
  template <class U>
  TreeAllocator(TreeAllocator<U> const&) noexcept {}
  template <class U>
  struct rebind {
    using other = TreeAllocator<U>;
  };

  void destroy(std::any* value) noexcept {
    EndWithoutRecursion(*value);
    std::destroy_at(value);
  }
};

template <class Container>
Container& ContainerIn(std::any& value) {
  if (!value.has_value()) {
    value = Container();
  }
  return std::any_cast<Container&>(value);
}

char AsciiLower(char letter) noexcept {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool EqualButForCase(std::string_view a, std::string_view b) noexcept {
  return std::ranges::equal(a, b, {}, AsciiLower, AsciiLower);
}

}  // namespace

missing_key_exception::missing_key_exception(Utf8String key)
    : std::runtime_error("missing key: " + std::string(key.begin(), key.end())), mKey(std::move(key)) {}

JSONValue MakeJSONValue(std::any value) {
  return std::allocate_shared<std::any>(TreeAllocator<std::any>(), std::move(value));
}

bool AddToObject(std::any& object, Utf8String const& key, JSONValue value, bool replace) {
  auto& members = ContainerIn<JSONObject>(object);
  if (replace) {
    members.insert_or_assign(key, std::move(value));
    return true;
  }
  return members.try_emplace(key, std::move(value)).second;
}

bool AddToObject(std::any& object, Utf8String const& key, std::any value, bool replace) {
  return AddToObject(object, key, MakeJSONValue(std::move(value)), replace);
}

void AppendToArray(std::any& array, JSONValue value) {
  ContainerIn<JSONArray>(array).push_back(std::move(value));
}

void AppendToArray(std::any& array, std::any value) {
  AppendToArray(array, MakeJSONValue(std::move(value)));
}

bool ObjectHasProperty(std::any const& object, std::string_view key, bool ignoreCase) {
  auto const* const members = std::any_cast<JSONObject>(&object);
  if (members == nullptr) {
    return false;
  }
  if (!ignoreCase) {
    return members->contains(key);
  }
  return std::ranges::any_of(*members,
                             [&](auto const& member) { return EqualButForCase(member.first, key); });
}

JSONValue GetVariantInObject(JSONObject const& object, std::string_view key) {
  auto const member = object.find(key);
  return member == object.end() ? nullptr : member->second;
}

JSONValue GetVariantInObject(std::any const& object, std::string_view key) {
  return GetVariantInObject(std::any_cast<JSONObject const&>(object), key);
}

std::any const& GetRequiredInObject(std::any const& object, std::string_view key) {
  auto const& members = std::any_cast<JSONObject const&>(object);
  auto const member = members.find(key);
  if (member == members.end() || member->second == nullptr) {
    throw missing_key_exception(Utf8String(key));
  }
  return *member->second;
}

}  // namespace moxcore::serialization
