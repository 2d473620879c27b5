#include <moxcore/utility/RefCountedObjectWithWeakPtr.h>

#include <mutex>

namespace moxcore::utility {

// What weak references share: the way to the object while it lives. An object that ends clears the way under
// the mutex before its memory goes, so whoever finds it there may touch its count.
class WeakReferenceCell {
 public:
  explicit WeakReferenceCell(RefCountedObjectWithWeakPtr* object) noexcept : mObject(object) {}

  RefCountedObjectWithWeakPtr* Retained() noexcept {
    std::lock_guard const lock(mMutex);
    return mObject != nullptr && mObject->TryAddRefCount() ? mObject : nullptr;
  }
  void Clear() noexcept {
    std::lock_guard const lock(mMutex);
    mObject = nullptr;
  }

 private:
  std::mutex mMutex;
  RefCountedObjectWithWeakPtr* mObject;
};

RefCountedObjectWithWeakPtr::RefCountedObjectWithWeakPtr(RefCountedObjectWithWeakPtr const& other) noexcept
    : RefCountedImplementation(other), RefCountedObject(other) {}

RefCountedObjectWithWeakPtr::~RefCountedObjectWithWeakPtr() {
  RefCountedObjectWithWeakPtr::ForgetWeakReferences();
  delete mCell.load(std::memory_order_acquire);
}

WeakReferenceID RefCountedObjectWithWeakPtr::GetWeakReferenceID() const {
  auto* cell = mCell.load(std::memory_order_acquire);
  if (cell == nullptr) {
    auto* const self = const_cast<RefCountedObjectWithWeakPtr*>(this);
    auto made =
        std::make_unique<std::shared_ptr<WeakReferenceCell>>(std::make_shared<WeakReferenceCell>(self));
    if (mCell.compare_exchange_strong(cell, made.get(), std::memory_order_acq_rel)) {
      cell = made.release();
    }
  }
  return WeakReferenceID(*cell);
}

IntrusivePtr<RefCountedObjectWithWeakPtr> RefCountedObjectWithWeakPtr::Lock(
    WeakReferenceID const& id) noexcept {
  return IntrusivePtr<RefCountedObjectWithWeakPtr>::Adopt(id.mCell != nullptr ? id.mCell->Retained()
                                                                              : nullptr);
}

void RefCountedObjectWithWeakPtr::ForgetWeakReferences() const noexcept {
  if (auto const* cell = mCell.load(std::memory_order_acquire)) {
    (*cell)->Clear();
  }
}

}  // namespace moxcore::utility
