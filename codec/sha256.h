// SPDX-License-Identifier: MIT
// SHA-256 (FIPS 180-4): blocks of 64 bytes, the last filled up with one set bit, zeros and the
// length in bits. Blocks are compressed where they lie, by the processor's own instructions where
// it has them; nothing is allocated.
#ifndef QUARNFC_CODEC_SHA256_H_
#define QUARNFC_CODEC_SHA256_H_

#include <array>
#include <cstddef>
#include <cstdint>

#include "codec/block_buffer.h"

namespace quarnfc::codec {

// A message digested piece by piece.
class Sha256 {
 public:
  static constexpr std::size_t kBlockBytes = BlockBuffer::kBlockBytes;
  static constexpr std::size_t kDigestBytes = 32;
  using Digest = std::array<unsigned char, kDigestBytes>;
  using State = std::array<std::uint32_t, 8>;

  Sha256();

  // Appends size bytes to the message; data may be null when size is 0.
  void Update(const void* data, std::size_t size);

  // Ends the message and returns its digest. The object is not used afterwards.
  Digest Finish();

 private:
  State state_;
  BlockBuffer buffer_;
};

}  // namespace quarnfc::codec

#endif  // QUARNFC_CODEC_SHA256_H_
