// SPDX-License-Identifier: MIT
#include <quarnfc/fixed_alloc.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <mutex>
#include <new>

#include "core/memory/spin_lock.h"

namespace {

using quarnfc::SpinLock;
using Guard = std::lock_guard<SpinLock>;

// The storage has the size it has always had; the lock is its first byte.
SpinLock& LockIn(unsigned char* storage) {
  return *std::launder(reinterpret_cast<SpinLock*>(storage));
}

constexpr std::size_t kLinkSize = sizeof(void*);

// Both lists run through the first bytes of their elements. They are read and written as bytes
// because blocks whose size is no multiple of 8 stand at any address.
void Push(void*& list, void* element) {
  std::memcpy(element, &list, kLinkSize);
  list = element;
}

void* Pop(void*& list) {
  void* element = list;
  std::memcpy(&list, element, kLinkSize);
  return element;
}

}  // namespace

CQNFixedAlloc::CQNFixedAlloc(unsigned int blockSize, unsigned int blocksPerChunk)
    : block_size_(std::max(blockSize, static_cast<unsigned int>(kLinkSize))),
      blocks_per_chunk_(std::max(blocksPerChunk, 1u)) {
  static_assert(sizeof(SpinLock) <= sizeof(lock_));
  new (lock_) SpinLock;
}

CQNFixedAlloc::~CQNFixedAlloc() { FreeAll(); }

void* CQNFixedAlloc::Alloc() {
  const Guard guard(LockIn(lock_));
  if (free_ == nullptr) PushNewChunk();
  return Pop(free_);
}

void CQNFixedAlloc::Free(void* block) {
  if (block == nullptr) return;
  const Guard guard(LockIn(lock_));
  Push(free_, block);
}

void CQNFixedAlloc::FreeAll() {
  const Guard guard(LockIn(lock_));
  while (chunks_ != nullptr) ::operator delete[](Pop(chunks_));
  free_ = nullptr;
}

unsigned int CQNFixedAlloc::GetAllocSize() const { return block_size_; }

void CQNFixedAlloc::PushNewChunk() {
  const std::size_t block_size = block_size_;
  void* chunk = ::operator new[](kLinkSize + block_size * blocks_per_chunk_);
  Push(chunks_, chunk);

  // From the last block to the first, so that the first ends at the head of the free list.
  unsigned char* blocks = static_cast<unsigned char*>(chunk) + kLinkSize;
  for (std::size_t i = blocks_per_chunk_; i-- > 0;) Push(free_, blocks + i * block_size);
}
