#include <quarnfc/fixed_alloc.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>

#include "platform/platform.h"

namespace {

CRITICAL_SECTION* SectionIn(unsigned char* storage) {
  return std::launder(reinterpret_cast<CRITICAL_SECTION*>(storage));
}

class Guard {
 public:
  explicit Guard(unsigned char* storage) : section_(SectionIn(storage)) {
    EnterCriticalSection(section_);
  }
  ~Guard() { LeaveCriticalSection(section_); }
  Guard(const Guard&) = delete;
  Guard& operator=(const Guard&) = delete;

 private:
  CRITICAL_SECTION* section_;
};

// The free list runs through the blocks' first bytes. They are read and written as bytes because
// blocks whose size is no multiple of 8 stand at any address.
template <class Link>
void Push(Link*& list, void* block) {
  std::memcpy(block, static_cast<const void*>(&list), sizeof(list));
  list = static_cast<Link*>(block);
}

template <class Link>
void* Pop(Link*& list) {
  void* block = list;
  std::memcpy(static_cast<void*>(&list), block, sizeof(list));
  return block;
}

}  // namespace

CQNFixedAlloc::CQNFixedAlloc(unsigned int blockSize, unsigned int blocksPerChunk)
    : block_size_(std::max(blockSize, static_cast<unsigned int>(sizeof(Link)))),
      blocks_per_chunk_(std::max(blocksPerChunk, 1u)) {
  static_assert(sizeof(CRITICAL_SECTION) <= sizeof(lock_));
  InitializeCriticalSection(new (lock_) CRITICAL_SECTION);
}

CQNFixedAlloc::~CQNFixedAlloc() {
  FreeAll();
  DeleteCriticalSection(SectionIn(lock_));
}

void* CQNFixedAlloc::Alloc() {
  Guard guard(lock_);
  if (free_ == nullptr) PushNewChunk();
  return Pop(free_);
}

void CQNFixedAlloc::Free(void* block) {
  if (block == nullptr) return;
  Guard guard(lock_);
  Push(free_, block);
}

void CQNFixedAlloc::FreeAll() {
  Guard guard(lock_);
  while (chunks_ != nullptr) {
    Link* chunk = chunks_;
    chunks_ = chunk->next;
    ::operator delete[](chunk);
  }
  free_ = nullptr;
}

unsigned int CQNFixedAlloc::GetAllocSize() const { return block_size_; }

void CQNFixedAlloc::PushNewChunk() {
  const std::size_t block_size = block_size_;
  auto* chunk =
      static_cast<unsigned char*>(::operator new[](sizeof(Link) + block_size * blocks_per_chunk_));
  chunks_ = new (chunk) Link{chunks_};

  // From the last block to the first, so that the first ends at the head of the free list.
  unsigned char* blocks = chunk + sizeof(Link);
  for (std::size_t i = blocks_per_chunk_; i-- > 0;) {
    Push(free_, blocks + i * block_size);
  }
}
