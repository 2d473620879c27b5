#pragma once

#include <moxcore/string/String.h>

#include <cstddef>
#include <string_view>

namespace moxappsupport::presets {

// What the file systems in use have in common, in bytes.
inline constexpr std::size_t kLongestFileName = 255;

// A user's text as the beginning of a file name: composed (NFC), without what any file system reserves:
// separators, control characters, wildcards, dots at its ends, names of devices. Never empty.
moxcore::Utf8String SafeStem(moxcore::Utf16String const& text);

// At most `bytes` of a stem that SafeStem gave, cut between characters; empty if there is no room.
moxcore::Utf8String ShortenedStem(moxcore::Utf8String const& stem, std::size_t bytes);

// The same for names that some file system takes for the same: case and normalisation are folded.
moxcore::Utf8String FoldedName(moxcore::Utf8String const& name);

}  // namespace moxappsupport::presets
