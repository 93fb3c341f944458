// SPDX-License-Identifier: MIT
// HMAC (RFC 2104) with SHA-256, whose blocks have 64 bytes:
//
//   H((key ^ 0x5C...) H((key ^ 0x36...) message))
//
// A key longer than a block is replaced by its digest. Nothing is allocated.
#ifndef QUARNFC_CODEC_HMAC_HASH_H_
#define QUARNFC_CODEC_HMAC_HASH_H_

#include <cstddef>

#include "codec/sha256.h"

namespace quarnfc::codec {

// A message authenticated piece by piece.
class HmacSha256 {
 public:
  // key may be null when size is 0.
  HmacSha256(const void* key, std::size_t size);

  // Appends size bytes to the message; data may be null when size is 0.
  void Update(const void* data, std::size_t size) { inner_.Update(data, size); }

  // Ends the message. The object is not used afterwards.
  Sha256::Digest Finish();

 private:
  Sha256 inner_;  // behind the key's block
  Sha256 outer_;
};

}  // namespace quarnfc::codec

#endif  // QUARNFC_CODEC_HMAC_HASH_H_
