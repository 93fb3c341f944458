// SPDX-License-Identifier: MIT
// Pools used from several threads at once. Run under the thread sanitizer with *Threads*.
#include <quarnfc/fixed_alloc.h>

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <thread>
#include <vector>

namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 2000;

template <class Work>
void RunOnThreads(Work work) {
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int i = 0; i < kThreads; ++i) threads.emplace_back(work, i);
  for (std::thread& thread : threads) thread.join();
}

TEST(PoolThreads, NoBlockIsHandedOutTwice) {
  CQNFixedAlloc pool(32, 4);
  std::vector<void*> taken[kThreads];
  RunOnThreads([&](int thread) {
    for (int i = 0; i < kRounds; ++i) taken[thread].push_back(pool.Alloc());
  });
  std::set<void*> distinct;
  for (const auto& blocks : taken) distinct.insert(blocks.begin(), blocks.end());
  EXPECT_EQ(distinct.size(), static_cast<std::size_t>(kThreads * kRounds));
}

TEST(PoolThreads, BlocksKeepWhatEachThreadWrote) {
  CQNFixedAlloc pool(32, 4);
  RunOnThreads([&](int thread) {
    for (int i = 0; i < kRounds; ++i) {
      auto* first = static_cast<char*>(pool.Alloc());
      auto* second = static_cast<char*>(pool.Alloc());
      std::memset(first, thread, 32);
      std::memset(second, thread + kThreads, 32);
      ASSERT_EQ(first[31], static_cast<char>(thread));
      ASSERT_EQ(second[0], static_cast<char>(thread + kThreads));
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
  RunOnThreads([&](int thread) {
    for (int i = 0; i < kRounds; ++i) {
      const int size = 1 + (i * 37 + thread) % 1500;
      CQNTempBuffer buffer(size);
      auto* data = static_cast<char*>(buffer.GetData());
      std::memset(data, thread, static_cast<std::size_t>(size));
      ASSERT_EQ(data[size - 1], static_cast<char>(thread));
    }
  });
}

}  // namespace
