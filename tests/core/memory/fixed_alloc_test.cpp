// SPDX-License-Identifier: MIT
#include <quarnfc/fixed_alloc.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <future>
#include <new>
#include <set>
#include <vector>

namespace {

constexpr unsigned kBlockSize = 32;
constexpr unsigned kBlocksPerChunk = 4;

char* AllocFrom(CQNFixedAlloc& pool) { return static_cast<char*>(pool.Alloc()); }

TEST(FixedAlloc, HandsOutTheBlocksOfAChunkInAscendingOrder) {
  CQNFixedAlloc pool(kBlockSize, kBlocksPerChunk);
  char* first = AllocFrom(pool);
  for (unsigned i = 1; i < kBlocksPerChunk; ++i) {
    EXPECT_EQ(AllocFrom(pool), first + i * kBlockSize) << i;
  }
}

TEST(FixedAlloc, MakesANewChunkOnlyWhenNoBlockIsFree) {
  CQNFixedAlloc pool(kBlockSize, kBlocksPerChunk);
  std::set<char*> first_chunk;
  for (unsigned i = 0; i < kBlocksPerChunk; ++i) first_chunk.insert(AllocFrom(pool));
  char* second = AllocFrom(pool);
  EXPECT_EQ(first_chunk.count(second), 0u);
  EXPECT_EQ(AllocFrom(pool), second + kBlockSize);
}

TEST(FixedAlloc, AFreedBlockIsTheNextOneHandedOut) {
  CQNFixedAlloc pool(kBlockSize, kBlocksPerChunk);
  char* first = AllocFrom(pool);
  char* second = AllocFrom(pool);
  pool.Free(first);
  pool.Free(second);
  EXPECT_EQ(AllocFrom(pool), second);
  EXPECT_EQ(AllocFrom(pool), first);
  EXPECT_EQ(AllocFrom(pool), first + 2 * kBlockSize);
}

TEST(FixedAlloc, FreeingNullDoesNothing) {
  CQNFixedAlloc pool(kBlockSize, kBlocksPerChunk);
  pool.Free(nullptr);
  char* first = AllocFrom(pool);
  pool.Free(nullptr);
  EXPECT_EQ(AllocFrom(pool), first + kBlockSize);
}

TEST(FixedAlloc, StartsOverAfterFreeAll) {
  CQNFixedAlloc pool(kBlockSize, kBlocksPerChunk);
  pool.FreeAll();
  for (int round = 0; round < 3; ++round) {
    for (unsigned i = 0; i < 3 * kBlocksPerChunk; ++i) AllocFrom(pool);
    pool.FreeAll();
    char* first = AllocFrom(pool);
    EXPECT_EQ(AllocFrom(pool), first + kBlockSize) << round;
    pool.FreeAll();
  }
}

TEST(FixedAlloc, BlocksAreWritableInFullAndAligned) {
  CQNFixedAlloc pool(kBlockSize, kBlocksPerChunk);
  std::vector<char*> blocks;
  for (unsigned i = 0; i < 3 * kBlocksPerChunk; ++i) {
    blocks.push_back(AllocFrom(pool));
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(blocks.back()) % 8, 0u);
    std::memset(blocks.back(), static_cast<int>(i), kBlockSize);
  }
  for (unsigned i = 0; i < blocks.size(); ++i) {
    for (unsigned byte = 0; byte < kBlockSize; ++byte) {
      ASSERT_EQ(blocks[i][byte], static_cast<char>(i));
    }
  }
}

TEST(FixedAlloc, GivesTheSizeOfItsBlocks) {
  EXPECT_EQ(CQNFixedAlloc(kBlockSize, kBlocksPerChunk).GetAllocSize(), kBlockSize);
}

TEST(FixedAlloc, TooSmallParametersStillMakeUsableBlocks) {
  CQNFixedAlloc pool(1, 0);
  char* first = AllocFrom(pool);
  char* second = AllocFrom(pool);
  EXPECT_NE(first, second);
  std::memset(first, 1, 8);
  std::memset(second, 2, 8);
  pool.Free(second);
  pool.Free(first);
  EXPECT_EQ(AllocFrom(pool), first);
}

TEST(FixedAlloc, BlocksOfAnOddSizeLieEndToEnd) {
  constexpr unsigned int kOddSize = 13;
  CQNFixedAlloc pool(kOddSize, 3);
  EXPECT_EQ(pool.GetAllocSize(), kOddSize);
  char* first = AllocFrom(pool);
  char* second = AllocFrom(pool);
  EXPECT_EQ(second - first, kOddSize);
  std::memset(second, 1, kOddSize);
  pool.Free(second);
  EXPECT_EQ(AllocFrom(pool), second);
  EXPECT_EQ(AllocFrom(pool), second + kOddSize);
}

// The copy shares chunks, list and lock; only one of the two is used and destroyed afterwards.
TEST(FixedAlloc, CopyAssignmentSharesTheFieldsAsTheyStand) {
  CQNFixedAlloc source(kBlockSize, kBlocksPerChunk);
  char* first = AllocFrom(source);
  alignas(CQNFixedAlloc) unsigned char storage[sizeof(CQNFixedAlloc)];
  auto* copy = new (storage) CQNFixedAlloc(8, 1);
  *copy = source;
  EXPECT_EQ(copy->GetAllocSize(), kBlockSize);
  EXPECT_EQ(AllocFrom(source), first + kBlockSize);
}

TEST(FixedAlloc, LeavesTheLockWhenTheHeapIsExhausted) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "the sanitizers end the program when the heap is exhausted";
#else
  CQNFixedAlloc pool(0xFFFFFFFFu, 0xFFFFFFFFu);
  EXPECT_THROW(pool.Alloc(), std::bad_alloc);
  // Another thread would wait for ever if the lock were still held.
  auto other =
      std::async(std::launch::async, [&pool] { EXPECT_THROW(pool.Alloc(), std::bad_alloc); });
  other.get();
#endif
}

struct PoolCase {
  CQNFixedAlloc* pool;
  unsigned block_size;
};

TEST(Pools, HaveTheirBlockSizes) {
  const PoolCase cases[] = {
      {_TempData64B(), 80},   {_TempData128B(), 144},   {_TempData256B(), 272},
      {_TempData512B(), 528}, {_TempData1024B(), 1024},
  };
  for (const PoolCase& c : cases) EXPECT_EQ(c.pool->GetAllocSize(), c.block_size);
}

TEST(Pools, AliasesNameTheSamePools) {
  EXPECT_EQ(_TempDataStr64(), _TempData64B());
  EXPECT_EQ(_TempDataStr128(), _TempData128B());
  EXPECT_EQ(_TempDataStr256(), _TempData256B());
  EXPECT_EQ(_TempDataStr512(), _TempData512B());
}

TEST(Pools, AreDistinctAndStayTheSame) {
  std::set<CQNFixedAlloc*> pools = {_TempData64B(), _TempData128B(), _TempData256B(),
                                    _TempData512B(), _TempData1024B()};
  EXPECT_EQ(pools.size(), 5u);
  EXPECT_EQ(_TempData64B(), _TempData64B());
}

}  // namespace
