// SPDX-License-Identifier: MIT
// The exported streams are rooms of fixed size for the digests of this folder, so that a host's
// code does not depend on their layout.
#include <quarnfc/digest_streams.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <type_traits>

#include "codec/byte_order.h"
#include "codec/crc64_hash.h"
#include "codec/hex_text.h"
#include "codec/hmac_hash.h"
#include "codec/md5_hash.h"
#include "codec/sha256.h"

namespace quarnfc::codec {
namespace {

// The digest kept in a stream's words.
template <class Hash, std::size_t kWords>
Hash& HashIn(unsigned __int64 (&words)[kWords]) {
  static_assert(sizeof(Hash) <= sizeof(words) && alignof(Hash) <= alignof(unsigned __int64));
  static_assert(std::is_trivially_copyable_v<Hash> && std::is_trivially_destructible_v<Hash>);
  return *std::launder(reinterpret_cast<Hash*>(words));
}

template <class Hash>
void Append(Hash& hash, const void* data, std::size_t size) {
  hash.Update(data, data == nullptr ? 0 : size);
}

void Store(const Md5Hash::State& state, unsigned char* digest) {
  if (digest == nullptr) return;
  for (const std::uint32_t word : state) {
    for (int shift = 0; shift < 32; shift += 8) {
      *digest++ = static_cast<unsigned char>(word >> shift);
    }
  }
}

void Store(const Sha256::Digest& result, unsigned char* digest) {
  if (digest != nullptr) std::copy(result.begin(), result.end(), digest);
}

}  // namespace
}  // namespace quarnfc::codec

using quarnfc::codec::Append;
using quarnfc::codec::HashIn;
using quarnfc::codec::HmacSha256;
using quarnfc::codec::Md5Hash;
using quarnfc::codec::Md5Packing;
using quarnfc::codec::Sha256;
using quarnfc::codec::Store;

// --- MD5 ----------------------------------------------------------------------------------------

CQNMD5Stream::CQNMD5Stream() { Init(); }

void CQNMD5Stream::Init() { new (state_) Md5Hash(Md5Packing::kStandard); }

void CQNMD5Stream::Update(const void* data, std::size_t size) {
  Append(HashIn<Md5Hash>(state_), data, size);
}

void CQNMD5Stream::Finish(unsigned char* digest) {
  Store(HashIn<Md5Hash>(state_).Finish(), digest);
  Init();
}

void CQNMD5Stream::Digest(const void* data, std::size_t size, unsigned char* digest) {
  CQNMD5Stream stream;
  stream.Update(data, size);
  stream.Finish(digest);
}

CQNPackedMD5Stream::CQNPackedMD5Stream() { Init(); }

void CQNPackedMD5Stream::Init() { new (state_) Md5Hash(Md5Packing::kSigned); }

void CQNPackedMD5Stream::Update(const void* data, std::size_t size) {
  Append(HashIn<Md5Hash>(state_), data, size);
}

void CQNPackedMD5Stream::Finish(unsigned char* digest) {
  Store(HashIn<Md5Hash>(state_).Finish(), digest);
  Init();
}

void CQNPackedMD5Stream::Digest(const void* data, std::size_t size, unsigned char* digest) {
  CQNPackedMD5Stream stream;
  stream.Update(data, size);
  stream.Finish(digest);
}

// --- SHA-256 and HMAC ---------------------------------------------------------------------------

CQNSHA256Stream::CQNSHA256Stream() { Init(); }

void CQNSHA256Stream::Init() { new (state_) Sha256; }

void CQNSHA256Stream::Update(const void* data, std::size_t size) {
  Append(HashIn<Sha256>(state_), data, size);
}

void CQNSHA256Stream::Finish(unsigned char* digest) {
  Store(HashIn<Sha256>(state_).Finish(), digest);
  Init();
}

void CQNSHA256Stream::Digest(const void* data, std::size_t size, unsigned char* digest) {
  CQNSHA256Stream stream;
  stream.Update(data, size);
  stream.Finish(digest);
}

CQNHMACSHA256Stream::CQNHMACSHA256Stream() { Init(nullptr, 0); }

CQNHMACSHA256Stream::CQNHMACSHA256Stream(const void* key, std::size_t keySize) {
  Init(key, keySize);
}

void CQNHMACSHA256Stream::Init(const void* key, std::size_t keySize) {
  new (keyed_) HmacSha256(key, key == nullptr ? 0 : keySize);
  new (state_) HmacSha256(HashIn<HmacSha256>(keyed_));
}

void CQNHMACSHA256Stream::Update(const void* data, std::size_t size) {
  Append(HashIn<HmacSha256>(state_), data, size);
}

void CQNHMACSHA256Stream::Finish(unsigned char* digest) {
  Store(HashIn<HmacSha256>(state_).Finish(), digest);
  new (state_) HmacSha256(HashIn<HmacSha256>(keyed_));
}

void CQNHMACSHA256Stream::Digest(const void* key, std::size_t keySize, const void* data,
                                 std::size_t size, unsigned char* digest) {
  CQNHMACSHA256Stream stream(key, keySize);
  stream.Update(data, size);
  stream.Finish(digest);
}

// --- CRC-64 -------------------------------------------------------------------------------------

CQNCRC64Stream::CQNCRC64Stream() { Init(); }

void CQNCRC64Stream::Init() { state_ = quarnfc::codec::kCrc64Start; }

void CQNCRC64Stream::Update(const void* data, std::size_t size) {
  if (data == nullptr) return;
  state_ = quarnfc::codec::UpdateCrc64(state_, static_cast<const unsigned char*>(data), size);
}

unsigned __int64 CQNCRC64Stream::Finish() {
  const unsigned __int64 value = state_;
  Init();
  return value;
}

unsigned __int64 CQNCRC64Stream::Digest(const void* data, std::size_t size) {
  CQNCRC64Stream stream;
  stream.Update(data, size);
  return stream.Finish();
}

// --- text ---------------------------------------------------------------------------------------

CQNString QNDigestUtils::HexText(const unsigned char* digest, int size, bool upperCase) {
  CQNString text;
  if (digest == nullptr || size < 1) return text;
  const char* const digits =
      upperCase ? quarnfc::codec::kUpperHexDigits : quarnfc::codec::kLowerHexDigits;
  char* end = text.GetBufferSetLength(size > 0x3FFFFFFF ? 0x7FFFFFFF : 2 * size);
  for (int i = 0; i < size; ++i) end = quarnfc::codec::WriteHexByte(digest[i], digits, end);
  return text;
}
