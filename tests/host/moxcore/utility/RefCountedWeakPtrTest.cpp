#include <moxcore/utility/RefCountedWeakPtr.h>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <stdexcept>
#include <thread>

namespace moxcore::utility {
namespace {

class Node : public RefCountedObjectWithWeakPtr {
 public:
  int value = 3;
};
class Button : public Node {};

TEST(RefCountedWeakPtr, LocksWhileTheObjectLivesAndGivesNullAfterwards) {
  auto node = MakeIntrusive<Node>();
  RefCountedWeakPtr<Node> const weak(node);
  EXPECT_EQ(node->GetRefCount(), 1);
  EXPECT_EQ(weak.Lock(), node);
  EXPECT_FALSE(weak.IsExpired());
  node.Reset();
  EXPECT_FALSE(weak.Lock());
  EXPECT_TRUE(weak.IsExpired());
}

TEST(RefCountedWeakPtr, IsEmptyByDefaultAndFromNull) {
  EXPECT_FALSE(RefCountedWeakPtr<Node>().Lock());
  EXPECT_FALSE(RefCountedWeakPtr<Node>(nullptr).Lock());
  EXPECT_FALSE(RefCountedWeakPtr<Node>(IntrusivePtr<Node>()).Lock());
}

TEST(RefCountedWeakPtr, ConvertsUpAndStaysEmptyWhenTheObjectIsGone) {
  auto button = MakeIntrusive<Button>();
  RefCountedWeakPtr<Button> const weak(button);
  RefCountedWeakPtr<Node> const up = weak;
  EXPECT_EQ(up.Lock(), button);
  button.Reset();
  RefCountedWeakPtr<RefCountedObjectWithWeakPtr> const dead = weak;
  EXPECT_FALSE(dead.Lock());
}

TEST(RefCountedObjectWithWeakPtr, LocksByID) {
  auto node = MakeIntrusive<Node>();
  auto const id = node->GetWeakReferenceID();
  EXPECT_EQ(id, node->GetWeakReferenceID());
  EXPECT_EQ(RefCountedObjectWithWeakPtr::Lock(id), node);
  node.Reset();
  EXPECT_FALSE(RefCountedObjectWithWeakPtr::Lock(id));
  EXPECT_FALSE(RefCountedObjectWithWeakPtr::Lock(WeakReferenceID()));
}

TEST(RefCountedObjectWithWeakPtr, LocksInsideItsConstructorButNotInsideItsDestructor) {
  struct Bound : Node {
    explicit Bound(bool* d) : lockedInDestructor(d), self(this) {
      auto const locked = self.Lock();
      EXPECT_EQ(locked.Get(), this);
    }
    ~Bound() override { *lockedInDestructor = static_cast<bool>(self.Lock()); }
    bool* lockedInDestructor;
    RefCountedWeakPtr<Bound> self;
  };
  bool lockedInDestructor = true;
  auto bound = MakeIntrusive<Bound>(&lockedInDestructor);
  EXPECT_EQ(bound->GetRefCount(), 1);
  bound.Reset();
  EXPECT_FALSE(lockedInDestructor);
}

TEST(RefCountedObjectWithWeakPtr, LeavesNoWayToAnObjectWhoseConstructorThrew) {
  struct Failing : Node {
    explicit Failing(RefCountedWeakPtr<Node>* out) {
      *out = RefCountedWeakPtr<Node>(this);
      throw std::runtime_error("no");
    }
  };
  RefCountedWeakPtr<Node> weak;
  EXPECT_THROW((void)MakeIntrusive<Failing>(&weak), std::runtime_error);
  EXPECT_FALSE(weak.Lock());
}

TEST(RefCountedObjectWithWeakPtr, GivesACopyWeakReferencesOfItsOwn) {
  auto original = MakeIntrusive<Node>();
  RefCountedWeakPtr<Node> const weak(original);
  auto const copy = MakeIntrusive<Node>(*original);
  EXPECT_NE(copy->GetWeakReferenceID(), original->GetWeakReferenceID());
  original.Reset();
  EXPECT_FALSE(weak.Lock());
}

TEST(RefCountedWeakPtr, HoldsAgainstALastReleaseOnAnotherThread) {
  for (int round = 0; round < 500; ++round) {
    auto node = MakeIntrusive<Node>();
    RefCountedWeakPtr<Node> const weak(node);
    std::atomic<bool> go{false};
    std::thread locker([&go, weak] {
      while (!go) {
      }
      while (auto const locked = weak.Lock()) {
        EXPECT_EQ(locked->value, 3);
      }
    });
    go = true;
    node.Reset();
    locker.join();
    EXPECT_TRUE(weak.IsExpired());
  }
}

TEST(RefCountedObjectWithWeakPtr, MakesOneIDWhenThreadsAskAtOnce) {
  for (int round = 0; round < 200; ++round) {
    auto const node = MakeIntrusive<Node>();
    WeakReferenceID other;
    std::thread asker([&] { other = node->GetWeakReferenceID(); });
    auto const mine = node->GetWeakReferenceID();
    asker.join();
    EXPECT_EQ(mine, other);
  }
}

}  // namespace
}  // namespace moxcore::utility
