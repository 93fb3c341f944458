// SPDX-License-Identifier: MIT
// What folding a message by carry-less products takes (V. Gopal et al., Fast CRC Computation for
// Generic Polynomials Using PCLMULQDQ Instruction, Intel 2009), with bits reflected: bit 0 of the
// first byte stands for the highest power of x.
//
// Sixteen bytes R = L + H, L being the first eight, stand for l x^64 + h. Moving them n bits ahead
// in the message multiplies by x^n, modulo the polynomial P. The product of two reflected numbers
// stands for one power more than their product, so L is multiplied by x^(n + 64 - 1) mod P and H by
// x^(n - 1) mod P.
//
// Included only by files that are compiled for the instructions.
#ifndef QUARNFC_CODEC_CRC64_FOLDING_H_
#define QUARNFC_CODEC_CRC64_FOLDING_H_

#include <immintrin.h>

#include <cstddef>
#include <cstdint>

#include "codec/crc64_update.h"

namespace quarnfc::codec::folding {
namespace {

inline constexpr std::size_t kBlockBytes = 16;

// One power of x more, modulo P.
constexpr std::uint64_t TimesX(std::uint64_t value) {
  return value >> 1 ^ ((value & 1) != 0 ? kCrc64Polynomial : 0);
}

// x^n mod P.
constexpr std::uint64_t PowerOfX(unsigned n) {
  std::uint64_t power = std::uint64_t{1} << 63;
  for (; n > 0; --n) power = TimesX(power);
  return power;
}

// The lower 64 bits of x^128 / P, reflected as a number of 65 bits.
constexpr std::uint64_t Quotient() {
  std::uint64_t rest = kCrc64Polynomial;
  std::uint64_t quotient = 0;
  for (int i = 0; i < 64; ++i) {
    quotient |= (rest & 1) << i;
    rest = TimesX(rest);
  }
  return quotient << 1 | 1;
}

// The factors that move a block some bytes ahead, L's in the low half.
template <unsigned kBytes>
__m128i Factors() {
  constexpr std::uint64_t kForL = PowerOfX(8 * kBytes + 63);
  constexpr std::uint64_t kForH = PowerOfX(8 * kBytes - 1);
  return _mm_set_epi64x(static_cast<long long>(kForH), static_cast<long long>(kForL));
}

// The value in the low half.
inline __m128i Low(std::uint64_t value) { return _mm_cvtsi64_si128(static_cast<long long>(value)); }

inline __m128i LoadBlock(const unsigned char* data) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(data));
}

inline __m128i Moved(__m128i block, __m128i factors) {
  return _mm_xor_si128(_mm_clmulepi64_si128(block, factors, 0x00),
                       _mm_clmulepi64_si128(block, factors, 0x11));
}

// The remainder of a block with eight zero bytes behind it: L is moved there, then P is taken off
// as often as the quotient says (Barrett's reduction).
inline std::uint64_t Remainder(__m128i block) {
  constexpr std::uint64_t kToEnd = PowerOfX(127);
  constexpr std::uint64_t kQuotient = Quotient();
  const __m128i to_end = Low(kToEnd);
  const __m128i quotient = Low(kQuotient);
  const __m128i polynomial = Low(kCrc64Polynomial << 1 | 1);
  const __m128i sum =
      _mm_xor_si128(_mm_clmulepi64_si128(block, to_end, 0x00), _mm_srli_si128(block, 8));
  const __m128i times = _mm_clmulepi64_si128(sum, quotient, 0x00);
  // The polynomial has 65 bits, the highest of which is missing in the product.
  const __m128i product =
      _mm_xor_si128(_mm_clmulepi64_si128(times, polynomial, 0x00), _mm_slli_si128(times, 8));
  return static_cast<std::uint64_t>(_mm_extract_epi64(_mm_xor_si128(sum, product), 1));
}

// Goes on from a block that holds the message so far, through whole blocks, then bytes.
inline std::uint64_t Finish(__m128i block, const unsigned char* data, std::size_t size) {
  const __m128i factors = Factors<kBlockBytes>();
  for (; size >= kBlockBytes; size -= kBlockBytes, data += kBlockBytes) {
    block = _mm_xor_si128(Moved(block, factors), LoadBlock(data));
  }
  const std::uint64_t crc = Remainder(block);
  return size == 0 ? crc : UpdateCrc64Plain(crc, data, size);
}

}  // namespace
}  // namespace quarnfc::codec::folding

#endif  // QUARNFC_CODEC_CRC64_FOLDING_H_
