// SPDX-License-Identifier: MIT
// MD5 (RFC 1321): 64 steps over each block of 64 bytes, the message filled up with one set bit,
// zeros and its length in bits. Blocks are digested where they lie; one block on the stack, no
// allocation.
#include "codec/md5_hash.h"

#include <cstring>
#include <utility>

#include "codec/byte_order.h"

namespace quarnfc::codec {
namespace {

constexpr unsigned kBlockWords = 16;

using State = Md5Hash::State;
using Block = std::array<std::uint32_t, kBlockWords>;

// RFC 1321: the integer part of 2^32 |sin(i + 1)|.
constexpr std::uint32_t kSines[64] = {
    0xd76aa478, 0xe8c7b756, 0x242070db, 0xc1bdceee, 0xf57c0faf, 0x4787c62a, 0xa8304613, 0xfd469501,
    0x698098d8, 0x8b44f7af, 0xffff5bb1, 0x895cd7be, 0x6b901122, 0xfd987193, 0xa679438e, 0x49b40821,
    0xf61e2562, 0xc040b340, 0x265e5a51, 0xe9b6c7aa, 0xd62f105d, 0x02441453, 0xd8a1e681, 0xe7d3fbc8,
    0x21e1cde6, 0xc33707d6, 0xf4d50d87, 0x455a14ed, 0xa9e3e905, 0xfcefa3f8, 0x676f02d9, 0x8d2a4c8a,
    0xfffa3942, 0x8771f681, 0x6d9d6122, 0xfde5380c, 0xa4beea44, 0x4bdecfa9, 0xf6bb4b60, 0xbebfbc70,
    0x289b7ec6, 0xeaa127fa, 0xd4ef3085, 0x04881d05, 0xd9d4d039, 0xe6db99e5, 0x1fa27cf8, 0xc4ac5665,
    0xf4292244, 0x432aff97, 0xab9423a7, 0xfc93a039, 0x655b59c3, 0x8f0ccc92, 0xffeff47d, 0x85845dd1,
    0x6fa87e4f, 0xfe2ce6e0, 0xa3014314, 0x4e0811a1, 0xf7537e82, 0xbd3af235, 0x2ad7d2bb, 0xeb86d391};

// The rotations of the four rounds, each used in turn.
constexpr int kRotations[4][4] = {
    {7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}};

// --- packing ----------------------------------------------------------------------------------

// Four message bytes as a word, each widened as a signed value and OR-ed in its place. This is
// deliberate and part of the data format: above the lowest of the first three bytes that has its
// top bit set, the whole word becomes ones.
std::uint32_t PackWord(const unsigned char* bytes) {
  const std::uint32_t word = LoadLittle32(bytes);
  const std::uint32_t negative = word & 0x00808080;
  const std::uint32_t lowest = negative & (0 - negative);
  return word | (0 - (lowest << 1));
}

Block PackBlock(Md5Packing packing, const unsigned char* bytes) {
  Block block;
  for (unsigned i = 0; i < kBlockWords; ++i) {
    const unsigned char* const word = bytes + 4 * i;
    block[i] = packing == Md5Packing::kSigned ? PackWord(word) : LoadLittle32(word);
  }
  return block;
}

// --- compression (RFC 1321, 3.4) --------------------------------------------------------------

// The functions F, G, H and I in two parts whose sum they are (no bit is set in both). x comes from
// the step before: as little as can be done waits for it.
template <int Round>
std::uint32_t MixLate(std::uint32_t x, std::uint32_t y, std::uint32_t z) {
  if constexpr (Round == 0) return z ^ (x & (y ^ z));
  if constexpr (Round == 1) return x & z;
  if constexpr (Round == 2) return x ^ (y ^ z);
  return y ^ (x | ~z);
}

template <int Round>
std::uint32_t MixEarly(std::uint32_t y, std::uint32_t z) {
  return Round == 1 ? y & ~z : 0;
}

// The word of the block that step i takes.
constexpr int WordOf(int i) {
  constexpr int kFactors[4] = {1, 5, 3, 7};
  constexpr int kOffsets[4] = {0, 1, 5, 0};
  return (kFactors[i / 16] * i + kOffsets[i / 16]) % 16;
}

// Step i: the roles of the four state words move on by one with each step.
template <int I>
void Step(State& state, const Block& block) {
  constexpr int kRotation = kRotations[I / 16][I % 4];
  std::uint32_t& a = state[(64 - I) % 4];
  const std::uint32_t b = state[(65 - I) % 4];
  const std::uint32_t c = state[(66 - I) % 4];
  const std::uint32_t d = state[(67 - I) % 4];
  const std::uint32_t early = a + block[WordOf(I)] + kSines[I] + MixEarly<I / 16>(c, d);
  const std::uint32_t sum = early + MixLate<I / 16>(b, c, d);
  a = b + (sum << kRotation | sum >> (32 - kRotation));
}

// Digests count blocks, each of which next hands out. The state stays in registers from block to
// block: in memory, every block would wait for the words of the one before it.
template <class NextBlock, int... I>
void CompressBlocks(State& state, std::size_t count, NextBlock next,
                    std::integer_sequence<int, I...>) {
  State sum = state;
  for (; count > 0; --count) {
    const Block block = next();
    State work = sum;
    (Step<I>(work, block), ...);
    sum = {sum[0] + work[0], sum[1] + work[1], sum[2] + work[2], sum[3] + work[3]};
  }
  state = sum;
}

template <class NextBlock>
void Compress(State& state, std::size_t count, NextBlock next) {
  CompressBlocks(state, count, next, std::make_integer_sequence<int, 64>{});
}

void Compress(State& state, const Block& block) {
  Compress(state, 1, [&block] { return block; });
}

}  // namespace

Md5Hash::Md5Hash(Md5Packing packing)
    : packing_(packing), state_{0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476} {}

void Md5Hash::Update(const void* data, std::size_t size) {
  buffer_.Append(data, size, [this](const unsigned char* blocks, std::size_t count) {
    Compress(state_, count, [packing = packing_, &blocks] {
      return PackBlock(packing, std::exchange(blocks, blocks + BlockBuffer::kBlockBytes));
    });
  });
}

// The last block or two: what is left of the message, the marker, zeros and the number of bits.
Md5Hash::State Md5Hash::Finish() {
  const std::size_t rest = buffer_.PendingSize();
  unsigned char padded[BlockBuffer::kBlockBytes] = {};
  std::memcpy(padded, buffer_.Pending(), rest);
  Block block = PackBlock(packing_, padded);
  block[rest / 4] |= std::uint32_t{0x80} << 8 * (rest % 4);
  if (rest + 1 + 8 > BlockBuffer::kBlockBytes) {
    Compress(state_, block);
    block = {};
  }
  const std::uint64_t bits = buffer_.MessageBytes() * 8;
  block[kBlockWords - 2] = static_cast<std::uint32_t>(bits);
  if (packing_ == Md5Packing::kStandard) {
    block[kBlockWords - 1] = static_cast<std::uint32_t>(bits >> 32);
  }
  Compress(state_, block);
  return state_;
}

}  // namespace quarnfc::codec
