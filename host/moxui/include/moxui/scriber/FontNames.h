#pragma once

#include <moxcore/string/String.h>

#include <string_view>

namespace moxui::utils {

/// The family that all interface text is set in.
inline constexpr std::string_view kHouseFontName = "Open Sans";

/// The name of a font family that exists: `name` itself if it does, else the house font, or, where even that
/// isn't installed, the family that the platform takes for its own interface.
moxcore::Utf8String ValidateFontName(std::string_view name);

}  // namespace moxui::utils
