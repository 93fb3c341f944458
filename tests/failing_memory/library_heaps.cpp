// SPDX-License-Identifier: MIT
// What the linker puts in the place of the library's two heaps: a block of the plain heap for each
// node and each pool block.
#include <quarnfc/fixed_alloc.h>

#include <cstddef>

#include "core/memory/node_heap.h"
#include "tests/failing_memory/door.h"
#include "tests/failing_memory/linker_names.h"

void* WrappedAllocNode(std::size_t node_class) WRAPPED(ALLOC_NODE);
void* WrappedAllocNode(std::size_t node_class) {
  return failing::TakeBlock(quarnfc::NodeSize(node_class));
}

void WrappedFreeNode(void* node, std::size_t node_class) noexcept WRAPPED(FREE_NODE);
void WrappedFreeNode(void* node, std::size_t /*node_class*/) noexcept { failing::GiveBlock(node); }

// Without data no thread keeps nodes in stock: each request arrives above.
void WrappedSetThreadData(void* data, void (*at_end)(void* data)) WRAPPED(SET_THREAD_DATA);
void WrappedSetThreadData(void* /*data*/, void (* /*at_end*/)(void* data)) {}

void* WrappedAllocBlock(CQNFixedAlloc* pool) WRAPPED(ALLOC_BLOCK);
void* WrappedAllocBlock(CQNFixedAlloc* pool) { return failing::TakeBlock(pool->GetAllocSize()); }

void WrappedFreeBlock(CQNFixedAlloc* pool, void* block) WRAPPED(FREE_BLOCK);
void WrappedFreeBlock(CQNFixedAlloc* /*pool*/, void* block) { failing::GiveBlock(block); }
