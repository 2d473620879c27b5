#include "CountedAllocations.h"

#include <moxmediaui/Module.h>
#include <moxui/testing/RecordingSupplier.h>

#include <gtest/gtest.h>

#include <new>

namespace {

using frame_tests::FailingAllocation;
using frame_tests::GetLiveAllocations;
using moxmediaui::GetDrawSupplier;
using moxmediaui::GetModuleImageProvider;
using moxmediaui::GetResourceManager;
using moxmediaui::Initialize;
using moxmediaui::Terminate;

// True if there was memory enough after so many blocks.
bool InitializeWith(moxui::scriber::SupplierInterface const* supplier, int blocks) {
  FailingAllocation const failing(blocks);
  try {
    Initialize(supplier);
    return true;
  } catch (std::bad_alloc const&) {
    return false;
  }
}

class ModuleWithoutMemory : public ::testing::Test {
 protected:
  ModuleWithoutMemory() {
    // What is made once in a process stays out of the counting.
    Initialize(&mFirst);
    Terminate();
    {
      FailingAllocation const plenty(1'000'000);
      Initialize(&mFirst);
      mBlocks = plenty.GetUsed();
    }
    Terminate();
  }

  moxui::testing::RecordingSupplier mFirst;
  moxui::testing::RecordingSupplier mSecond;
  int mBlocks = 0;  // that an Initialize takes
};

TEST_F(ModuleWithoutMemory, TheNextInitializeRunsInFullAndOneTerminateEvensItOut) {
  // The manager and the provider at least are made each time.
  ASSERT_GE(mBlocks, 2);
  for (int const blocks : {0, 1, mBlocks / 2, mBlocks - 2, mBlocks - 1}) {
    EXPECT_FALSE(InitializeWith(&mFirst, blocks)) << blocks;
    EXPECT_EQ(GetModuleImageProvider(), nullptr) << blocks;
    Initialize(&mSecond);
    EXPECT_EQ(GetDrawSupplier(), &mSecond) << blocks;
    EXPECT_NE(GetResourceManager(), nullptr) << blocks;
    EXPECT_NE(GetModuleImageProvider(), nullptr) << blocks;
    Terminate();
    EXPECT_EQ(GetDrawSupplier(), nullptr) << blocks;
    EXPECT_EQ(GetResourceManager(), nullptr) << blocks;
    EXPECT_EQ(GetModuleImageProvider(), nullptr) << blocks;
  }
  EXPECT_TRUE(InitializeWith(&mFirst, mBlocks));
  Terminate();
}

TEST_F(ModuleWithoutMemory, AManagerThatWasLeftBehindIsDestroyedByTheNextInitialize) {
  // All but the last block: the provider's.
  long const before = GetLiveAllocations();
  bool const hasFailed = !InitializeWith(&mFirst, mBlocks - 1);
  bool const isLeft = GetResourceManager() != nullptr;
  Initialize(&mSecond);
  Terminate();
  long const after = GetLiveAllocations();
  EXPECT_TRUE(hasFailed);
  EXPECT_TRUE(isLeft);
  EXPECT_EQ(after, before);
}

}  // namespace
