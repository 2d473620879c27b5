#pragma once

#include <moxcore/string/String.h>
#include <moxcore/utility/Noncopyable.h>

#include <map>
#include <mutex>
#include <string_view>

namespace moxcore::debug {

// Diagnostic settings of a running program: texts by key, set by tests, by clients or by a debugging console.
// All operations may be called on any thread.
class DebugDatabase : utility::noncopyable {
 public:
  static DebugDatabase& Instance();

  // The entry, or `defaultValue` if there is none.
  Utf8String GetEntry(std::string_view key, std::string_view defaultValue) const;
  void SetEntry(std::string_view key, std::string_view value);
  void RemoveEntry(std::string_view key);

 private:
  mutable std::mutex mMutex;
  std::map<Utf8String, Utf8String, std::less<>> mEntries;
};

}  // namespace moxcore::debug
