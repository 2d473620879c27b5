#include <moxcore/utility/IntrusivePtr.h>
#include <moxcore/utility/PointerCasts.h>
#include <moxcore/utility/RefCountedObject.h>
#include <moxcore/utility/RefCountedObjectWithWeakPtr.h>
#include <moxcore/utility/RefCountedObjectWithoutVirtualBase.h>

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <thread>
#include <unordered_set>
#include <vector>

namespace moxcore::utility {
namespace {

class Leaf : public RefCountedObject {
 public:
  explicit Leaf(int* ended = nullptr) : mEnded(ended) {}
  ~Leaf() override {
    if (mEnded != nullptr) {
      ++*mEnded;
    }
  }
  int value = 7;

 private:
  int* mEnded;
};

class Other : public RefCountedObject {};
class Both : public Leaf, public Other {};
class Plain : public RefCountedObjectWithoutVirtualBase {};

TEST(IntrusivePtr, EndsTheObjectWithTheLastReference) {
  int ended = 0;
  auto first = MakeIntrusive<Leaf>(&ended);
  EXPECT_EQ(first->GetRefCount(), 1);
  {
    IntrusivePtr<Leaf> const second(first.Get());
    EXPECT_EQ(first->GetRefCount(), 2);
  }
  EXPECT_EQ(ended, 0);
  first.Reset();
  EXPECT_EQ(ended, 1);
  EXPECT_FALSE(first);
}

TEST(IntrusivePtr, AdoptsTheFirstReferenceAndRetainsAPlainPointer) {
  auto const adopted = IntrusivePtr<Leaf>::Adopt(new Leaf);
  EXPECT_EQ(adopted->GetRefCount(), 1);
  IntrusivePtr<Leaf> const retained(adopted.Get());
  EXPECT_EQ(adopted->GetRefCount(), 2);
}

TEST(IntrusivePtr, ThrowsWithTheTypesNameWhenNullIsUsed) {
  IntrusivePtr<Leaf> const null;
  EXPECT_THROW((void)null->value, config::mox_exception);
  try {
    (*null).value = 1;
    FAIL();
  } catch (config::mox_exception const& error) {
    EXPECT_NE(std::string(error.what()).find("Leaf"), std::string::npos) << error.what();
  }
}

TEST(IntrusivePtr, MovesWithoutTouchingTheCount) {
  auto from = MakeIntrusive<Leaf>();
  auto* const object = from.Get();
  IntrusivePtr<Leaf> to(std::move(from));
  EXPECT_EQ(to.Get(), object);
  EXPECT_EQ(to->GetRefCount(), 1);
  to = std::move(to);
  EXPECT_EQ(to.Get(), object);
}

TEST(IntrusivePtr, GivesItsReferenceAwayOnRequest) {
  int ended = 0;
  auto pointer = MakeIntrusive<Leaf>(&ended);
  auto* const object = pointer.Detach();
  EXPECT_FALSE(pointer);
  EXPECT_EQ(object->GetRefCount(), 1);
  object->ReleaseObject();
  EXPECT_EQ(ended, 1);
}

TEST(IntrusivePtr, SurvivesAssignmentFromItself) {
  int ended = 0;
  auto pointer = MakeIntrusive<Leaf>(&ended);
  auto const& same = pointer;
  pointer = same;
  EXPECT_EQ(ended, 0);
  EXPECT_EQ(pointer->GetRefCount(), 1);
}

TEST(IntrusivePtr, ComparesByIdentityAndOrdersByAddress) {
  std::vector<Plain> objects(2);
  IntrusivePtr<Plain> const low(&objects[0]);
  IntrusivePtr<Plain> const high(&objects[1]);
  EXPECT_NE(low, high);
  EXPECT_EQ(low, IntrusivePtr<Plain>(&objects[0]));
  EXPECT_EQ(low, &objects[0]);
  EXPECT_LT(low, high);
  EXPECT_GT(high, low);
  EXPECT_NE(low, nullptr);
  EXPECT_EQ(IntrusivePtr<Plain>(), nullptr);
  std::map<IntrusivePtr<Plain>, int> const ordered{{high, 2}, {low, 1}};
  EXPECT_EQ(ordered.begin()->second, 1);
  std::unordered_set<IntrusivePtr<Plain>> const set{low, high, low};
  EXPECT_EQ(set.size(), 2u);
}

TEST(IntrusivePtr, ConvertsUpAndComparesAcrossTheHierarchy) {
  auto const both = MakeIntrusive<Both>();
  IntrusivePtr<Other> const other = both;
  EXPECT_EQ(other, both);
  IntrusivePtr<Leaf const> const leaf = both;
  EXPECT_EQ(leaf, both);
  EXPECT_EQ(both->GetRefCount(), 3);
}

TEST(RefCountedObject, HasOneCountHoweverManyBasesCount) {
  int ended = 0;
  class Counted : public Leaf, public Other {
   public:
    explicit Counted(int* e) : Leaf(e) {}
  };
  IntrusivePtr<Other> other = MakeIntrusive<Counted>(&ended);
  IntrusivePtr<Leaf> leaf = DynamicCast<Leaf>(other);
  ASSERT_TRUE(leaf);
  EXPECT_EQ(leaf->GetRefCount(), 2);
  other.Reset();
  EXPECT_EQ(ended, 0);
  leaf.Reset();
  EXPECT_EQ(ended, 1);
}

TEST(RefCountedObject, GivesACopyACountOfItsOwn) {
  auto const original = MakeIntrusive<Leaf>();
  IntrusivePtr<Leaf const> const second = original;
  auto const copy = MakeIntrusive<Leaf>(*original);
  EXPECT_EQ(copy->GetRefCount(), 1);
  *copy = *original;
  EXPECT_EQ(copy->GetRefCount(), 1);
}

TEST(RefCountedObject, AllowsReferencesToItselfInConstructorAndDestructor) {
  struct Selfish : RefCountedObject {
    explicit Selfish(int* e) : ended(e) { IntrusivePtr<Selfish> const self(this); }
    ~Selfish() override {
      IntrusivePtr<Selfish> const self(this);
      ++*ended;
    }
    int* ended;
  };
  int ended = 0;
  {
    auto const object = MakeIntrusive<Selfish>(&ended);
    EXPECT_EQ(ended, 0);
  }
  EXPECT_EQ(ended, 1);
}

TEST(RefCountedObject, CountsWithoutDestroyingOnReleaseRefCount) {
  int ended = 0;
  auto* const object = new Leaf(&ended);
  EXPECT_EQ(object->AddRefCount(), 2);
  EXPECT_EQ(object->ReleaseRefCount(), 1);
  EXPECT_EQ(object->ReleaseRefCount(), 0);
  EXPECT_EQ(ended, 0);
  delete object;
}

TEST(RefCountedObject, EndsOnceWhenManyThreadsDropTheirReferences) {
  int ended = 0;
  {
    auto const object = MakeIntrusive<Leaf>(&ended);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([mine = object] {
        for (int n = 0; n < 2000; ++n) {
          IntrusivePtr<Leaf const> const copy = mine;
          EXPECT_EQ(copy->value, 7);
        }
      });
    }
    for (auto& thread : threads) {
      thread.join();
    }
  }
  EXPECT_EQ(ended, 1);
}

TEST(PointerCasts, AskOrRequireOrTrust) {
  IntrusivePtr<Leaf> const leaf = MakeIntrusive<Both>();
  EXPECT_TRUE(DynamicCast<Both>(leaf));
  EXPECT_EQ(StaticCast<Both>(leaf), leaf);
  EXPECT_EQ(CheckedCast<Other>(leaf).Get(), dynamic_cast<Other*>(leaf.Get()));
  EXPECT_EQ(CheckedCast<Other>(leaf.Get()), dynamic_cast<Other*>(leaf.Get()));
  auto const plainLeaf = MakeIntrusive<Leaf>();
  EXPECT_FALSE(DynamicCast<Both>(plainLeaf));
  EXPECT_FALSE(DynamicCast<Both>(IntrusivePtr<Leaf>()));
}

TEST(PointerCasts, ThrowTheConversionErrorWhenARequiredTypeIsMissing) {
  auto const leaf = MakeIntrusive<Leaf>();
  try {
    (void)CheckedCast<Both>(leaf);
    FAIL();
  } catch (config::mox_exception const& error) {
    EXPECT_STREQ(error.what(), "Invalid type conversion.");
    EXPECT_EQ(error.GetCode(), "$$$/moxcore/utility/Error/InvalidTypeConversion=Invalid type conversion.");
  }
  EXPECT_THROW((void)CheckedCast<Both>(IntrusivePtr<Leaf>()), config::mox_exception);
  EXPECT_THROW((void)CheckedCast<Both>(static_cast<Leaf*>(nullptr)), config::mox_exception);
}

}  // namespace
}  // namespace moxcore::utility
