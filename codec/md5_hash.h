// SPDX-License-Identifier: MIT
// MD5 (RFC 1321), in its standard form and in the library's own.
#ifndef QUARNFC_CODEC_MD5_HASH_H_
#define QUARNFC_CODEC_MD5_HASH_H_

#include <array>
#include <cstddef>
#include <cstdint>

#include "codec/block_buffer.h"

namespace quarnfc::codec {

// How message bytes become words.
enum class Md5Packing {
  kStandard,
  // Deliberate and part of QNMD5's data format: each byte is widened as a signed value, and the
  // message length counts modulo 2^32 bits only.
  kSigned,
};

// A message digested piece by piece.
class Md5Hash {
 public:
  static constexpr std::size_t kDigestBytes = 16;
  using State = std::array<std::uint32_t, 4>;

  explicit Md5Hash(Md5Packing packing);

  // Appends size bytes to the message; data may be null when size is 0.
  void Update(const void* data, std::size_t size);

  // Ends the message and returns the state words, whose little-endian bytes are the digest. The
  // object is not used afterwards.
  State Finish();

 private:
  Md5Packing packing_;
  State state_;
  BlockBuffer buffer_;
};

}  // namespace quarnfc::codec

#endif  // QUARNFC_CODEC_MD5_HASH_H_
