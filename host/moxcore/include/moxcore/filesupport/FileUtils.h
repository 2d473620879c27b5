#pragma once

#include <moxcore/filesupport/Dir.h>
#include <moxcore/string/String.h>

#include <string_view>

namespace moxcore::filesupport::FileUtils {

// Makes the directory and those above it that aren't there, for the user alone. Gives whether it is there
// now; never throws.
bool EnsureDirectoryExists(Utf8String const& path) noexcept;

// Writes a file anew, in place. Throws a mox_exception when not all of it could be written. What must not be
// lost is written through SafeSave.
void SimpleWriteStringToFile(Utf8String const& path, std::string_view text);

// The user's home directory; empty if the system knows none.
Dir GetHomeDirectory();

}  // namespace moxcore::filesupport::FileUtils
