// SPDX-License-Identifier: MIT
// Pools used from several threads at once. Run under the thread sanitizer with *Threads*.
#include <quarnfc/fixed_alloc.h>

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <thread>
#include <vector>

#include "tests/support/threads.h"

namespace {

using quarnfc_test::RunOnThreads;

constexpr int kPoolThreads = 4;
constexpr int kPoolRounds = 2000;

TEST(PoolThreads, NoBlockIsHandedOutTwice) {
  CQNFixedAlloc pool(32, 4);
  std::vector<void*> taken[kPoolThreads];
  RunOnThreads(kPoolThreads, [&](int thread) {
    for (int i = 0; i < kPoolRounds; ++i) taken[thread].push_back(pool.Alloc());
  });
  std::set<void*> distinct;
  for (const auto& blocks : taken) distinct.insert(blocks.begin(), blocks.end());
  EXPECT_EQ(distinct.size(), static_cast<std::size_t>(kPoolThreads * kPoolRounds));
}

TEST(PoolThreads, BlocksKeepWhatEachThreadWrote) {
  CQNFixedAlloc pool(32, 4);
  RunOnThreads(kPoolThreads, [&](int thread) {
    for (int i = 0; i < kPoolRounds; ++i) {
      auto* first = static_cast<char*>(pool.Alloc());
      auto* second = static_cast<char*>(pool.Alloc());
      std::memset(first, thread, 32);
      std::memset(second, thread + kPoolThreads, 32);
      ASSERT_EQ(first[31], static_cast<char>(thread));
      ASSERT_EQ(second[0], static_cast<char>(thread + kPoolThreads));
      pool.Free(first);
      pool.Free(second);
    }
  });
}

TEST(PoolThreads, ABlockMayBeFreedOnAnotherThread) {
  std::vector<void*> blocks;
  std::thread([&] {
    for (int i = 0; i < 200; ++i) blocks.push_back(_TempData256B()->Alloc());
  }).join();
  std::thread([&] {
    for (void* block : blocks) _TempData256B()->Free(block);
  }).join();
  void* next = _TempData256B()->Alloc();
  EXPECT_EQ(next, blocks.back());
  _TempData256B()->Free(next);
}

TEST(PoolThreads, ScratchBuffersOfAllSizesServeSeveralThreads) {
  RunOnThreads(kPoolThreads, [&](int thread) {
    for (int i = 0; i < kPoolRounds; ++i) {
      const int size = 1 + (i * 37 + thread) % 1500;
      CQNTempBuffer buffer(size);
      auto* data = static_cast<char*>(buffer.GetData());
      std::memset(data, thread, static_cast<std::size_t>(size));
      ASSERT_EQ(data[size - 1], static_cast<char>(thread));
    }
  });
}

}  // namespace
