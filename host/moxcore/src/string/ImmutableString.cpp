#include <moxcore/string/ImmutableString.h>

#include <array>
#include <cstring>
#include <mutex>
#include <new>
#include <unordered_set>

namespace moxcore {

// One interned text: its size and, behind it in the same block, its bytes and a NUL.
struct ImmutableString::Entry {
  std::size_t size;

  char const* Text() const noexcept { return reinterpret_cast<char const*>(this + 1); }
  std::string_view View() const noexcept { return {Text(), size}; }
};

namespace {

using Entry = ImmutableString::Entry;

struct HashText {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const noexcept { return std::hash<std::string_view>()(text); }
  std::size_t operator()(Entry const* entry) const noexcept { return (*this)(entry->View()); }
};

struct EqualText {
  using is_transparent = void;
  static std::string_view View(std::string_view text) noexcept { return text; }
  static std::string_view View(Entry const* entry) noexcept { return entry->View(); }
  template <class A, class B>
  bool operator()(A const& a, B const& b) const noexcept {
    return View(a) == View(b);
  }
};

// A part of the pool with a lock of its own, so that threads seldom meet.
struct Shard {
  std::mutex mutex;
  std::unordered_set<Entry const*, HashText, EqualText> entries;
};

using Pool = std::array<Shard, 16>;

// Made at the first use, which may come from any unit's static initialisation, and never destroyed, since
// interned texts are used while statics end.
Pool& ThePool() {
  static auto* const pool = new Pool;
  return *pool;
}

Entry const* NewEntry(std::string_view text) {
  auto* const block = static_cast<char*>(AllocateOnHostHeap(sizeof(Entry) + text.size() + 1));
  auto* const entry = new (block) Entry{text.size()};
  std::memcpy(block + sizeof(Entry), text.data(), text.size());
  block[sizeof(Entry) + text.size()] = '\0';
  return entry;
}

}  // namespace

ImmutableString ImmutableString::Create(std::string_view text) {
  if (text.empty()) {
    return ImmutableString();
  }
  // The set uses the hash's low bits.
  auto& shard = ThePool()[HashText()(text) >> 32 & 15];
  std::lock_guard const lock(shard.mutex);
  auto found = shard.entries.find(text);
  if (found == shard.entries.end()) {
    found = shard.entries.insert(NewEntry(text)).first;
  }
  return ImmutableString(*found);
}

ImmutableString ImmutableString::_PrivateCreateStatic(char const* text) {
  return Create(text);
}

std::string_view ImmutableString::AsView() const noexcept {
  return mEntry != nullptr ? mEntry->View() : "";
}

char const* ImmutableString::data() const noexcept {
  return AsView().data();
}

}  // namespace moxcore
