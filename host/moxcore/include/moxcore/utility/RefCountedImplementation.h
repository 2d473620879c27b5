#pragma once

#include <atomic>
#include <cstdint>

namespace moxcore::utility {

// The reference count of an object, and its end. The count starts at 1: whoever made the object owns that one
// and hands it to IntrusivePtr<T>::Adopt. References to `this` may be made and dropped inside constructors
// and destructors. All operations may be called on any thread. A copied object has a count of its own.
//
// Classes derive from one of the RefCountedObject family.
class RefCountedImplementation {
 public:
  virtual ~RefCountedImplementation();

  // One reference more; gives the new count.
  std::int32_t AddRefCount() const noexcept { return mRefCount.fetch_add(1, std::memory_order_relaxed) + 1; }
  // One reference less; gives the new count and never destroys: at 0 that is the caller's duty.
  std::int32_t ReleaseRefCount() const noexcept {
    return mRefCount.fetch_sub(1, std::memory_order_acq_rel) - 1;
  }
  // The count of the moment; other threads may have changed it since.
  std::int32_t GetRefCount() const noexcept { return mRefCount.load(std::memory_order_relaxed); }

  void RetainObject() const noexcept { AddRefCount(); }
  // One reference less; the last one destroys the object, on the main thread if it asks for that.
  void ReleaseObject() const noexcept {
    if (ReleaseRefCount() == 0) {
      DestroyObject();
    }
  }

  // A class whose objects must end on the main thread gives true: a last release on another thread then
  // moves the destruction there.
  virtual bool DestructOnMainThread() const noexcept { return false; }

 protected:
  RefCountedImplementation() noexcept = default;
  RefCountedImplementation(RefCountedImplementation const&) noexcept {}
  RefCountedImplementation& operator=(RefCountedImplementation const&) noexcept { return *this; }

  // Adds a reference unless the last one is gone; tells whether it did.
  bool TryAddRefCount() const noexcept;

 private:
  void DestroyObject() const noexcept;
  // Called once, after the last release and before destruction, on the releasing thread.
  virtual void ForgetWeakReferences() const noexcept {}

  mutable std::atomic<std::int32_t> mRefCount{1};
};

}  // namespace moxcore::utility
