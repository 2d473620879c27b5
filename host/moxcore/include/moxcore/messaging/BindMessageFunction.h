#pragma once

#include <moxcore/config/Errors.h>
#include <moxcore/messaging/Message.h>
#include <moxcore/utility/RefCountedWeakPtr.h>

#include <functional>
#include <memory>
#include <type_traits>

namespace moxcore::messaging {

using MessageFunction = std::function<void(Message*)>;
using ConstMessageFunction = std::function<void(ConstMessage*)>;

namespace detail {

template <class Function>
struct MessageOf;
template <class Result, class Owner, class Concrete>
struct MessageOf<Result (Owner::*)(Concrete)> {
  using Type = Concrete;
};
template <class Result, class Owner, class Concrete>
struct MessageOf<Result (Owner::*)(Concrete) const> {
  using Type = Concrete;
};

template <class Generic, class Owner, class Member>
std::shared_ptr<std::function<void(Generic*)>> Bind(Owner* owner, Member member) {
  using Argument = typename MessageOf<Member>::Type;
  static_assert(std::is_pointer_v<Argument> || std::is_reference_v<Argument>,
                "a handler takes its message by pointer or by reference");
  using Concrete = std::remove_pointer_t<std::remove_reference_t<Argument>>;

  return std::make_shared<std::function<void(Generic*)>>(
      [weak = utility::RefCountedWeakPtr<Owner>(owner), member](Generic* message) {
        auto const locked = weak.Lock();
        if (!locked) {
          return;
        }
        auto* const concrete = dynamic_cast<Concrete*>(message);
        if (concrete == nullptr) {
          config::ThrowInvalidTypeConversion();
        }
        if constexpr (std::is_pointer_v<Argument>) {
          std::invoke(member, *locked, concrete);
        } else {
          std::invoke(member, *locked, *concrete);
        }
      });
}

}  // namespace detail

// Wraps a member function that takes a concrete message, by pointer or by reference. The owner is held weakly
// and locked for each call, so that a call does nothing once it is gone. Any other message than the one that
// the member takes throws "Invalid type conversion.". `owner` may be `this` in a constructor.
template <class Owner, class Member>
std::shared_ptr<MessageFunction> BindMessageFunction(Owner* owner, Member member) {
  return detail::Bind<Message>(owner, member);
}
template <class Owner, class Member>
std::shared_ptr<MessageFunction> BindMessageFunction(utility::IntrusivePtr<Owner> const& owner,
                                                     Member member) {
  return detail::Bind<Message>(owner.Get(), member);
}

// The same for members that answer a const message.
template <class Owner, class Member>
std::shared_ptr<ConstMessageFunction> BindConstMessageFunction(Owner* owner, Member member) {
  return detail::Bind<ConstMessage>(owner, member);
}
template <class Owner, class Member>
std::shared_ptr<ConstMessageFunction> BindConstMessageFunction(utility::IntrusivePtr<Owner> const& owner,
                                                               Member member) {
  return detail::Bind<ConstMessage>(owner.Get(), member);
}

}  // namespace moxcore::messaging
