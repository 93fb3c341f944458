// SPDX-License-Identifier: MIT
// Buffers that the codecs and digests hand to the caller, who releases them with qnFreeMem.
#ifndef QUARNFC_CODEC_RESULT_BUFFER_H_
#define QUARNFC_CODEC_RESULT_BUFFER_H_

#include <cstdint>
#include <new>

#include "core/memory/memory.h"

namespace quarnfc::codec {

// An uninitialised buffer of count characters, or null when memory is exhausted: nothing in this
// folder throws.
template <class Char>
Char* TryAllocResult(std::uint64_t count) noexcept {
  try {
    return static_cast<Char*>(AllocBuffer(count * sizeof(Char)));
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

}  // namespace quarnfc::codec

#endif  // QUARNFC_CODEC_RESULT_BUFFER_H_
