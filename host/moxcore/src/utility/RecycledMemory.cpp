#include <moxcore/utility/MemoryRecycler.h>
#include <moxcore/utility/RecycledMemory.h>

namespace moxcore::utility {

std::shared_ptr<RecycledMemory> RecycledMemory::Create(std::size_t bytes) {
  return std::shared_ptr<RecycledMemory>(new RecycledMemory(bytes));
}

RecycledMemory::RecycledMemory(std::size_t bytes) : mSize(bytes) {
  std::size_t actualSize = 0;
  mData = static_cast<std::uint8_t*>(MemoryRecycler::Allocate(bytes, actualSize));
}

RecycledMemory::~RecycledMemory() {
  MemoryRecycler::Recycle(mData, mSize);
}

}  // namespace moxcore::utility
