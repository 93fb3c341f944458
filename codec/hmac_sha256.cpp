// HMAC (RFC 2104) with SHA-256, whose blocks have 64 bytes:
//
//   H((key ^ 0x5C...) H((key ^ 0x36...) data))
//
// A key longer than a block is replaced by its digest. Nothing is allocated; two digest states of
// about a hundred bytes, one after the other, on the stack.
#include "quarnfc/hmac_sha256.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "codec/sha256.h"

namespace quarnfc::codec {
namespace {

constexpr unsigned char kInnerPad = 0x36;
constexpr unsigned char kOuterPad = 0x5C;

// The key filled up with zeros to one block, after a key longer than a block became its digest.
using BlockKey = std::array<unsigned char, Sha256::kBlockBytes>;

Sha256::Digest DigestOf(const void* data, std::size_t size) {
  Sha256 hash;
  hash.Update(data, size);
  return hash.Finish();
}

BlockKey MakeBlockKey(const char* key, std::size_t size) {
  BlockKey block_key{};
  if (size > block_key.size()) {
    const Sha256::Digest digest = DigestOf(key, size);
    std::copy(digest.begin(), digest.end(), block_key.begin());
  } else {
    std::copy(key, key + size, block_key.begin());
  }
  return block_key;
}

// SHA-256 of the key XOR-ed with pad, followed by data.
Sha256::Digest KeyedDigest(BlockKey key, unsigned char pad, const void* data, std::size_t size) {
  for (unsigned char& byte : key) byte ^= pad;
  Sha256 hash;
  hash.Update(key.data(), key.size());
  hash.Update(data, size);
  return hash.Finish();
}

}  // namespace
}  // namespace quarnfc::codec

namespace QNHMACSHA {

using quarnfc::codec::KeyedDigest;

void qnHMAC_SHA256(const char* key, int keySize, const void* data, int dataSize, char* digest,
                   int* length) {
  if (digest == nullptr || length == nullptr) return;
  const std::size_t key_size = key == nullptr || keySize < 0 ? 0 : keySize;
  const std::size_t data_size = data == nullptr ? 0 : static_cast<unsigned int>(dataSize);

  const auto block_key = quarnfc::codec::MakeBlockKey(key, key_size);
  const auto inner = KeyedDigest(block_key, quarnfc::codec::kInnerPad, data, data_size);
  const auto outer = KeyedDigest(block_key, quarnfc::codec::kOuterPad, inner.data(), inner.size());

  *length = std::min(*length, static_cast<int>(outer.size()));
  if (*length > 0) std::memcpy(digest, outer.data(), *length);
}

}  // namespace QNHMACSHA
