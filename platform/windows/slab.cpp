// SPDX-License-Identifier: MIT
#include "platform/slab.h"

#include <windows.h>

#include <new>

namespace quarnfc::platform {

// Allocations of their own lie at multiples of 65,536. An aligned block of the C heap would take
// twice the memory.
void* AllocSlab() {
  void* slab = VirtualAlloc(nullptr, kSlabSize, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  if (slab == nullptr) throw std::bad_alloc();
  return slab;
}

void FreeSlab(void* slab) noexcept { VirtualFree(slab, 0, MEM_RELEASE); }

}  // namespace quarnfc::platform
