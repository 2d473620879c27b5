#include <moxui/controls/ControlListeners.h>

#include <algorithm>
#include <utility>

namespace moxui::controls {

class ControlListeners::Link : public moxcore::messaging::ConnectionLink {
 public:
  explicit Link(MessageHandler function) : mFunction(std::move(function)) {}

  void Disconnect() override { mFunction.reset(); }
  bool IsConnected() const override { return mFunction != nullptr; }
  bool Block() override { return std::exchange(mIsBlocked, true); }
  bool Unblock() override { return std::exchange(mIsBlocked, false); }
  bool IsBlocked() const override { return mIsBlocked; }

  void Call(moxcore::messaging::Message& message) const {
    MessageHandler const function = mFunction;  // it may disconnect itself
    if (function && !mIsBlocked) {
      (*function)(&message);
    }
  }

 private:
  MessageHandler mFunction;
  bool mIsBlocked = false;
};

moxcore::messaging::Connection ControlListeners::Add(MessageHandler function) {
  if (!function || !*function) {
    return {};
  }
  std::erase_if(mLinks, [](auto const& link) { return !link->IsConnected(); });
  mLinks.push_back(std::make_shared<Link>(std::move(function)));
  return moxcore::messaging::Connection(mLinks.back());
}

void ControlListeners::Send(moxcore::messaging::Message& message) const {
  auto const links = mLinks;
  for (auto const& link : links) {
    link->Call(message);
  }
}

bool ControlListeners::IsEmpty() const {
  return std::ranges::none_of(mLinks, [](auto const& link) { return link->IsConnected(); });
}

}  // namespace moxui::controls
