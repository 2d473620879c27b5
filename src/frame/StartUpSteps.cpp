// The library's part in the start of a program, recorded when the library is loaded.
#include "StationNames.h"  // interned at the same time

#include <moxcore/config/InitializerRegistrar.h>

namespace moxmediaui {

namespace {

using moxcore::config::InitializerRegistrar;

bool IsAlwaysReady() {
  return true;
}

InitializerRegistrar const sTimecodeControl("moxmediaui::timecodecontrol",
                                            moxcore::config::kApplicationContext, IsAlwaysReady, {}, {});
InitializerRegistrar const sControlPlayground("moxmediaui::uiplayground", moxcore::config::kPlaygroundContext,
                                              IsAlwaysReady, {}, {});

}  // namespace

}  // namespace moxmediaui
