#pragma once

#include <moxcore/utility/IntrusivePtr.h>
#include <moxcore/utility/RefCountedObjectWithWeakPtr.h>

#include <cstddef>
#include <type_traits>
#include <utility>

namespace moxcore::utility {

// A weak reference to a counted object. It is asked through Lock and never keeps the object alive.
template <class T>
class RefCountedWeakPtr {
 public:
  RefCountedWeakPtr() noexcept = default;
  RefCountedWeakPtr(std::nullptr_t) noexcept {}
  RefCountedWeakPtr(T* object) : mObject(object) {
    if (object != nullptr) {
      mID = object->GetWeakReferenceID();
    }
  }
  template <class U>
  requires std::is_convertible_v<U*, T*> RefCountedWeakPtr(IntrusivePtr<U> const& object)
      : RefCountedWeakPtr(static_cast<T*>(object.Get())) {}
  // The pointer of an object that is gone can't be converted, so a dead reference converts to an empty one.
  template <class U>
  requires(std::is_convertible_v<U*, T*> && !std::is_same_v<U, T>)
      RefCountedWeakPtr(RefCountedWeakPtr<U> const& other)
      : RefCountedWeakPtr(other.Lock()) {}

  // The object, or null once its last reference is gone.
  IntrusivePtr<T> Lock() const noexcept {
    return RefCountedObjectWithWeakPtr::Lock(mID).Detach() ? IntrusivePtr<T>::Adopt(mObject) : nullptr;
  }
  // Whether Lock would give null; another thread may make that so at any time.
  bool IsExpired() const noexcept { return !RefCountedObjectWithWeakPtr::Lock(mID); }

  void Reset() noexcept { *this = RefCountedWeakPtr(); }

  // Whether both refer to the same object, dead or alive.
  friend bool operator==(RefCountedWeakPtr const& a, RefCountedWeakPtr const& b) noexcept {
    return a.mID == b.mID;
  }

 private:
  WeakReferenceID mID;
  T* mObject = nullptr;
};

template <class T>
RefCountedWeakPtr(IntrusivePtr<T> const&) -> RefCountedWeakPtr<T>;

}  // namespace moxcore::utility
