#include "StationLinks.h"

namespace moxcore::messaging {

void StationLink::Disconnect() {
  if (auto const station = mStation.lock()) {
    station->Remove(*this);
  }
  MarkDisconnected();
}

class StationLinks::BroadcastScope {
 public:
  explicit BroadcastScope(StationLinks& station) : mStation(station) {
    std::lock_guard const lock(mStation.mMutex);
    ++mStation.mRunning;
    mCount = mStation.mLinks.size();
  }
  ~BroadcastScope() {
    std::lock_guard const lock(mStation.mMutex);
    --mStation.mRunning;
    mStation.CloseHoles();
  }
  BroadcastScope(BroadcastScope const&) = delete;
  BroadcastScope& operator=(BroadcastScope const&) = delete;

  // The links that were there when the broadcast began.
  std::size_t GetCount() const { return mCount; }

 private:
  StationLinks& mStation;
  std::size_t mCount = 0;
};

std::pair<std::shared_ptr<StationLink>, bool> StationLinks::Add(ListenerOwner const& owner,
                                                                Listener& listener) {
  std::lock_guard const lock(mMutex);
  if (auto const found = mPlaces.find(&listener); found != mPlaces.end()) {
    if (mLinks[found->second]->GetOwner() == owner) {
      return {mLinks[found->second], false};
    }
    MakeHole(found->second);
    CloseHoles();
  }
  auto link = std::make_shared<StationLink>(weak_from_this(), owner, listener);
  mPlaces.emplace(&listener, mLinks.size());
  mLinks.push_back(link);
  return {std::move(link), true};
}

void StationLinks::Remove(Listener const& listener) {
  std::lock_guard const lock(mMutex);
  if (auto const found = mPlaces.find(&listener); found != mPlaces.end()) {
    MakeHole(found->second);
    CloseHoles();
  }
}

void StationLinks::Remove(StationLink const& link) {
  std::lock_guard const lock(mMutex);
  // The listener may have been added anew since.
  auto const found = mPlaces.find(link.GetKey());
  if (found != mPlaces.end() && mLinks[found->second].get() == &link) {
    MakeHole(found->second);
    CloseHoles();
  }
}

void StationLinks::RemoveAll() {
  std::lock_guard const lock(mMutex);
  for (std::size_t place = 0; place < mLinks.size(); ++place) {
    if (mLinks[place] != nullptr) {
      MakeHole(place);
    }
  }
  CloseHoles();
}

void StationLinks::Broadcast(Message const& message) {
  BroadcastScope const scope(*this);
  for (std::size_t place = 0; place < scope.GetCount(); ++place) {
    std::unique_lock lock(mMutex);
    auto const link = mLinks[place];
    if (link == nullptr) {
      continue;
    }
    auto const owner = link->GetOwner().Lock();
    if (!owner) {
      MakeHole(place);
      continue;
    }
    lock.unlock();
    if (!link->IsBlocked()) {
      link->GetListener().ListenToMessage(message);
    }
  }
}

void StationLinks::MakeHole(std::size_t place) {
  mLinks[place]->MarkDisconnected();
  mPlaces.erase(mLinks[place]->GetKey());
  mLinks[place].reset();
  ++mHoles;
}

void StationLinks::CloseHoles() {
  // Half of them at least, so that a removal costs little however many listen.
  if (mRunning > 0 || mHoles * 2 <= mLinks.size()) {
    return;
  }
  std::erase(mLinks, nullptr);
  mHoles = 0;
  for (std::size_t place = 0; place < mLinks.size(); ++place) {
    mPlaces[mLinks[place]->GetKey()] = place;
  }
}

}  // namespace moxcore::messaging
