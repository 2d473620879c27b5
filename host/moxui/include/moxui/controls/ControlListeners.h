#pragma once

#include <moxcore/messaging/BindMessageFunction.h>
#include <moxcore/messaging/Connection.h>

#include <functional>
#include <memory>
#include <vector>

namespace moxui::controls {

using MessageHandler = std::shared_ptr<moxcore::messaging::MessageFunction>;

/// The functions that hear one kind of message of a control, held strongly, called in the order in which they
/// came. The list may change while it is being called: who is added waits for the next message, who is taken
/// out hears no more; its end while being called is safe too.
class ControlListeners {
 public:
  moxcore::messaging::Connection Add(MessageHandler function);
  void Send(moxcore::messaging::Message& message) const;
  bool IsEmpty() const;

 private:
  class Link;
  std::vector<std::shared_ptr<Link>> mLinks;
};

}  // namespace moxui::controls
