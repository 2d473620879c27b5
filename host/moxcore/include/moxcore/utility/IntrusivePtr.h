#pragma once

#include <moxcore/config/Errors.h>
#include <moxcore/debug/TypeName.h>

#include <compare>
#include <cstddef>
#include <functional>
#include <type_traits>
#include <typeinfo>
#include <utility>

namespace moxcore::utility {

// Holds one reference to an object that counts its own (RetainObject, ReleaseObject). Use of a null pointer
// throws the null-pointer exception with the type's name. Compared by identity, ordered by address.
template <class T>
class IntrusivePtr {
 public:
  using element_type = T;

  constexpr IntrusivePtr() noexcept = default;
  constexpr IntrusivePtr(std::nullptr_t) noexcept {}
  IntrusivePtr(T* object) noexcept : mObject(object) { Retain(); }
  IntrusivePtr(IntrusivePtr const& other) noexcept : mObject(other.mObject) { Retain(); }
  IntrusivePtr(IntrusivePtr&& other) noexcept : mObject(other.Detach()) {}
  template <class U>
  requires std::is_convertible_v<U*, T*> IntrusivePtr(IntrusivePtr<U> const& other)
  noexcept : mObject(other.Get()) { Retain(); }
  template <class U>
  requires std::is_convertible_v<U*, T*> IntrusivePtr(IntrusivePtr<U>&& other)
  noexcept : mObject(other.Detach()) {}
  ~IntrusivePtr() {
    if (mObject != nullptr) {
      mObject->ReleaseObject();
    }
  }

  IntrusivePtr& operator=(IntrusivePtr other) noexcept {
    Swap(other);
    return *this;
  }

  // Takes over a reference that the caller owns, such as the first one of a new object.
  [[nodiscard]] static IntrusivePtr Adopt(T* object) noexcept {
    IntrusivePtr result;
    result.mObject = object;
    return result;
  }
  // Gives the reference to the caller and becomes null.
  [[nodiscard]] T* Detach() noexcept { return std::exchange(mObject, nullptr); }

  T* Get() const noexcept { return mObject; }
  T* operator->() const {
    RequireObject();
    return mObject;
  }
  T& operator*() const {
    RequireObject();
    return *mObject;
  }
  explicit operator bool() const noexcept { return mObject != nullptr; }

  void Reset() noexcept { IntrusivePtr().Swap(*this); }
  void Reset(T* object) noexcept { IntrusivePtr(object).Swap(*this); }
  void Swap(IntrusivePtr& other) noexcept { std::swap(mObject, other.mObject); }
  friend void swap(IntrusivePtr& a, IntrusivePtr& b) noexcept { a.Swap(b); }

 private:
  void Retain() const noexcept {
    if (mObject != nullptr) {
      mObject->RetainObject();
    }
  }
  void RequireObject() const {
    if (mObject == nullptr) [[unlikely]] {
      config::DoThrowNullPtrException(debug::GetTypeName(typeid(T)));
    }
  }

  T* mObject = nullptr;
};

template <class T, class U>
bool operator==(IntrusivePtr<T> const& a, IntrusivePtr<U> const& b) noexcept {
  return a.Get() == b.Get();
}
template <class T, class U>
bool operator==(IntrusivePtr<T> const& a, U* b) noexcept {
  return a.Get() == b;
}
template <class T>
bool operator==(IntrusivePtr<T> const& a, std::nullptr_t) noexcept {
  return a.Get() == nullptr;
}
template <class T, class U>
std::strong_ordering operator<=>(IntrusivePtr<T> const& a, IntrusivePtr<U> const& b) noexcept {
  using Common = std::common_type_t<T*, U*>;
  return std::compare_three_way()(static_cast<Common>(a.Get()), static_cast<Common>(b.Get()));
}

// Makes an object and takes over its first reference.
template <class T, class... Arguments>
[[nodiscard]] IntrusivePtr<T> MakeIntrusive(Arguments&&... arguments) {
  return IntrusivePtr<T>::Adopt(new T(std::forward<Arguments>(arguments)...));
}

}  // namespace moxcore::utility

template <class T>
struct std::hash<moxcore::utility::IntrusivePtr<T>> {
  std::size_t operator()(moxcore::utility::IntrusivePtr<T> const& pointer) const noexcept {
    return std::hash<T*>()(pointer.Get());
  }
};
