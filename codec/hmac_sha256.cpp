// SPDX-License-Identifier: MIT
#include "quarnfc/hmac_sha256.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "codec/hmac_hash.h"

namespace quarnfc::codec {
namespace {

constexpr unsigned char kInnerPad = 0x36;
constexpr unsigned char kOuterPad = 0x5C;

// The key filled up with zeros to one block, after a key longer than a block became its digest.
using BlockKey = std::array<unsigned char, Sha256::kBlockBytes>;

BlockKey MakeBlockKey(const void* key, std::size_t size) {
  BlockKey block_key{};
  if (size > block_key.size()) {
    Sha256 hash;
    hash.Update(key, size);
    const Sha256::Digest digest = hash.Finish();
    std::copy(digest.begin(), digest.end(), block_key.begin());
  } else if (size > 0) {
    std::memcpy(block_key.data(), key, size);
  }
  return block_key;
}

void StartWith(Sha256& hash, BlockKey key, unsigned char pad) {
  for (unsigned char& byte : key) byte ^= pad;
  hash.Update(key.data(), key.size());
}

}  // namespace

HmacSha256::HmacSha256(const void* key, std::size_t size) {
  const BlockKey block_key = MakeBlockKey(key, size);
  StartWith(inner_, block_key, kInnerPad);
  StartWith(outer_, block_key, kOuterPad);
}

Sha256::Digest HmacSha256::Finish() {
  const Sha256::Digest inner = inner_.Finish();
  outer_.Update(inner.data(), inner.size());
  return outer_.Finish();
}

}  // namespace quarnfc::codec

namespace QNHMACSHA {

void qnHMAC_SHA256(const char* key, int keySize, const void* data, int dataSize, char* digest,
                   int* length) {
  if (digest == nullptr || length == nullptr) return;
  const std::size_t key_size =
      key == nullptr || keySize < 0 ? 0 : static_cast<std::size_t>(keySize);
  const std::size_t data_size = data == nullptr ? 0 : static_cast<unsigned int>(dataSize);

  quarnfc::codec::HmacSha256 hmac(key, key_size);
  hmac.Update(data, data_size);
  const auto result = hmac.Finish();

  *length = std::min(*length, static_cast<int>(result.size()));
  if (*length > 0) std::memcpy(digest, result.data(), static_cast<std::size_t>(*length));
}

}  // namespace QNHMACSHA
