#pragma once

#include <moxcore/utility/IntrusivePtr.h>
#include <moxcore/utility/RefCountedObject.h>

#include <atomic>
#include <memory>
#include <utility>

namespace moxcore::utility {

class RefCountedObjectWithWeakPtr;
class WeakReferenceCell;

// Names an object for RefCountedObjectWithWeakPtr::Lock without keeping it alive. Cheap to copy; a default
// one names nothing.
class WeakReferenceID {
 public:
  WeakReferenceID() noexcept = default;
  explicit operator bool() const noexcept { return mCell != nullptr; }
  friend bool operator==(WeakReferenceID const&, WeakReferenceID const&) noexcept = default;

 private:
  friend RefCountedObjectWithWeakPtr;
  explicit WeakReferenceID(std::shared_ptr<WeakReferenceCell> cell) noexcept : mCell(std::move(cell)) {}
  std::shared_ptr<WeakReferenceCell> mCell;
};

// Base of counted objects that may be referred to weakly (RefCountedWeakPtr). Weak references may be made and
// locked inside constructors, on any thread, and against a last release on another thread: Lock then gives
// either a reference that holds or null.
class RefCountedObjectWithWeakPtr : public RefCountedObject {
 public:
  ~RefCountedObjectWithWeakPtr() override;

  // The object's name for Lock; the same at each call.
  WeakReferenceID GetWeakReferenceID() const;

  // The object, or null once its last reference is gone.
  static IntrusivePtr<RefCountedObjectWithWeakPtr> Lock(WeakReferenceID const& id) noexcept;

 protected:
  RefCountedObjectWithWeakPtr() noexcept = default;
  RefCountedObjectWithWeakPtr(RefCountedObjectWithWeakPtr const&) noexcept;
  RefCountedObjectWithWeakPtr& operator=(RefCountedObjectWithWeakPtr const&) noexcept { return *this; }

 private:
  friend WeakReferenceCell;
  void ForgetWeakReferences() const noexcept override;

  mutable std::atomic<std::shared_ptr<WeakReferenceCell>*> mCell{nullptr};
};

}  // namespace moxcore::utility
