// SPDX-License-Identifier: MIT
#include <quarnfc/internet_file.h>

#include <algorithm>
#include <cstring>

#include "net/file_values.h"
#include "net/handle_registry.h"
#include "net/internet_error.h"
#include "net/lent_buffer.h"
#include "platform/internet.h"

using quarnfc::net::InternetError;
using quarnfc::net::Live;

unsigned int CQNInternetFile::Read(void* buffer, unsigned int count) {
  if (read_mode_ == quarnfc::net::kWriteOnly || handle_ == nullptr) {
    InternetError::Throw(ERROR_INVALID_HANDLE, context_);
  }
  if (read_buffer_ == nullptr) return ReadHandle(buffer, count);

  auto* target = static_cast<unsigned char*>(buffer);
  if (count >= read_buffer_size_) {
    const unsigned int taken = TakeBuffered(target, count);
    // The buffer counts as used up to its end, however much of it was valid.
    read_position_ = read_buffer_size_;
    return taken + ReadHandle(target + taken, count - taken);
  }
  const unsigned int taken = TakeBuffered(target, count);
  if (read_position_ < read_bytes_) return taken;
  RefillReadBuffer();
  return taken + TakeBuffered(target + taken, count - taken);
}

// Moves up to count valid bytes from the read buffer to target.
unsigned int CQNInternetFile::TakeBuffered(void* target, unsigned int count) {
  if (read_position_ >= read_bytes_) return 0;
  const unsigned int taken = std::min(count, read_bytes_ - read_position_);
  if (taken != 0) std::memcpy(target, read_buffer_ + read_position_, taken);
  read_position_ += taken;
  return taken;
}

unsigned int CQNInternetFile::ReadHandle(void* buffer, unsigned int count) {
  DWORD read = 0;
  if (!InternetReadFile(Live(handle_, this), buffer, count, &read))
    InternetError::ThrowLast(context_);
  return read;
}

void CQNInternetFile::RefillReadBuffer() {
  if (handle_ == nullptr || read_buffer_ == nullptr) {
    InternetError::Throw(ERROR_INVALID_HANDLE, context_);
  }
  read_bytes_ = 0;
  read_position_ = 0;
  const quarnfc::net::LentBuffer lent(read_buffer_, read_buffer_size_, handle_);
  const unsigned int read = ReadHandle(lent.Get(), read_buffer_size_);
  if (!lent.Wanted()) InternetError::Throw(ERROR_INTERNET_OPERATION_CANCELLED, context_);
  read_bytes_ = read;
  read_position_ = 0;
}
