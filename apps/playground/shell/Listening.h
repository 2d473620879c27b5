#pragma once

#include <moxcore/messaging/Message.h>
#include <moxcore/utility/RefCountedWeakPtr.h>
#include <moxui/controls/UI_ControlView.h>

#include <functional>
#include <memory>
#include <utility>

namespace playground {

// Has `handler` called with `owner` whenever the user changes `control`, as long as the owner lives.
template <class Owner, class Handler>
void WhenChanged(moxui::controls::UI_ControlView& control, Owner* owner, Handler handler) {
  using moxcore::messaging::Message;
  control.NotifyWhenChanged(std::make_shared<std::function<void(Message*)>>(
      [weak = moxcore::utility::RefCountedWeakPtr<Owner>(owner),
       handler = std::move(handler)](Message*) mutable {
        if (auto const locked = weak.Lock()) {
          handler(*locked);
        }
      }));
}

}  // namespace playground
