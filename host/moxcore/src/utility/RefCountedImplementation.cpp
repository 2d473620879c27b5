#include <moxcore/threads/MainThread.h>
#include <moxcore/utility/RefCountedImplementation.h>

namespace moxcore::utility {

namespace {

// The count while an object ends: references that destructors make to `this` and drop again can't bring it
// back to 0, and TryAddRefCount tells it from a living one.
constexpr std::int32_t kEnding = 1 << 30;

}  // namespace

RefCountedImplementation::~RefCountedImplementation() = default;

bool RefCountedImplementation::TryAddRefCount() const noexcept {
  auto count = mRefCount.load(std::memory_order_relaxed);
  while (count > 0 && count < kEnding / 2) {
    if (mRefCount.compare_exchange_weak(count, count + 1, std::memory_order_acquire,
                                        std::memory_order_relaxed)) {
      return true;
    }
  }
  return false;
}

void RefCountedImplementation::DestroyObject() const noexcept {
  mRefCount.store(kEnding, std::memory_order_relaxed);
  ForgetWeakReferences();
  if (DestructOnMainThread() && !threads::CurrentThreadIsMainThread()) {
    threads::PostToMainThread([this] { delete this; });
  } else {
    delete this;
  }
}

}  // namespace moxcore::utility
