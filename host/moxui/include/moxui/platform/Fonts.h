#pragma once

#include <moxcore/string/String.h>

#include <vector>

namespace moxui::platform {

/// Whether text can be drawn at all. Without any font installed drawing shows none, without an error: a
/// program asks this at its start and says so. Needs an Application.
bool FontsAvailable();
/// The family that the interface is set in, and all that are installed, by name.
moxcore::Utf8String GetHouseFontName();
std::vector<moxcore::Utf8String> GetFontFamilies();

}  // namespace moxui::platform
