#pragma once

namespace moxmediatypes {

// Wide enough for all sums and products of 64-bit counts that carry over.
__extension__ typedef __int128 WideInteger;  // NOLINT(modernize-use-using): only so is it no warning

}  // namespace moxmediatypes
