// SPDX-License-Identifier: MIT
// Large pieces of memory that lie at a multiple of their size, so that the piece which an address
// belongs to is found by masking the address.
#ifndef QUARNFC_PLATFORM_SLAB_H_
#define QUARNFC_PLATFORM_SLAB_H_

#include <cstddef>

namespace quarnfc::platform {

inline constexpr std::size_t kSlabSize = 65536;

// kSlabSize bytes at a multiple of kSlabSize, uninitialised. Throws std::bad_alloc.
void* AllocSlab();
void FreeSlab(void* slab) noexcept;

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_SLAB_H_
