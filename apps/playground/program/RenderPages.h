#pragma once

#include <functional>
#include <optional>
#include <string>

namespace playground {

struct ProgramState;

// Size of the pictures in logical pixels.
inline constexpr int kPictureWidth = 1600;
inline constexpr int kPictureHeight = 1000;

// Writes a picture of each state of one page, or of all, into a folder, which is made if need be:
// page-state.png, and for each further sound that is open audio-2-state.png and so on. Gives the reason when
// a file couldn't be written.
std::optional<std::string> RenderPages(ProgramState& state, std::string const& directory,
                                       std::optional<std::size_t> onlyPage);

}  // namespace playground
