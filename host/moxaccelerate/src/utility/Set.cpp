#include <moxaccelerate/utility/Set.h>

#include <algorithm>
#include <cwchar>

namespace moxaccelerate::utility {
namespace {

// Under a sanitizer every word is written by code that it watches, so that a row drawn past its buffer is
// found.
#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
constexpr bool kWatched = true;
#else
constexpr bool kWatched = false;
#endif
#elif defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kWatched = true;
#else
constexpr bool kWatched = false;
#endif

}  // namespace

void Set(std::size_t count, std::uint32_t* destination, std::uint32_t value) noexcept {
  if (count == 0) {
    return;
  }
  // Where a wchar_t is a word of 32 bits, the C library's fill picks the widest stores that the processor
  // has.
  if constexpr (sizeof(wchar_t) == sizeof(std::uint32_t) && !kWatched) {
    std::wmemset(reinterpret_cast<wchar_t*>(destination), static_cast<wchar_t>(value), count);
  } else {
    std::fill_n(destination, count, value);
  }
}

}  // namespace moxaccelerate::utility
