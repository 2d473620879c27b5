#pragma once

#include <moxcore/string/ImmutableString.h>

#include <cstdint>
#include <functional>
#include <string_view>

namespace moxcore::debug {

// How detailed a trace is, from 0, the gravest, upwards. A category that is enabled for a level lets that
// level and all below it through.
enum class TraceLevel : int {};
inline constexpr TraceLevel kTraceEverything{9};

// What a trace is about. Names form families by "." and "::": what is set for "moxcore" holds for
// "moxcore.presets" too unless that has a setting of its own, and what is set for "*" holds for all.
class TraceCategory {
 public:
  explicit TraceCategory(std::string_view name) : mName(ImmutableString::Create(name)) {}
  ImmutableString GetName() const noexcept { return mName; }
  friend bool operator==(TraceCategory const&, TraceCategory const&) noexcept = default;

 private:
  ImmutableString mName;
};

// Everything here may be called on any thread. At the start nothing is enabled but what the environment
// variable MOX_TRACE says, a list such as "moxcore.presets=2,ColorDrawUtils=8"; a name without a level
// enables all of them.

// Writes a text to the channel if its category and level are enabled.
void Trace(TraceLevel level, TraceCategory const& category, std::string_view text);

// Whether Trace would write; with `ownSettingOnly` families and "*" don't count. A caller that asks often
// keeps the answer and asks again when TraceChangeCount has moved.
bool TraceEnabled(TraceCategory const& category, TraceLevel level, bool ownSettingOnly = false);
std::uint32_t TraceChangeCount() noexcept;

void EnableTrace(TraceCategory const& category, TraceLevel upTo = kTraceEverything);
// Shuts a category, whatever is set for its family.
void DisableTrace(TraceCategory const& category);
// Takes the category's setting back.
void ResetTrace(TraceCategory const& category);
// Applies a list of the form of MOX_TRACE; entries that aren't well formed are passed over.
void ConfigureTrace(std::string_view list);

using TraceSink = std::function<void(TraceLevel, TraceCategory const&, std::string_view text)>;
// Sets who gets the texts, on the tracing thread, and gives who got them before. An empty sink stands for the
// standard one, which writes lines "category: text" to the standard error stream.
TraceSink SetTraceSink(TraceSink sink);

}  // namespace moxcore::debug
