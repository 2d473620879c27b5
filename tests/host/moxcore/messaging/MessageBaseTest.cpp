#include <moxcore/messaging/MessageBase.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace moxcore::messaging {

struct MessageNameForValueChanging {};
struct MessageNameForValueChanged {};

namespace {

using ValueChanging = MessageBase<MessageNameForValueChanging, std::int64_t, unsigned>;
using ValueChanged = MessageBase<MessageNameForValueChanged, std::int64_t, unsigned>;

TEST(MessageBase, CarriesItsValues) {
  ValueChanged const message(std::numeric_limits<std::int64_t>::min(), 7);
  EXPECT_EQ(message.Get<0>(), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(message.Get<1>(), 7u);
  auto const& [time, identifier] = message.GetPayload();
  EXPECT_EQ(time, message.Get<0>());
  EXPECT_EQ(identifier, 7u);
}

TEST(MessageBase, HasTheHashOfItsNamesTypeAsItsID) {
  auto const id = HashMessageTypeNameToMessageID("moxcore::messaging::MessageNameForValueChanged");
  EXPECT_EQ(ValueChanged::GetStaticMessageID(), id);
  EXPECT_EQ(ValueChanged(1, 2).GetMessageID(), id);
  EXPECT_NE(ValueChanging::GetStaticMessageID(), id);
}

TEST(MessageBase, IsFoundByItsNameAndItsValues) {
  ValueChanged const changed(1, 2);
  Message const& message = changed;
  EXPECT_EQ(ValueChanged::Find(message), &changed);
  EXPECT_EQ(ValueChanging::Find(message), nullptr);
  using OtherValues = MessageBase<MessageNameForValueChanged, std::string>;
  EXPECT_EQ(OtherValues::Find(message), nullptr);
}

TEST(MessageBase, MayCarryNothing) {
  struct MessageNameForReset {};
  using Reset = MessageBase<MessageNameForReset>;
  Reset const reset;
  EXPECT_EQ(Reset::Find(reset), &reset);
}

}  // namespace
}  // namespace moxcore::messaging
