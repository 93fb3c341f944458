// SPDX-License-Identifier: MIT
// SHA-256's compression (FIPS 180-4, 6.2.2) for every processor. The functions have the names of
// section 4.1.2. Sixteen words of schedule on the stack; every step is unrolled.
#include <algorithm>
#include <array>
#include <bit>
#include <utility>

#include "codec/byte_order.h"
#include "codec/sha256_compress.h"

namespace quarnfc::codec {
namespace {

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
  const std::uint32_t sum = h + BigSigma1(e) + Choose(e, f, g) + kSha256Constants[I] + w[I % 16];
  d += sum;
  h = sum + BigSigma0(a) + Majority(a, b, c);
}

template <int... I>
void AllSteps(Sha256::State& state, Schedule& w, std::integer_sequence<int, I...>) {
  (Step<I>(state, w), ...);
}

}  // namespace

void Sha256CompressPlain(std::uint32_t* state, const unsigned char* blocks, std::size_t count) {
  for (; count > 0; --count, blocks += Sha256::kBlockBytes) {
    Schedule w;
    for (std::size_t i = 0; i < 16; ++i) w[i] = LoadBig32(blocks + 4 * i);
    Sha256::State next;
    std::copy(state, state + next.size(), next.begin());
    AllSteps(next, w, std::make_integer_sequence<int, 64>{});
    for (std::size_t i = 0; i < next.size(); ++i) state[i] += next[i];
  }
}

}  // namespace quarnfc::codec
