#pragma once

#include <moxcore/utility/RefCountedImplementation.h>

namespace moxcore::utility {

// Base of objects held by IntrusivePtr. The count is a virtual base, so that a class with several counted
// bases has one count.
class RefCountedObject : public virtual RefCountedImplementation {};

}  // namespace moxcore::utility
