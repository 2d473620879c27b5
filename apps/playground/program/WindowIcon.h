#pragma once

#include <moxui/scriber/ScriberTypes.h>

namespace playground {

// The picture that stands for the program: a few columns of a waveform on a dark ground.
moxui::scriber::ImageP WindowIcon(moxui::scriber::SupplierInterface const& supplier);

}  // namespace playground
