#pragma once

#include <moxcore/config/Errors.h>
#include <moxcore/utility/IntrusivePtr.h>

namespace moxcore::utility {

// The caller knows the type.
template <class To, class From>
IntrusivePtr<To> StaticCast(IntrusivePtr<From> const& pointer) noexcept {
  return IntrusivePtr<To>(static_cast<To*>(pointer.Get()));
}

// Asks for the type: null if the object is none or of another one.
template <class To, class From>
IntrusivePtr<To> DynamicCast(IntrusivePtr<From> const& pointer) noexcept {
  return IntrusivePtr<To>(dynamic_cast<To*>(pointer.Get()));
}

// Requires the type: throws "Invalid type conversion." if the object is none or of another one.
template <class To, class From>
To* CheckedCast(From* object) {
  auto* const result = dynamic_cast<To*>(object);
  if (result == nullptr) {
    config::ThrowInvalidTypeConversion();
  }
  return result;
}
template <class To, class From>
IntrusivePtr<To> CheckedCast(IntrusivePtr<From> const& pointer) {
  return IntrusivePtr<To>(CheckedCast<To>(pointer.Get()));
}

}  // namespace moxcore::utility
