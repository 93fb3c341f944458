// SPDX-License-Identifier: MIT
// A file's buffer while the platform reads into it or writes from it.
#ifndef QUARNFC_NET_LENT_BUFFER_H_
#define QUARNFC_NET_LENT_BUFFER_H_

#include <quarnfc/platform_types.h>

#include "net/owned_bytes.h"

namespace quarnfc::net {

// The platform may call back into the host during a transfer, and the host may close the file or
// change its buffers there. So the buffer belongs to this object until the transfer is over, and
// then goes back to its file only if that still waits for it.
class LentBuffer {
 public:
  LentBuffer(unsigned char*& slot, const unsigned int& size, const HINTERNET& file)
      : slot_(slot), size_(size), file_(file), buffer_(TakeFrom(slot)), original_size_(size) {}

  ~LentBuffer() {
    if (Wanted()) slot_ = buffer_.release();
  }

  LentBuffer(const LentBuffer&) = delete;
  LentBuffer& operator=(const LentBuffer&) = delete;

  unsigned char* Get() const { return buffer_.get(); }

  // Whether the file is still open and has taken no other buffer.
  bool Wanted() const { return file_ != nullptr && slot_ == nullptr && size_ == original_size_; }

 private:
  unsigned char*& slot_;
  const unsigned int& size_;
  const HINTERNET& file_;
  OwnedBytes buffer_;
  const unsigned int original_size_;
};

}  // namespace quarnfc::net

#endif  // QUARNFC_NET_LENT_BUFFER_H_
