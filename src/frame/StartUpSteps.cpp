// The library's part in the start of a program, recorded when the library is loaded.
#include "StationNames.h"  // interned at the same time

#include <moxcore/config/InitializerRegistrar.h>
#include <moxcore/messaging/Station.h>

namespace moxmediaui {

namespace {

using moxcore::config::InitializerRegistrar;

bool IsAlwaysReady() {
  return true;
}

// The stations that a whole program shares are open as long as it runs. Nobody depends on it: a listener
// opens its station by itself.
void OpenStations() {
  moxcore::messaging::RegisterStation(sTimeDisplayChangedStation);
  moxcore::messaging::RegisterStation(sRadialControllerStation);
}
void CloseStations() {
  moxcore::messaging::DisposeStation(sTimeDisplayChangedStation);
  moxcore::messaging::DisposeStation(sRadialControllerStation);
}

InitializerRegistrar const sTimecodeControl("moxmediaui::timecodecontrol",
                                            moxcore::config::kApplicationContext, IsAlwaysReady, OpenStations,
                                            CloseStations);
InitializerRegistrar const sControlPlayground("moxmediaui::uiplayground", moxcore::config::kPlaygroundContext,
                                              IsAlwaysReady, {}, {});

}  // namespace

}  // namespace moxmediaui
