#include <moxcore/messaging/Message.h>

namespace moxcore::messaging {

Message::~Message() = default;
ConstMessage::~ConstMessage() = default;

}  // namespace moxcore::messaging
