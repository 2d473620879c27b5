#pragma once

#include "TextRules.h"

#include <filesystem>
#include <string>

namespace repository {

// Below `folder`, as `commands` (the text of a compile_commands.json) compiles it, arithmetic rounds as it is
// written: with -ffp-contract=off and without any option that lets the compiler change results. A complaint
// is "FILE: OPTION"; no command at all is one, too.
Complaints InexactArithmetic(const std::string& commands, const std::filesystem::path& folder);

}  // namespace repository
