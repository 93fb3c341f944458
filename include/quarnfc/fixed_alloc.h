// SPDX-License-Identifier: MIT
// Fixed-size block pools and scratch buffers.
//
// Short strings and short scratch buffers are the library's most frequent allocations. A
// CQNFixedAlloc serves blocks of one size from chunks of many blocks and recycles them through a
// free list. Five pools exist from the loading of the module to its unloading; the string class
// and CQNTempBuffer draw on them.
//
// Threads: every member of CQNFixedAlloc holds the pool's own lock for its whole duration and may
// be called from any thread. A CQNTempBuffer is used by one thread at a time.
//
// Implemented in core/memory: fixed_alloc.cpp, pools.cpp and temp_buffer.cpp.
//
// Example:
//   CQNFixedAlloc pool(24, 64);
//   void* first = pool.Alloc();
//   pool.Free(first);
//   pool.Alloc() == first;              // == true
//   pool.FreeAll();                     // first is gone
//   _TempData64B()->GetAllocSize();     // == 80u
//   CQNTempBuffer scratch(100);
//   std::memset(scratch.GetData(), 0, 100);
//   scratch.GetSize();                  // == 100
#ifndef QUARNFC_FIXED_ALLOC_H_
#define QUARNFC_FIXED_ALLOC_H_

#include <quarnfc/export.h>
#include <quarnfc/platform_types.h>

// A pool of equal blocks. Memory is returned to the heap only by FreeAll and by the destructor.
class QN_API CQNFixedAlloc {
 public:
  // A pool of blocks of blockSize bytes (at least 8; smaller values count as 8), made
  // blocksPerChunk (at least 1) at a time. Nothing is allocated before the first Alloc.
  CQNFixedAlloc(unsigned int blockSize, unsigned int blocksPerChunk);

  // Releases every chunk, as FreeAll does. Blocks still in use become invalid.
  ~CQNFixedAlloc();

  // A pool cannot be copied into a new one.
  CQNFixedAlloc(const CQNFixedAlloc&) = delete;

  // Copies every field as it stands, the lock included. The two objects share their chunks
  // afterwards: only one of them may be used, and only one may be destroyed.
  CQNFixedAlloc& operator=(const CQNFixedAlloc&) = default;

  // One block, uninitialised; return it with Free. A new chunk is made when no block is free: its
  // blocks are handed out in ascending order. Throws std::bad_alloc when the heap is exhausted.
  void* Alloc();

  // Returns a block of this pool (null is ignored). It is the next block that Alloc hands out.
  // Whether the block belongs to this pool is not checked, nor whether it was returned before:
  // either mistake hands one block out twice later.
  void Free(void* block);

  // Gives every chunk back to the heap. Blocks handed out earlier become invalid.
  void FreeAll();

  // The size of one block in bytes.
  unsigned int GetAllocSize() const;

 private:
  void PushNewChunk();

  unsigned int block_size_;
  unsigned int blocks_per_chunk_;
  void* chunks_ = nullptr;  // each begins with a pointer to the one made before it
  void* free_ = nullptr;    // each begins with a pointer to the next free block
  alignas(8) unsigned char lock_[quarnfc::kLockSize];
};

// The pools of the module. Each function returns a pool that lives as long as the module is
// loaded; the _TempDataStr functions are second names of the same pools.
//
//   accessor          alias             block size   serves
//   _TempData64B      _TempDataStr64       80        strings of 1 to 64 bytes, scratch below 64
//   _TempData128B     _TempDataStr128     144        strings of 65 to 128, scratch 64 to 127
//   _TempData256B     _TempDataStr256     272        strings of 129 to 256, scratch 128 to 255
//   _TempData512B     _TempDataStr512     528        strings of 257 to 512, scratch 256 to 511
//   _TempData1024B    (none)             1024        scratch buffers of 512 to 1023 bytes only
QN_PLAIN_API CQNFixedAlloc* _TempData64B();
QN_PLAIN_API CQNFixedAlloc* _TempData128B();
QN_PLAIN_API CQNFixedAlloc* _TempData256B();
QN_PLAIN_API CQNFixedAlloc* _TempData512B();
QN_PLAIN_API CQNFixedAlloc* _TempData1024B();
QN_PLAIN_API CQNFixedAlloc* _TempDataStr64();
QN_PLAIN_API CQNFixedAlloc* _TempDataStr128();
QN_PLAIN_API CQNFixedAlloc* _TempDataStr256();
QN_PLAIN_API CQNFixedAlloc* _TempDataStr512();

// A short-lived buffer: from a pool when it is below 1024 bytes, from the heap otherwise.
class QN_API CQNTempBuffer {
 public:
  // A buffer of size bytes (a negative size counts as 0). Nothing is allocated yet.
  explicit CQNTempBuffer(int size);

  // Returns the buffer to where it came from.
  ~CQNTempBuffer();

  // One object owns a buffer.
  CQNTempBuffer(const CQNTempBuffer&) = delete;
  CQNTempBuffer& operator=(const CQNTempBuffer&) = delete;

  // The buffer, uninitialised, owned by this object and aligned to 8 bytes. It is taken on the
  // first call and stays the same until destruction. Throws std::bad_alloc.
  void* GetData();

  // The requested size in bytes.
  int GetSize() const;

 private:
  CQNFixedAlloc* pool_;
  void* data_ = nullptr;
  int size_;
};

#endif  // QUARNFC_FIXED_ALLOC_H_
