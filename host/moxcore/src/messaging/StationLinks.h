#pragma once

#include <moxcore/messaging/Station.h>

#include <atomic>
#include <cstddef>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>
#include <vector>

namespace moxcore::messaging {

class StationLink;

// One station: who listens, in order. Held by shared_ptr, so that it outlasts being disposed of by a
// listener. Its mutex is never held while a listener or an owner's destructor runs.
class StationLinks : public std::enable_shared_from_this<StationLinks> {
 public:
  // The connection, and whether it is a new one.
  std::pair<std::shared_ptr<StationLink>, bool> Add(ListenerOwner const& owner, Listener& listener);
  void Remove(Listener const& listener);
  void Remove(StationLink const& link);
  void RemoveAll();
  // Only on the main thread.
  void Broadcast(Message const& message);

 private:
  // While it lives, removed links leave holes, so that a broadcast finds its place again.
  class BroadcastScope;

  void MakeHole(std::size_t place);
  void CloseHoles();

  std::mutex mMutex;
  std::vector<std::shared_ptr<StationLink>> mLinks;
  std::unordered_map<CommonListener const*, std::size_t> mPlaces;
  std::size_t mHoles = 0;
  int mRunning = 0;
};

// The connection of one listener.
class StationLink : public ConnectionLink {
 public:
  StationLink(std::weak_ptr<StationLinks> station, ListenerOwner owner, Listener& listener)
      : mStation(std::move(station)), mOwner(std::move(owner)), mListener(listener), mKey(&listener) {}

  void Disconnect() override;
  bool IsConnected() const override { return mIsConnected; }
  bool Block() override { return mIsBlocked.exchange(true); }
  bool Unblock() override { return mIsBlocked.exchange(false); }
  bool IsBlocked() const override { return mIsBlocked; }

  ListenerOwner const& GetOwner() const { return mOwner; }
  Listener& GetListener() const { return mListener; }
  // The listener by the part of it that ends last.
  CommonListener const* GetKey() const { return mKey; }
  void MarkDisconnected() { mIsConnected = false; }

 private:
  std::weak_ptr<StationLinks> mStation;
  ListenerOwner mOwner;
  Listener& mListener;
  CommonListener const* mKey;
  std::atomic<bool> mIsConnected{true};
  std::atomic<bool> mIsBlocked{false};
};

}  // namespace moxcore::messaging
