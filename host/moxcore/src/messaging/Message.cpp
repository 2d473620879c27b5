#include <moxcore/messaging/Message.h>

namespace moxcore::messaging {

Message::~Message() = default;

}  // namespace moxcore::messaging
