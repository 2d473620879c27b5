#pragma once

namespace moxcore::utility {

// Base of classes whose objects have an identity: they are neither copied nor moved.
class noncopyable {
 public:
  noncopyable(noncopyable const&) = delete;
  noncopyable& operator=(noncopyable const&) = delete;

 protected:
  noncopyable() = default;
  ~noncopyable() = default;
};

}  // namespace moxcore::utility
