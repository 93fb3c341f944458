// SPDX-License-Identifier: MIT
// First, because MinGW exports the type information of a class that is defined after an exported
// one.
#include <new>

#include <quarnfc/internet_file.h>

#include <cstring>
#include <utility>

#include "net/owned_bytes.h"

using quarnfc::net::AllocZeroed;
using quarnfc::net::GiveTo;
using quarnfc::net::OwnedBytes;

namespace {

constexpr unsigned int kUnchangedSize = 0xFFFFFFFF;

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
  OwnedBytes fresh = size != 0 ? AllocZeroed(size) : nullptr;
  if (fresh != nullptr) {
    // Deliberately counted from the old buffer's size, not from its valid bytes.
    const unsigned int moved = read_buffer_ != nullptr ? read_buffer_size_ - read_position_ : 0;
    const bool carried = moved > 0 && moved <= size;
    if (carried) std::memcpy(fresh.get(), read_buffer_ + read_position_, moved);
    read_bytes_ = carried ? moved : 0;
    // A position at the end makes the next read refill the buffer.
    read_position_ = carried ? 0 : size;
  }
  GiveTo(read_buffer_, std::move(fresh));
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
  OwnedBytes fresh = size != 0 ? AllocZeroed(size) : nullptr;
  if (fresh != nullptr && write_buffer_ == nullptr) {
    write_position_ = 0;
  } else if (fresh != nullptr && write_position_ <= size) {
    std::memcpy(fresh.get(), write_buffer_, write_position_);
  }
  GiveTo(write_buffer_, std::move(fresh));
}
