#pragma once

#include "support/ScratchFolder.h"

namespace playground {

using TemporaryFolder = tests::ScratchFolder;

}  // namespace playground
