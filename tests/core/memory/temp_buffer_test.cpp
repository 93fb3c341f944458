// SPDX-License-Identifier: MIT
#include <quarnfc/fixed_alloc.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <vector>

#include "tests/support/next_block.h"

namespace {

using quarnfc_test::NextBlock;

const std::vector<CQNFixedAlloc*>& AllPools() {
  static const std::vector<CQNFixedAlloc*> pools = {
      _TempData64B(), _TempData128B(), _TempData256B(), _TempData512B(), _TempData1024B()};
  return pools;
}

// The pool that serves scratch buffers of size bytes, or null for the heap. Checks on the way that
// the buffer goes back to where it came from.
CQNFixedAlloc* PoolServing(int size) {
  std::vector<void*> next;
  for (CQNFixedAlloc* pool : AllPools()) next.push_back(NextBlock(pool));
  CQNFixedAlloc* serving = nullptr;
  {
    CQNTempBuffer buffer(size);
    for (std::size_t i = 0; i < next.size(); ++i) {
      if (buffer.GetData() == next[i]) serving = AllPools()[i];
    }
  }
  for (std::size_t i = 0; i < next.size(); ++i) EXPECT_EQ(NextBlock(AllPools()[i]), next[i]);
  return serving;
}

TEST(TempBuffer, ComesFromThePoolOfItsSize) {
  struct {
    int size;
    CQNFixedAlloc* pool;
  } const cases[] = {
      {0, _TempData64B()},     {1, _TempData64B()},      {63, _TempData64B()},
      {64, _TempData128B()},   {127, _TempData128B()},   {128, _TempData256B()},
      {255, _TempData256B()},  {256, _TempData512B()},   {511, _TempData512B()},
      {512, _TempData1024B()}, {1023, _TempData1024B()}, {1024, nullptr},
      {1025, nullptr},         {100000, nullptr},
  };
  for (const auto& c : cases) EXPECT_EQ(PoolServing(c.size), c.pool) << c.size;
}

TEST(TempBuffer, KeepsItsDataUntilDestruction) {
  for (int size : {10, 1023, 1024, 5000}) {
    CQNTempBuffer buffer(size);
    void* data = buffer.GetData();
    ASSERT_NE(data, nullptr);
    std::memset(data, 'x', static_cast<std::size_t>(size));
    EXPECT_EQ(buffer.GetData(), data);
    EXPECT_EQ(static_cast<char*>(buffer.GetData())[size - 1], 'x');
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(data) % 8, 0u);
  }
}

TEST(TempBuffer, TakesNothingBeforeItsFirstUse) {
  void* next = NextBlock(_TempData64B());
  CQNTempBuffer buffer(10);
  EXPECT_EQ(NextBlock(_TempData64B()), next);
  EXPECT_EQ(buffer.GetData(), next);
}

TEST(TempBuffer, GivesTheRequestedSize) {
  for (int size : {0, 1, 64, 1024, 70000}) EXPECT_EQ(CQNTempBuffer(size).GetSize(), size);
}

TEST(TempBuffer, ANegativeSizeCountsAsZero) {
  for (int size : {-1, INT_MIN}) {
    CQNTempBuffer buffer(size);
    EXPECT_NE(buffer.GetData(), nullptr);
    EXPECT_EQ(buffer.GetSize(), 0);
  }
}

}  // namespace
