#pragma once

#include <moxcore/debug/TypeName.h>
#include <moxcore/messaging/Message.h>

#include <cstddef>
#include <tuple>
#include <type_traits>
#include <typeinfo>
#include <utility>

namespace moxcore::messaging {

// A message that carries values. The structure `Name`, which needs no content, names it: the message's id is
// the hash of the name of that type, so sender and listener agree on it whichever modules they are in.
//
//   struct MessageNameForZoomChanged {};
//   using ZoomChangedMessage = MessageBase<MessageNameForZoomChanged, double>;
//   ...
//   if (auto const* const changed = ZoomChangedMessage::Find(message)) {
//     SetZoom(changed->Get<0>());
//   }
template <class Name, class... Payload>
class MessageBase : public Message {
 public:
  explicit MessageBase(Payload... payload) : Message(GetStaticMessageID()), mPayload(std::move(payload)...) {}

  // The id of all messages of this name.
  static MessageID GetStaticMessageID() {
    static MessageID const sID = HashMessageTypeNameToMessageID(debug::GetTypeName(typeid(Name)));
    return sID;
  }

  // The message as one of this kind, or null: for another id, or the same one with other values.
  static MessageBase const* Find(Message const& message) {
    return message.GetMessageID() == GetStaticMessageID() ? dynamic_cast<MessageBase const*>(&message)
                                                          : nullptr;
  }

  std::tuple<Payload...> const& GetPayload() const noexcept { return mPayload; }
  template <std::size_t kIndex>
  std::tuple_element_t<kIndex, std::tuple<Payload...>> const& Get() const noexcept {
    return std::get<kIndex>(mPayload);
  }

 private:
  static_assert((!std::is_reference_v<Payload> && ...), "a message may arrive later: it keeps values");

  std::tuple<Payload...> mPayload;
};

}  // namespace moxcore::messaging
