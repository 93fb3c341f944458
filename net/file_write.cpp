// SPDX-License-Identifier: MIT
#include <quarnfc/internet_file.h>

#include <cstring>

#include "net/file_values.h"
#include "net/handle_registry.h"
#include "net/internet_error.h"
#include "net/lent_buffer.h"
#include "platform/internet.h"

using quarnfc::net::InternetError;
using quarnfc::net::Live;

void CQNInternetFile::Write(const void* buffer, unsigned int count) {
  if (read_mode_ == quarnfc::net::kReadOnly || handle_ == nullptr) {
    InternetError::Throw(ERROR_INVALID_HANDLE, context_);
  }
  if (write_buffer_ == nullptr) {
    if (WriteHandle(buffer, count) != count) InternetError::ThrowLast(context_);
    return;
  }
  // Short writes of a buffered file are deliberately not noticed here; Flush notices them.
  const unsigned __int64 wanted = static_cast<unsigned __int64>(write_position_) + count;
  if (wanted >= write_buffer_size_) WriteHeldBytes(false);
  if (count >= write_buffer_size_) {
    WriteHandle(buffer, count);
    return;
  }
  std::memcpy(write_buffer_ + write_position_, buffer, count);
  write_position_ += count;
}

void CQNInternetFile::WriteString(const char* text) {
  if (read_mode_ == quarnfc::net::kReadOnly) InternetError::Throw(ERROR_INVALID_HANDLE, context_);
  Write(text, text != nullptr ? static_cast<unsigned int>(std::strlen(text)) : 0);
}

void CQNInternetFile::Flush() {
  if (write_buffer_ == nullptr || write_position_ == 0) return;
  WriteHeldBytes(true);
}

unsigned int CQNInternetFile::WriteHandle(const void* data, unsigned int count) {
  DWORD written = 0;
  if (!InternetWriteFile(Live(handle_, this), data, count, &written))
    InternetError::ThrowLast(context_);
  return written;
}

// Writes what the write buffer holds; whole says that a short write is a failure.
void CQNInternetFile::WriteHeldBytes(bool whole) {
  // The position lies behind the buffer when a derived Flush left bytes unwritten and the buffer
  // was then made smaller: those bytes are gone.
  const unsigned int held = write_position_ <= write_buffer_size_ ? write_position_ : 0;
  if (held != 0) {
    const quarnfc::net::LentBuffer lent(write_buffer_, write_buffer_size_, handle_);
    if (WriteHandle(lent.Get(), held) != held && whole) InternetError::ThrowLast(context_);
    if (!lent.Wanted()) InternetError::Throw(ERROR_INTERNET_OPERATION_CANCELLED, context_);
  }
  write_position_ = 0;
}
