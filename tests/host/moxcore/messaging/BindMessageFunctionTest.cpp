#include <moxcore/messaging/BindMessageFunction.h>

#include <gtest/gtest.h>

namespace moxcore::messaging {
namespace {

class Pressed : public Message {
 public:
  int times = 2;
};
class Released : public Message {};
class Question : public ConstMessage {
 public:
  int answer = 0;
};
class OtherQuestion : public ConstMessage {};

class Panel : public utility::RefCountedObjectWithWeakPtr {
 public:
  explicit Panel(int* calls)
      : mCalls(calls), boundInConstructor(BindMessageFunction(this, &Panel::OnPressed)) {}

  void OnPressed(Pressed* message) { *mCalls += message->times; }
  void OnReference(Pressed& message) { message.times = 9; }
  void OnQuestion(Question* question) const { question->answer = ++*mCalls; }
  void OnAny(Message* message) { *mCalls += message->GetMessageID() == kNoMessageID ? 100 : 0; }
  void OnEnd(Pressed*) { self.Reset(); }

 private:
  int* mCalls;

 public:
  std::shared_ptr<MessageFunction> boundInConstructor;
  utility::IntrusivePtr<Panel> self;
};

class SidePanel : public Panel {
 public:
  using Panel::Panel;
};

TEST(BindMessageFunction, CallsTheMemberWithTheConcreteMessage) {
  int calls = 0;
  auto const panel = utility::MakeIntrusive<Panel>(&calls);
  Pressed pressed;
  (*panel->boundInConstructor)(&pressed);
  EXPECT_EQ(calls, 2);
  (*BindMessageFunction(panel, &Panel::OnAny))(&pressed);
  EXPECT_EQ(calls, 102);
  (*BindMessageFunction(panel, &Panel::OnReference))(&pressed);
  EXPECT_EQ(pressed.times, 9);
}

TEST(BindMessageFunction, TakesMembersOfABaseOfTheOwner) {
  int calls = 0;
  auto const panel = utility::MakeIntrusive<SidePanel>(&calls);
  Pressed pressed;
  (*BindMessageFunction(panel, &Panel::OnPressed))(&pressed);
  EXPECT_EQ(calls, 2);
}

TEST(BindMessageFunction, HoldsItsOwnerWeaklyAndDoesNothingOnceItIsGone) {
  int calls = 0;
  auto panel = utility::MakeIntrusive<Panel>(&calls);
  auto const function = BindMessageFunction(panel, &Panel::OnPressed);
  EXPECT_EQ(panel->GetRefCount(), 1);
  panel.Reset();
  Pressed pressed;
  Released released;
  (*function)(&pressed);
  (*function)(&released);
  (*function)(nullptr);
  EXPECT_EQ(calls, 0);
}

TEST(BindMessageFunction, KeepsTheOwnerAliveDuringTheCall) {
  int calls = 0;
  auto panel = utility::MakeIntrusive<Panel>(&calls);
  auto const function = BindMessageFunction(panel, &Panel::OnEnd);
  utility::RefCountedWeakPtr<Panel> const weak(panel);
  panel->self = panel;
  panel.Reset();
  Pressed pressed;
  (*function)(&pressed);
  EXPECT_TRUE(weak.IsExpired());
}

TEST(BindMessageFunction, ThrowsOnAMessageOfAnotherType) {
  int calls = 0;
  auto const panel = utility::MakeIntrusive<Panel>(&calls);
  Released released;
  EXPECT_THROW((*panel->boundInConstructor)(&released), config::mox_exception);
  EXPECT_EQ(calls, 0);
}

TEST(BindConstMessageFunction, HasTheMemberAnswerAsLongAsItsOwnerIsThere) {
  int calls = 0;
  auto panel = utility::MakeIntrusive<Panel>(&calls);
  auto const function = BindConstMessageFunction(panel, &Panel::OnQuestion);
  Question question;
  (*function)(&question);
  EXPECT_EQ(question.answer, 1);
  panel.Reset();
  (*function)(&question);
  EXPECT_EQ(calls, 1);
}

TEST(BindConstMessageFunction, ThrowsOnAMessageOfAnotherType) {
  int calls = 0;
  auto const panel = utility::MakeIntrusive<Panel>(&calls);
  OtherQuestion other;
  EXPECT_THROW((*BindConstMessageFunction(panel.Get(), &Panel::OnQuestion))(&other), config::mox_exception);
  EXPECT_EQ(calls, 0);
}

TEST(Message, HasAStableIDForEachName) {
  EXPECT_EQ(HashMessageTypeNameToMessageID(""), 0xcbf29ce484222325u);
  EXPECT_EQ(HashMessageTypeNameToMessageID("a"), 0xaf63dc4c8601ec8cu);
  EXPECT_EQ(HashMessageTypeNameToMessageID("foobar"), 0x85944171f73967e8u);
}

}  // namespace
}  // namespace moxcore::messaging
