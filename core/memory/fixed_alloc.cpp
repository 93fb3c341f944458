// SPDX-License-Identifier: MIT
#include <quarnfc/fixed_alloc.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>

#include "platform/lock.h"

namespace {

using quarnfc::platform::Lock;
using quarnfc::platform::LockGuard;

Lock& LockIn(unsigned char* storage) { return *std::launder(reinterpret_cast<Lock*>(storage)); }

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
  static_assert(sizeof(Lock) == sizeof(lock_));
  new (lock_) Lock;
}

CQNFixedAlloc::~CQNFixedAlloc() {
  FreeAll();
  LockIn(lock_).~Lock();
}

void* CQNFixedAlloc::Alloc() {
  LockGuard guard(LockIn(lock_));
  if (free_ == nullptr) PushNewChunk();
  return Pop(free_);
}

void CQNFixedAlloc::Free(void* block) {
  if (block == nullptr) return;
  LockGuard guard(LockIn(lock_));
  Push(free_, block);
}

void CQNFixedAlloc::FreeAll() {
  LockGuard guard(LockIn(lock_));
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
