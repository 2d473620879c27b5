#include <moxcore/debug/DebugDatabase.h>

namespace moxcore::debug {

DebugDatabase& DebugDatabase::Instance() {
  static auto* const database = new DebugDatabase;
  return *database;
}

Utf8String DebugDatabase::GetEntry(std::string_view key, std::string_view defaultValue) const {
  std::lock_guard const lock(mMutex);
  auto const found = mEntries.find(key);
  return found != mEntries.end() ? found->second : Utf8String(defaultValue);
}

void DebugDatabase::SetEntry(std::string_view key, std::string_view value) {
  std::lock_guard const lock(mMutex);
  mEntries.insert_or_assign(Utf8String(key), Utf8String(value));
}

void DebugDatabase::RemoveEntry(std::string_view key) {
  std::lock_guard const lock(mMutex);
  if (auto const found = mEntries.find(key); found != mEntries.end()) {
    mEntries.erase(found);
  }
}

}  // namespace moxcore::debug
