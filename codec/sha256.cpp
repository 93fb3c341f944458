// SPDX-License-Identifier: MIT
// SHA-256 (FIPS 180-4): padding (5.1.1), initial state (5.3.3) and the cutting into blocks. The
// compression (6.2.2) is in sha256_plain.cpp and, with the instructions made for it, in
// sha256_x86.cpp. Whole blocks are digested where they lie; nothing is allocated.
#include "codec/sha256.h"

#include <cstring>

#include "codec/byte_order.h"
#include "codec/sha256_compress.h"
#include "platform/cpu.h"

namespace quarnfc::codec {
namespace {

// FIPS 180-4, 5.3.3: the fractions of the square roots of the first eight primes.
constexpr Sha256::State kInitialState = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                         0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};

// Takes count blocks into the state, in the fastest way this processor knows.
void Compress(Sha256::State& state, const unsigned char* blocks, std::size_t count) {
  static const auto compress = platform::CpuHasSha() ? Sha256CompressX86 : Sha256CompressPlain;
  compress(state.data(), blocks, count);
}

}  // namespace

Sha256::Sha256() : state_(kInitialState) {}

void Sha256::Update(const void* data, std::size_t size) {
  buffer_.Append(data, size, [this](const unsigned char* blocks, std::size_t count) {
    Compress(state_, blocks, count);
  });
}

// The last block or two: what is left of the message, the marker, zeros and the number of bits.
Sha256::Digest Sha256::Finish() {
  constexpr std::size_t kMarkerAndLength = 1 + 8;
  unsigned char last[2 * kBlockBytes] = {};
  const std::size_t pending = buffer_.PendingSize();
  std::memcpy(last, buffer_.Pending(), pending);
  last[pending] = 0x80;
  const std::size_t blocks = pending + kMarkerAndLength > kBlockBytes ? 2 : 1;
  StoreBig64(buffer_.MessageBytes() * 8, last + blocks * kBlockBytes - 8);
  Compress(state_, last, blocks);

  Digest digest;
  for (std::size_t i = 0; i < state_.size(); ++i) StoreBig32(state_[i], digest.data() + 4 * i);
  return digest;
}

}  // namespace quarnfc::codec
