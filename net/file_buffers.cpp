// SPDX-License-Identifier: MIT
// First, because MinGW exports the type information of a class that is defined after an exported
// one.
#include <new>

#include <quarnfc/internet_file.h>

#include <cstring>

#include "core/memory/memory.h"

namespace {

constexpr unsigned int kUnchangedSize = 0xFFFFFFFF;

// A zero-filled buffer, so that no rule below ever hands out bytes that were never set.
unsigned char* AllocZeroed(unsigned int size) {
  return static_cast<unsigned char*>(std::memset(quarnfc::AllocBuffer(size), 0, size));
}

}  // namespace

int CQNInternetFile::SetReadBufferSize(unsigned int size) {
  if (size == kUnchangedSize || size == read_buffer_size_) return 1;
  if (read_position_ > size) return 0;
  try {
    ReplaceReadBuffer(size);
  } catch (const std::bad_alloc&) {
    return 0;
  }
  read_buffer_size_ = size;
  return 1;
}

void CQNInternetFile::ReplaceReadBuffer(unsigned int size) {
  unsigned char* fresh = size != 0 ? AllocZeroed(size) : nullptr;
  if (fresh != nullptr) {
    // Deliberately counted from the old buffer's size, not from its valid bytes.
    const unsigned int moved = read_buffer_ != nullptr ? read_buffer_size_ - read_position_ : 0;
    const bool carried = moved > 0 && moved <= size;
    if (carried) std::memcpy(fresh, read_buffer_ + read_position_, moved);
    read_bytes_ = carried ? moved : 0;
    // A position at the end makes the next read refill the buffer.
    read_position_ = carried ? 0 : size;
  }
  quarnfc::FreeBuffer(read_buffer_);
  read_buffer_ = fresh;
}

int CQNInternetFile::SetWriteBufferSize(unsigned int size) {
  if (size == write_buffer_size_) return 1;
  if (write_position_ > size) Flush();
  ReplaceWriteBuffer(size);
  write_buffer_size_ = size;
  return 1;
}

// Without a buffer, before or after, nothing is carried over; removing one deliberately leaves the
// position as it is.
void CQNInternetFile::ReplaceWriteBuffer(unsigned int size) {
  unsigned char* fresh = size != 0 ? AllocZeroed(size) : nullptr;
  if (fresh != nullptr && write_buffer_ == nullptr) {
    write_position_ = 0;
  } else if (fresh != nullptr && write_position_ <= size) {
    std::memcpy(fresh, write_buffer_, write_position_);
  }
  quarnfc::FreeBuffer(write_buffer_);
  write_buffer_ = fresh;
}
