#pragma once

#include "playback/SourceWalk.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace playground {

// The blocks that a walk is going to come through, each once, in the order of its coming: at most `count`,
// fewer where it ends or goes round before.
std::vector<std::int64_t> BlocksAhead(SourceWalk const& walk, std::size_t count);

}  // namespace playground
