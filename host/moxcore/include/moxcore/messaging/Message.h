#pragma once

#include <cstdint>
#include <string_view>

namespace moxcore::messaging {

using MessageID = std::uint64_t;
inline constexpr MessageID kNoMessageID = 0;

// A stable id for a kind of message, from the name of the structure that names it (64-bit FNV-1a).
constexpr MessageID HashMessageTypeNameToMessageID(std::string_view name) noexcept {
  MessageID hash = 0xcbf29ce484222325u;
  for (char const unit : name) {
    hash = (hash ^ static_cast<unsigned char>(unit)) * 0x100000001b3u;
  }
  return hash;
}

// What controls send to their listeners and what goes over stations. The id tells kinds of message apart
// that are known to both sides by name; messages that are told by their class alone have none.
class Message {
 public:
  virtual ~Message();

  MessageID GetMessageID() const noexcept { return mMessageID; }

 protected:
  explicit Message(MessageID id = kNoMessageID) noexcept : mMessageID(id) {}
  Message(Message const&) = default;
  Message& operator=(Message const&) = default;

 private:
  MessageID mMessageID;
};

// What asks something of whoever can answer, on behalf of a sender that is not to be changed by it. The
// message itself takes the answer.
class ConstMessage {
 public:
  virtual ~ConstMessage();

 protected:
  ConstMessage() noexcept = default;
  ConstMessage(ConstMessage const&) = default;
  ConstMessage& operator=(ConstMessage const&) = default;
};

}  // namespace moxcore::messaging
