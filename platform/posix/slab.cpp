// SPDX-License-Identifier: MIT
#include "platform/slab.h"

#include <new>

namespace quarnfc::platform {

void* AllocSlab() { return ::operator new (kSlabSize, std::align_val_t{kSlabSize}); }

void FreeSlab(void* slab) noexcept { ::operator delete (slab, std::align_val_t{kSlabSize}); }

}  // namespace quarnfc::platform
