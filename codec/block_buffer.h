// SPDX-License-Identifier: MIT
// Cuts a message that arrives piece by piece into the blocks of a digest.
#ifndef QUARNFC_CODEC_BLOCK_BUFFER_H_
#define QUARNFC_CODEC_BLOCK_BUFFER_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace quarnfc::codec {

class BlockBuffer {
 public:
  static constexpr std::size_t kBlockBytes = 64;

  // Appends size bytes to the message (data may be null when size is 0) and calls
  // compress(blocks, count) for the blocks that are complete: where they lie, but for one that
  // began in an earlier piece.
  template <class Compress>
  void Append(const void* data, std::size_t size, const Compress& compress) {
    if (size == 0) return;
    const auto* bytes = static_cast<const unsigned char*>(data);
    const std::size_t pending = PendingSize();
    message_bytes_ += size;
    if (pending != 0) {
      const std::size_t taken = std::min(size, kBlockBytes - pending);
      std::memcpy(pending_ + pending, bytes, taken);
      if (pending + taken < kBlockBytes) return;
      compress(pending_, 1);
      bytes += taken;
      size -= taken;
    }
    if (size >= kBlockBytes) compress(bytes, size / kBlockBytes);
    const std::size_t rest = size % kBlockBytes;
    std::memcpy(pending_, bytes + (size - rest), rest);
  }

  std::uint64_t MessageBytes() const { return message_bytes_; }

  // The incomplete last block.
  const unsigned char* Pending() const { return pending_; }
  std::size_t PendingSize() const { return message_bytes_ % kBlockBytes; }

 private:
  std::uint64_t message_bytes_ = 0;
  unsigned char pending_[kBlockBytes] = {};
};

}  // namespace quarnfc::codec

#endif  // QUARNFC_CODEC_BLOCK_BUFFER_H_
