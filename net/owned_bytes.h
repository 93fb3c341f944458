// SPDX-License-Identifier: MIT
// Owners of a file's read and write buffers. The members of CQNInternetFile itself stay plain
// pointers, whose types hosts are compiled against: everything else that holds a buffer owns it.
#ifndef QUARNFC_NET_OWNED_BYTES_H_
#define QUARNFC_NET_OWNED_BYTES_H_

#include <cstddef>
#include <cstring>
#include <memory>
#include <utility>

#include "core/memory/memory.h"

namespace quarnfc::net {

using OwnedBytes = std::unique_ptr<unsigned char[], BufferDeleter>;

// A zero-filled buffer, so that no rule ever hands out bytes that were never set. Throws
// std::bad_alloc.
inline OwnedBytes AllocZeroed(std::size_t size) {
  return OwnedBytes(static_cast<unsigned char*>(std::memset(AllocBuffer(size), 0, size)));
}

// Takes the buffer out of a member, which is null afterwards.
inline OwnedBytes TakeFrom(unsigned char*& member) {
  return OwnedBytes(std::exchange(member, nullptr));
}

// Gives a buffer to a member and frees the one it had.
inline void GiveTo(unsigned char*& member, OwnedBytes buffer) {
  const OwnedBytes old = TakeFrom(member);
  member = buffer.release();
}

}  // namespace quarnfc::net

#endif  // QUARNFC_NET_OWNED_BYTES_H_
