// SPDX-License-Identifier: MIT
// CRC-64 with carry-less products of sixty-four bytes. This file is compiled for VPCLMULQDQ and
// AVX-512; it must only run where CpuHasWideClmul() says so.
#include "codec/crc64_folding.h"

namespace quarnfc::codec {

namespace {

constexpr std::size_t kRegister = 64;
constexpr std::size_t kLanes = 4;
constexpr std::size_t kStep = kLanes * kRegister;

__m512i Load(const unsigned char* data) { return _mm512_loadu_si512(data); }

// The four blocks of a register moved ahead, with others added.
__m512i Fold(__m512i blocks, __m512i factors, __m512i others) {
  constexpr int kXorOfThree = 0x96;
  return _mm512_ternarylogic_epi64(_mm512_clmulepi64_epi128(blocks, factors, 0x00),
                                   _mm512_clmulepi64_epi128(blocks, factors, 0x11), others,
                                   kXorOfThree);
}

// With masks that take everything: the forms without one start from a register that is not set, and
// GCC warns of its own header for that.
template <int index>
__m128i Block(__m512i blocks) {
  constexpr __mmask8 kAll = 0x0F;
  return _mm512_maskz_extracti32x4_epi32(kAll, blocks, index);
}

__m512i FourTimes(__m128i block) {
  constexpr __mmask16 kAll = 0xFFFF;
  return _mm512_maskz_broadcast_i32x4(kAll, block);
}

// The four blocks as one in the place of the last.
__m128i Joined(__m512i blocks) {
  const __m128i factors = folding::Factors<folding::kBlockBytes>();
  __m128i block = Block<0>(blocks);
  block = _mm_xor_si128(folding::Moved(block, factors), Block<1>(blocks));
  block = _mm_xor_si128(folding::Moved(block, factors), Block<2>(blocks));
  return _mm_xor_si128(folding::Moved(block, factors), Block<3>(blocks));
}

// Folds whole registers; data and size move on behind them.
__m512i FoldLanes(__m512i first, const unsigned char*& data, std::size_t& size) {
  __m512i lanes[kLanes] = {first};
  for (std::size_t i = 1; i < kLanes; ++i) lanes[i] = Load(data + i * kRegister);
  const __m512i by_step = FourTimes(folding::Factors<kStep>());
  for (data += kStep, size -= kStep; size >= kStep; data += kStep, size -= kStep) {
    for (std::size_t i = 0; i < kLanes; ++i) {
      lanes[i] = Fold(lanes[i], by_step, Load(data + i * kRegister));
    }
  }
  const __m512i by_register = FourTimes(folding::Factors<kRegister>());
  __m512i blocks = lanes[0];
  for (std::size_t i = 1; i < kLanes; ++i) blocks = Fold(blocks, by_register, lanes[i]);
  for (; size >= kRegister; data += kRegister, size -= kRegister) {
    blocks = Fold(blocks, by_register, Load(data));
  }
  return blocks;
}

}  // namespace

std::uint64_t UpdateCrc64X86Wide(std::uint64_t crc, const unsigned char* data, std::size_t size) {
  if (size < kStep) return UpdateCrc64X86(crc, data, size);
  const __m512i start = _mm512_zextsi128_si512(folding::Low(crc));
  const __m512i blocks = FoldLanes(_mm512_xor_si512(start, Load(data)), data, size);
  return folding::Finish(Joined(blocks), data, size);
}

}  // namespace quarnfc::codec
