#include "codec/sha256.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

#include "codec/byte_order.h"

namespace quarnfc {
namespace {

// FIPS 180-4, 5.3.3: the fractions of the square roots of the first eight primes.
constexpr Sha256::State kInitialState = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                         0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};

// FIPS 180-4, 4.2.2: the fractions of the cube roots of the first sixty-four primes.
constexpr std::uint32_t kConstants[64] = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

std::uint32_t SmallSigma0(std::uint32_t x) { return std::rotr(x, 7) ^ std::rotr(x, 18) ^ x >> 3; }

std::uint32_t SmallSigma1(std::uint32_t x) { return std::rotr(x, 17) ^ std::rotr(x, 19) ^ x >> 10; }

std::uint32_t BigSigma0(std::uint32_t x) {
  return std::rotr(x, 2) ^ std::rotr(x, 13) ^ std::rotr(x, 22);
}

std::uint32_t BigSigma1(std::uint32_t x) {
  return std::rotr(x, 6) ^ std::rotr(x, 11) ^ std::rotr(x, 25);
}

std::uint32_t Choose(std::uint32_t x, std::uint32_t y, std::uint32_t z) {
  return z ^ (x & (y ^ z));
}

std::uint32_t Majority(std::uint32_t x, std::uint32_t y, std::uint32_t z) {
  return (x & y) | (z & (x | y));
}

using Schedule = std::array<std::uint32_t, 16>;

// Step i: the schedule is kept in sixteen words that roll on, and the roles of the eight state
// words move on by one with each step.
template <int I>
void Step(Sha256::State& state, Schedule& w) {
  if constexpr (I >= 16) {
    w[I % 16] += SmallSigma1(w[(I - 2) % 16]) + w[(I - 7) % 16] + SmallSigma0(w[(I - 15) % 16]);
  }
  const std::uint32_t a = state[(64 - I) % 8], b = state[(65 - I) % 8], c = state[(66 - I) % 8];
  const std::uint32_t e = state[(68 - I) % 8], f = state[(69 - I) % 8], g = state[(70 - I) % 8];
  std::uint32_t& d = state[(67 - I) % 8];
  std::uint32_t& h = state[(71 - I) % 8];
  const std::uint32_t sum = h + BigSigma1(e) + Choose(e, f, g) + kConstants[I] + w[I % 16];
  d += sum;
  h = sum + BigSigma0(a) + Majority(a, b, c);
}

template <int... I>
void AllSteps(Sha256::State& state, Schedule& w, std::integer_sequence<int, I...>) {
  (Step<I>(state, w), ...);
}

}  // namespace

void Sha256CompressPlain(Sha256::State& state, const unsigned char* blocks, std::size_t count) {
  for (; count > 0; --count, blocks += Sha256::kBlockBytes) {
    Schedule w;
    for (int i = 0; i < 16; ++i) w[i] = LoadBig32(blocks + 4 * i);
    Sha256::State next = state;
    AllSteps(next, w, std::make_integer_sequence<int, 64>{});
    for (int i = 0; i < 8; ++i) state[i] += next[i];
  }
}

Sha256::Sha256() : state_(kInitialState) {}

void Sha256::Update(const void* data, std::size_t size) {
  if (size == 0) return;
  const auto* bytes = static_cast<const unsigned char*>(data);
  const std::size_t pending = message_bytes_ % kBlockBytes;
  message_bytes_ += size;
  if (pending != 0) {
    const std::size_t taken = std::min(size, kBlockBytes - pending);
    std::memcpy(pending_ + pending, bytes, taken);
    if (pending + taken < kBlockBytes) return;
    Sha256CompressPlain(state_, pending_, 1);
    bytes += taken;
    size -= taken;
  }
  Sha256CompressPlain(state_, bytes, size / kBlockBytes);
  const std::size_t rest = size % kBlockBytes;
  std::memcpy(pending_, bytes + (size - rest), rest);
}

Sha256::Digest Sha256::Finish() {
  static constexpr unsigned char kPadding[kBlockBytes] = {0x80};
  constexpr std::size_t kLengthAt = kBlockBytes - 8;

  unsigned char message_bits[8];
  StoreBig64(message_bytes_ * 8, message_bits);
  const std::size_t pending = message_bytes_ % kBlockBytes;
  Update(kPadding, (pending < kLengthAt ? kLengthAt : kBlockBytes + kLengthAt) - pending);
  Update(message_bits, sizeof(message_bits));

  Digest digest;
  for (std::size_t i = 0; i < state_.size(); ++i) StoreBig32(state_[i], digest.data() + 4 * i);
  return digest;
}

}  // namespace quarnfc
