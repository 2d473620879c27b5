#pragma once

#include <string>

namespace moxaudiotoolkit {

// Why the system refused, by its error number: a part of a sentence, localised, for what a user can do
// something about; else in the system's own words.
std::string SystemReason(int error);

}  // namespace moxaudiotoolkit
