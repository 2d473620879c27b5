#include <moxcore/debug/Trace.h>

#include <atomic>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

namespace moxcore::debug {

namespace {

constexpr int kNothing = -1;

int Number(TraceLevel level) {
  return static_cast<int>(level);
}

struct Entry {
  std::string_view name;
  int level;
};

// "name=level", "name", or nothing that can be used.
std::optional<Entry> ParseEntry(std::string_view text) {
  auto const equals = text.find('=');
  Entry entry{text.substr(0, equals), Number(kTraceEverything)};
  if (equals != std::string_view::npos) {
    auto const* const end = text.data() + text.size();
    auto const parsed = std::from_chars(text.data() + equals + 1, end, entry.level);
    if (parsed.ec != std::errc() || parsed.ptr != end || entry.level < 0) {
      return std::nullopt;
    }
  }
  return entry.name.empty() ? std::nullopt : std::optional(entry);
}

// The name of the family that `name` belongs to; empty for one without.
std::string_view Family(std::string_view name) {
  auto const end = name.find_last_of(".:");
  if (end == std::string_view::npos) {
    return {};
  }
  name = name.substr(0, end);
  return name.ends_with(':') ? name.substr(0, end - 1) : name;
}

class Settings {
 public:
  Settings() {
    if (auto const* const list = std::getenv("MOX_TRACE")) {
      Configure(list);
    }
  }

  void Configure(std::string_view list) {
    std::lock_guard const lock(mMutex);
    while (!list.empty()) {
      auto const comma = list.find(',');
      if (auto const entry = ParseEntry(list.substr(0, comma))) {
        mLevels.insert_or_assign(Utf8String(entry->name), entry->level);
      }
      list = comma == std::string_view::npos ? std::string_view() : list.substr(comma + 1);
    }
    Changed();
  }

  void Set(std::string_view name, int level) {
    std::lock_guard const lock(mMutex);
    mLevels.insert_or_assign(Utf8String(name), level);
    Changed();
  }

  void Reset(std::string_view name) {
    std::lock_guard const lock(mMutex);
    if (auto const found = mLevels.find(name); found != mLevels.end()) {
      mLevels.erase(found);
    }
    Changed();
  }

  bool IsEnabled(std::string_view name, int level, bool ownSettingOnly) {
    if (!mAny.load(std::memory_order_relaxed)) {
      return false;
    }
    std::lock_guard const lock(mMutex);
    auto found = mLevels.find(name);
    if (!ownSettingOnly) {
      for (; found == mLevels.end() && !name.empty(); found = mLevels.find(name)) {
        name = Family(name);
      }
      if (found == mLevels.end()) {
        found = mLevels.find("*");
      }
    }
    return found != mLevels.end() && level <= found->second;
  }

  std::uint32_t ChangeCount() const noexcept { return mChangeCount.load(std::memory_order_acquire); }

  TraceSink SetSink(TraceSink sink) {
    auto next = sink ? std::make_shared<TraceSink>(std::move(sink)) : nullptr;
    std::lock_guard const lock(mMutex);
    mSink.swap(next);
    return next != nullptr ? *next : nullptr;
  }

  std::shared_ptr<TraceSink> Sink() {
    std::lock_guard const lock(mMutex);
    return mSink;
  }

 private:
  void Changed() {
    mAny.store(!mLevels.empty(), std::memory_order_relaxed);
    mChangeCount.fetch_add(1, std::memory_order_release);
  }

  std::mutex mMutex;
  std::map<Utf8String, int, std::less<>> mLevels;
  std::shared_ptr<TraceSink> mSink;
  std::atomic<bool> mAny{false};
  std::atomic<std::uint32_t> mChangeCount{0};
};

// Never destroyed: statics trace while they end.
Settings& TheSettings() {
  static auto* const settings = new Settings;
  return *settings;
}

// One write for a line, so that lines of several threads don't mix.
void WriteToStandardError(TraceCategory const& category, std::string_view text) {
  while (text.ends_with('\n') || text.ends_with('\r')) {
    text.remove_suffix(1);
  }
  Utf8String line(category.GetName().AsView());
  line.append(": ").append(text).push_back('\n');
  std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace

void Trace(TraceLevel level, TraceCategory const& category, std::string_view text) {
  if (!TraceEnabled(category, level)) {
    return;
  }
  if (auto const sink = TheSettings().Sink()) {
    (*sink)(level, category, text);
  } else {
    WriteToStandardError(category, text);
  }
}

bool TraceEnabled(TraceCategory const& category, TraceLevel level, bool ownSettingOnly) {
  return TheSettings().IsEnabled(category.GetName().AsView(), Number(level), ownSettingOnly);
}

std::uint32_t TraceChangeCount() noexcept {
  return TheSettings().ChangeCount();
}

void EnableTrace(TraceCategory const& category, TraceLevel upTo) {
  TheSettings().Set(category.GetName().AsView(), Number(upTo));
}

void DisableTrace(TraceCategory const& category) {
  TheSettings().Set(category.GetName().AsView(), kNothing);
}

void ResetTrace(TraceCategory const& category) {
  TheSettings().Reset(category.GetName().AsView());
}

void ConfigureTrace(std::string_view list) {
  TheSettings().Configure(list);
}

TraceSink SetTraceSink(TraceSink sink) {
  return TheSettings().SetSink(std::move(sink));
}

}  // namespace moxcore::debug
