#pragma once

#include <string>
#include <string_view>

namespace moxcore::messaging {
class Message;
}

namespace playground {

// What a message of a control says, in words: who it is from, what happened, and the control's value.
std::string MessageText(std::string_view control, moxcore::messaging::Message const& message);

}  // namespace playground
