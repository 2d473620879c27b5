#pragma once

#include <moxcore/messaging/Connection.h>
#include <moxcore/utility/Noncopyable.h>

#include <atomic>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <utility>

namespace moxcore::messaging {

// kGuarded 1: the list of links is guarded by a mutex.
template <class Signature, int kGuarded>
class Signal;

// Calls the functions that are connected to it. A firing visits at most the links that were there at its
// start, and calls copies of their functions without holding the mutex; so a function may connect,
// disconnect, block and fire. Disconnected links stay in the list until the signal ends.
template <class... Arguments>
class Signal<void(Arguments...), 1> : utility::noncopyable {
 public:
  using Function = std::function<void(Arguments...)>;

  Signal() : mMutex(std::make_shared<std::recursive_mutex>()), mLinks(std::make_shared<Links>()) {}

  Connection Connect(Function function) {
    auto const link =
        std::make_shared<ConnectionLinkImpl>(std::make_shared<Function>(std::move(function)), mMutex);
    std::lock_guard const lock(*mMutex);
    mLinks->push_back(link);
    return Connection(link);
  }

  // The signal may end while it fires.
  void Fire(Arguments... arguments) const {
    // The functions that only this call still holds end without the lock: what they captured may take locks
    // of its own, or wait for who waits for this one.
    auto const mutex = mMutex;
    auto const links = mLinks;
    std::shared_ptr<Function> callback;
    std::unique_lock lock(*mutex);
    auto const count = links->size();
    auto link = links->begin();
    for (std::size_t i = 0; i < count && link != links->end(); ++i, ++link) {
      callback = (*link)->IsBlocked() ? nullptr : (*link)->Callback();
      if (callback == nullptr || *callback == nullptr) {
        continue;
      }
      lock.unlock();
      (*callback)(arguments...);
      callback.reset();
      lock.lock();
    }
  }

 private:
  class ConnectionLinkImpl : public ConnectionLink {
   public:
    ConnectionLinkImpl(std::shared_ptr<Function> callback, std::shared_ptr<std::recursive_mutex> mutex)
        : mCallback(std::move(callback)), mMutex(std::move(mutex)) {}
    ~ConnectionLinkImpl() override { ConnectionLinkImpl::Disconnect(); }

    void Disconnect() override {
      // Ends after the lock: what it holds may take locks of its own, or wait for who waits for this one.
      std::shared_ptr<Function> ended;
      std::lock_guard const lock(*mMutex);
      ended.swap(mCallback);
    }
    bool IsConnected() const override { return Callback() != nullptr; }
    bool Block() override { return mBlocked.exchange(true); }
    bool Unblock() override { return mBlocked.exchange(false); }
    bool IsBlocked() const override { return mBlocked; }

    std::shared_ptr<Function> Callback() const {
      std::lock_guard const lock(*mMutex);
      return mCallback;
    }

   private:
    std::shared_ptr<Function> mCallback;
    std::shared_ptr<std::recursive_mutex> mMutex;
    std::atomic<bool> mBlocked{false};
  };

  using Links = std::list<std::shared_ptr<ConnectionLinkImpl>>;

  std::shared_ptr<std::recursive_mutex> mMutex;
  std::shared_ptr<Links> mLinks;
};

}  // namespace moxcore::messaging
