#include "StationLinks.h"

#include <moxcore/config/Errors.h>
#include <moxcore/debug/TypeName.h>
#include <moxcore/threads/MainThread.h>

#include <atomic>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>

namespace moxcore::messaging {

namespace {

struct Registry {
  std::mutex mutex;
  std::unordered_map<ImmutableString, std::shared_ptr<StationLinks>> stations;
};

// Never destroyed: controls that static objects hold dispose of their stations at the very end.
Registry& TheRegistry() {
  static auto* const registry = new Registry;
  return *registry;
}

std::shared_ptr<StationLinks> FindStation(ImmutableString station) {
  auto& registry = TheRegistry();
  std::lock_guard const lock(registry.mutex);
  auto const found = registry.stations.find(station);
  return found != registry.stations.end() ? found->second : nullptr;
}

// With the registry's mutex held.
std::shared_ptr<StationLinks>& Open(Registry& registry, ImmutableString station) {
  auto& links = registry.stations[station];
  if (links == nullptr) {
    links = std::make_shared<StationLinks>();
  }
  return links;
}

void RequireNotNull(void const* pointer, std::type_info const& type) {
  if (pointer == nullptr) {
    config::DoThrowNullPtrException(debug::GetTypeName(type));
  }
}

}  // namespace

ImmutableString UniqueStationID() {
  static std::atomic<std::uint64_t> sLast{0};
  ImmutableString id;
  do {
    id = ImmutableString::Create("moxcore.messaging.station." + std::to_string(++sLast));
  } while (IsStationRegistered(id));
  return id;
}

void RegisterStation(ImmutableString station) {
  if (station.empty()) {
    return;
  }
  auto& registry = TheRegistry();
  std::lock_guard const lock(registry.mutex);
  Open(registry, station);
}

void DisposeStation(ImmutableString station) {
  std::shared_ptr<StationLinks> disposed;
  auto& registry = TheRegistry();
  std::lock_guard const lock(registry.mutex);
  if (auto const found = registry.stations.find(station); found != registry.stations.end()) {
    disposed = std::move(found->second);
    registry.stations.erase(found);
    disposed->RemoveAll();
  }
}

bool IsStationRegistered(ImmutableString station) {
  return FindStation(station) != nullptr;
}

Connection AddWeakPtrListener(ImmutableString station, ListenerOwner const& owner, Listener* listener) {
  RequireNotNull(listener, typeid(Listener));
  auto const keptOwner = owner.Lock();
  if (station.empty() || !keptOwner) {
    return {};
  }
  auto const [link, isNew] = [&] {
    auto& registry = TheRegistry();
    // Held until the listener is there: the station isn't disposed of in between.
    std::lock_guard const lock(registry.mutex);
    return Open(registry, station)->Add(owner, *listener);
  }();
  Connection connection(link);
  if (isNew) {
    listener->KeepConnection(connection);
  }
  return connection;
}

void RemoveListener(ImmutableString station, Listener* listener) {
  auto const found = FindStation(station);
  if (found != nullptr && listener != nullptr) {
    found->Remove(*listener);
  }
}

void BroadcastMessageOnMainThread(ImmutableString station, Message const& message) {
  if (!threads::CurrentThreadIsMainThread()) {
    config::ThrowError(config::ErrorLevel::kError, __FILE__, __LINE__,
                       "$$$/moxcore/messaging/Error/NotOnMainThread=A message can be sent at once on the "
                       "main thread only.",
                       false);
  }
  if (auto const found = FindStation(station)) {
    found->Broadcast(message);
  }
}

void AsyncBroadcastMessagePtr(ImmutableString station, std::shared_ptr<Message const> message) {
  RequireNotNull(message.get(), typeid(Message));
  // Bound to the station of this moment: one of the same name that is opened later hears nothing of it.
  std::weak_ptr<StationLinks> const found = FindStation(station);
  if (found.expired()) {
    return;
  }
  threads::PostToMainThread([found, message = std::move(message)] {
    if (auto const links = found.lock()) {
      links->Broadcast(*message);
    }
  });
}

}  // namespace moxcore::messaging
