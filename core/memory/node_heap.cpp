// SPDX-License-Identifier: MIT
#include "core/memory/node_heap.h"

#include <algorithm>
#include <mutex>
#include <new>
#include <utility>

#include "core/memory/memory.h"
#include "core/memory/spin_lock.h"
#include "platform/module.h"
#include "platform/slab.h"

namespace quarnfc {
namespace {

// The members of a list that are linked both ways.
template <class Element, Element* Element::*kNext, Element* Element::*kPrevious>
class List {
 public:
  void Add(Element* element) {
    element->*kPrevious = nullptr;
    element->*kNext = first_;
    if (first_ != nullptr) first_->*kPrevious = element;
    first_ = element;
  }

  void Remove(Element* element) {
    Element* const next = element->*kNext;
    Element* const previous = element->*kPrevious;
    (previous != nullptr ? previous->*kNext : first_) = next;
    if (next != nullptr) next->*kPrevious = previous;
  }

  Element* First() const { return first_; }

 private:
  Element* first_ = nullptr;
};

// The head of a slab; its nodes follow.
struct alignas(64) Slab {
  FreeNodeLink* free = nullptr;
  std::uint32_t used = 0;              // nodes that threads hold
  std::uint32_t fresh = sizeof(Slab);  // where the nodes begin that nobody ever had
  Slab* next = nullptr;                // among the slabs of the class that have free nodes
  Slab* previous = nullptr;
  Slab* next_of_all = nullptr;
  Slab* previous_of_all = nullptr;

