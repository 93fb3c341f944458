// SPDX-License-Identifier: MIT
// Small blocks ("nodes") for many threads: string cells, JSON values and texts, objects.
//
// Method, as in the small-object allocators of tcmalloc: nodes of one size class are cut from slabs
// of 64 KiB. Each thread keeps up to two batches of free nodes per class and serves itself from
// them without a lock. Batches come from and go back to the slabs under one lock per class, so
// nodes may be freed on any thread. A slab whose nodes are all free serves another class or goes
// back to the system. What an ending thread kept goes back to the slabs.
//
// The end of the process frees nothing, since other threads may still be running; unloading the
// module frees everything.
#ifndef QUARNFC_CORE_MEMORY_NODE_HEAP_H_
#define QUARNFC_CORE_MEMORY_NODE_HEAP_H_

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/thread_data.h"

namespace quarnfc {

inline constexpr std::size_t kLargestNode = 256;

// Size classes: multiples of 8 up to 64, multiples of 32 above. A node of a multiple of 16 bytes
// lies at a multiple of 16.
inline constexpr std::size_t kNodeClasses = 8 + 6;

constexpr std::size_t NodeClass(std::size_t size) {
  return size <= 64 ? (size + 7) / 8 - (size > 0) : 8 + (size - 65) / 32;
}

constexpr std::size_t NodeSize(std::size_t node_class) {
  return node_class < 8 ? (node_class + 1) * 8 : 64 + (node_class - 7) * 32;
}

constexpr std::uint32_t NodesPerBatch(std::size_t node_class) {
  return static_cast<std::uint32_t>(8192 / NodeSize(node_class));
}

// A free node begins with a pointer to the next one of its list.
struct FreeNodeLink {
  FreeNodeLink* next;
};

// What one thread keeps of a class: a list it works on, and a full batch or none.
struct NodeStock {
  FreeNodeLink* active;
  FreeNodeLink* spare;
  std::uint32_t count;  // of the active list
};

struct NodeCache {
  std::array<NodeStock, kNodeClasses> stocks{};
  NodeCache* next = nullptr;
  NodeCache* previous = nullptr;
};

void* AllocNodeSlowly(std::size_t node_class);
void FreeNodeSlowly(void* node, std::size_t node_class) noexcept;

// A node of at least size bytes (at most kLargestNode), uninitialised. Throws std::bad_alloc.
inline void* AllocHeapNode(std::size_t size) {
  const std::size_t node_class = NodeClass(size);
  auto* cache = static_cast<NodeCache*>(platform::ThreadData());
  if (cache == nullptr) return AllocNodeSlowly(node_class);
  NodeStock& stock = cache->stocks[node_class];
  FreeNodeLink* node = stock.active;
  if (node == nullptr) return AllocNodeSlowly(node_class);
  stock.active = node->next;
  --stock.count;
  return node;
}

// Takes back a node of this size, on whatever thread.
inline void FreeHeapNode(void* node, std::size_t size) noexcept {
  const std::size_t node_class = NodeClass(size);
  auto* cache = static_cast<NodeCache*>(platform::ThreadData());
  if (cache == nullptr) return FreeNodeSlowly(node, node_class);
  NodeStock& stock = cache->stocks[node_class];
  if (stock.count == NodesPerBatch(node_class)) return FreeNodeSlowly(node, node_class);
  auto* link = static_cast<FreeNodeLink*>(node);
  link->next = stock.active;
  stock.active = link;
  ++stock.count;
}

// How many slabs are in use or kept ready; for tests.
std::size_t NodeSlabCount();

}  // namespace quarnfc

#endif  // QUARNFC_CORE_MEMORY_NODE_HEAP_H_
