#pragma once

#include <moxcore/messaging/Listener.h>
#include <moxcore/string/ImmutableString.h>
#include <moxcore/utility/RefCountedObjectWithWeakPtr.h>

#include <functional>

namespace playground {

// Hears the messages of stations for whoever holds it, as long as that does.
class StationEar : public moxcore::utility::RefCountedObjectWithWeakPtr, public moxcore::messaging::Listener {
 public:
  using Function = std::function<void(moxcore::messaging::Message const&)>;

  explicit StationEar(Function function);
  ~StationEar() override;

  void Hear(moxcore::ImmutableString station);

  void ListenToMessage(moxcore::messaging::Message const& message) override;

 private:
  Function mFunction;
};

}  // namespace playground
