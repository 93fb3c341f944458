// SPDX-License-Identifier: MIT
#ifndef QUARNFC_TESTS_SUPPORT_NEXT_BLOCK_H_
#define QUARNFC_TESTS_SUPPORT_NEXT_BLOCK_H_

#include <quarnfc/fixed_alloc.h>

namespace quarnfc_test {

// The block the pool hands out next.
inline void* NextBlock(CQNFixedAlloc* pool) {
  void* block = pool->Alloc();
  pool->Free(block);
  return block;
}

}  // namespace quarnfc_test

#endif  // QUARNFC_TESTS_SUPPORT_NEXT_BLOCK_H_
