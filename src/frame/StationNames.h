#pragma once

#include <moxcore/string/ImmutableString.h>

namespace moxmediaui {

// Stations of the whole program; every unit that uses them has its own copies of the interned names.

/// A timecode control's time display was changed by the user; others of its kind follow.
[[maybe_unused]] static moxcore::ImmutableString const sTimeDisplayChangedStation =
    moxcore::ImmutableString::_PrivateCreateStatic(
        "moxmediaui.timecodeControl.timedisplay.changed.station.global");
/// Turns of a radial controller.
[[maybe_unused]] static moxcore::ImmutableString const sRadialControllerStation =
    moxcore::ImmutableString::_PrivateCreateStatic("moxmediaui.rc.station");

}  // namespace moxmediaui