  bool IsFull(std::size_t size) const {
    return free == nullptr && fresh + size > platform::kSlabSize;
  }
};

// A class's slabs with free nodes.
struct NodeClassHeap {
  SpinLock lock;
  List<Slab, &Slab::next, &Slab::previous> available;
};

constexpr std::size_t kKeptSlabs = 16;

constinit std::array<NodeClassHeap, kNodeClasses> g_classes{};

// What concerns all classes; its lock is taken inside that of a class, never the other way round.
constinit SpinLock g_lock;
constinit List<Slab, &Slab::next_of_all, &Slab::previous_of_all> g_slabs;
constinit List<NodeCache, &NodeCache::next, &NodeCache::previous> g_caches;
constinit std::array<Slab*, kKeptSlabs> g_kept{};
constinit std::size_t g_kept_count = 0;
constinit std::size_t g_slab_count = 0;

Slab* TakeSlab() {
  const std::lock_guard guard(g_lock);
  void* place = g_kept_count > 0 ? g_kept[g_kept_count - 1] : platform::AllocSlab();
  if (g_kept_count > 0) {
    g_slabs.Remove(g_kept[--g_kept_count]);
  } else {
    ++g_slab_count;
  }
  Slab* slab = new (place) Slab;
  g_slabs.Add(slab);
  return slab;
}

void GiveSlabBack(Slab* slab) {
  const std::lock_guard guard(g_lock);
  if (g_kept_count < kKeptSlabs) {
    g_kept[g_kept_count++] = slab;
    return;
  }
  g_slabs.Remove(slab);
  --g_slab_count;
  platform::FreeSlab(slab);
}

// Links up to count nodes of the slab behind the link at end, which moves to the last one's.
// Returns how many there were.
std::uint32_t TakeNodes(Slab& slab, std::size_t size, std::uint32_t count, FreeNodeLink**& end) {
  std::uint32_t taken = 0;
  for (; taken < count && slab.free != nullptr; ++taken) {
    *end = slab.free;
    end = &slab.free->next;
    slab.free = slab.free->next;
  }
  auto* const start = reinterpret_cast<unsigned char*>(&slab);
  for (; taken < count && slab.fresh + size <= platform::kSlabSize; ++taken) {
    *end = reinterpret_cast<FreeNodeLink*>(start + slab.fresh);
    end = &(*end)->next;
    slab.fresh += static_cast<std::uint32_t>(size);
  }
  slab.used += taken;
  return taken;
}

// A batch of nodes in the order in which they lie in fresh slabs. With memory exhausted it is
// smaller, but never empty.
void FillStock(NodeStock& stock, std::size_t node_class) {
  const std::size_t size = NodeSize(node_class);
  NodeClassHeap& heap = g_classes[node_class];
  const std::lock_guard guard(heap.lock);
  if (heap.available.First() == nullptr) heap.available.Add(TakeSlab());
  FreeNodeLink** end = &stock.active;
  while (stock.count < NodesPerBatch(node_class) && heap.available.First() != nullptr) {
    Slab* slab = heap.available.First();
    stock.count += TakeNodes(*slab, size, NodesPerBatch(node_class) - stock.count, end);
    if (slab->IsFull(size)) heap.available.Remove(slab);
  }
  *end = nullptr;
}

void GiveNodeBack(NodeClassHeap& heap, FreeNodeLink* node, std::size_t size) {
  const auto address = reinterpret_cast<std::uintptr_t>(node);
  auto* slab = reinterpret_cast<Slab*>(address & ~(std::uintptr_t{platform::kSlabSize} - 1));
  if (slab->IsFull(size)) heap.available.Add(slab);
  node->next = slab->free;
  slab->free = node;
  if (--slab->used > 0) return;
  heap.available.Remove(slab);
  GiveSlabBack(slab);
}

void GiveListBack(FreeNodeLink* list, std::size_t node_class) {
  if (list == nullptr) return;
  NodeClassHeap& heap = g_classes[node_class];
  const std::lock_guard guard(heap.lock);
  while (list != nullptr) {
    FreeNodeLink* node = list;
    list = list->next;
    GiveNodeBack(heap, node, NodeSize(node_class));
  }
}

void EndCache(void* data) {
  auto* cache = static_cast<NodeCache*>(data);
  for (std::size_t i = 0; i < kNodeClasses; ++i) {
    GiveListBack(cache->stocks[i].active, i);
    GiveListBack(cache->stocks[i].spare, i);
  }
  const std::lock_guard guard(g_lock);
  g_caches.Remove(cache);
  delete cache;
}

void FreeEverything() {
  platform::ReleaseThreadData();
  while (NodeCache* cache = g_caches.First()) {
    g_caches.Remove(cache);
    delete cache;
  }
  while (Slab* slab = g_slabs.First()) {
    g_slabs.Remove(slab);
    platform::FreeSlab(slab);
  }
}

// Made with the first cache, so that it goes after every static object that holds nodes.
struct Unloading {
  Unloading() = default;
  Unloading(const Unloading&) = delete;
  Unloading& operator=(const Unloading&) = delete;
  ~Unloading() {
    if (platform::ModuleIsUnloading()) FreeEverything();
  }
};

NodeCache& MakeCache() {
  static const Unloading unloading;
  auto* cache = new NodeCache;
  try {
    platform::SetThreadData(cache, EndCache);
  } catch (...) {
    delete cache;
    throw;
  }
  const std::lock_guard guard(g_lock);
  g_caches.Add(cache);
  return *cache;
}

// The module's first cache is made when it is loaded, by one thread.
constinit const void* g_loading_thread = nullptr;
[[maybe_unused]] const bool g_loaded =
    (MakeCache(), g_loading_thread = platform::ThreadMark(), true);

void NoteThread() noexcept {
  if (g_loading_thread != nullptr && g_loading_thread != platform::ThreadMark()) {
    platform::NoteOtherThread();
  }
}

NodeCache& MakeCacheOfThread() {
  NoteThread();
  return MakeCache();
}

}  // namespace

void* AllocNodeSlowly(std::size_t node_class) {
  auto* cache = static_cast<NodeCache*>(platform::ThreadData());
  NodeStock& stock = (cache != nullptr ? *cache : MakeCacheOfThread()).stocks[node_class];
  if (stock.active == nullptr && stock.spare != nullptr) {
    stock.active = std::exchange(stock.spare, nullptr);
    stock.count = NodesPerBatch(node_class);
  }
  if (stock.active == nullptr) FillStock(stock, node_class);
  --stock.count;
  return std::exchange(stock.active, stock.active->next);
}

void FreeNodeSlowly(void* node, std::size_t node_class) noexcept {
  auto* link = static_cast<FreeNodeLink*>(node);
  link->next = nullptr;
  auto* cache = static_cast<NodeCache*>(platform::ThreadData());
  if (cache == nullptr) return GiveListBack(link, node_class);
  NodeStock& stock = cache->stocks[node_class];
  FreeNodeLink* surplus = std::exchange(stock.spare, stock.active);
  stock.active = link;
  stock.count = 1;
  GiveListBack(surplus, node_class);
}

void* AllocPlainNode(std::size_t size) {
  NoteThread();
  return ::operator new(size);
}

std::size_t NodeSlabCount() {
  const std::lock_guard guard(g_lock);
  return g_slab_count;
}

}  // namespace quarnfc
