// SPDX-License-Identifier: MIT
// CRC-64 with carry-less products of sixteen bytes. This file is compiled for PCLMULQDQ and AVX; it
// must only run where CpuHasClmul() says so.
#include "codec/crc64_folding.h"

namespace quarnfc::codec {

namespace {

constexpr std::size_t kLanes = 4;  // blocks folded side by side
constexpr std::size_t kStep = kLanes * folding::kBlockBytes;

// The lanes as one block in the place of the last, each moved there by itself: the processor does
// all of that at once.
__m128i Joined(const __m128i (&lanes)[kLanes]) {
  using folding::kBlockBytes;
  const __m128i first = folding::Moved(lanes[0], folding::Factors<3 * kBlockBytes>());
  const __m128i second = folding::Moved(lanes[1], folding::Factors<2 * kBlockBytes>());
  const __m128i third = folding::Moved(lanes[2], folding::Factors<kBlockBytes>());
  return _mm_xor_si128(_mm_xor_si128(first, second), _mm_xor_si128(third, lanes[3]));
}

// Folds whole steps; data and size move on behind them.
__m128i FoldLanes(__m128i first, const unsigned char*& data, std::size_t& size) {
  __m128i lanes[kLanes] = {first};
  for (std::size_t i = 1; i < kLanes; ++i) {
    lanes[i] = folding::LoadBlock(data + i * folding::kBlockBytes);
  }
  const __m128i factors = folding::Factors<kStep>();
  for (data += kStep, size -= kStep; size >= kStep; data += kStep, size -= kStep) {
    for (std::size_t i = 0; i < kLanes; ++i) {
      const __m128i next = folding::LoadBlock(data + i * folding::kBlockBytes);
      lanes[i] = _mm_xor_si128(folding::Moved(lanes[i], factors), next);
    }
  }
  return Joined(lanes);
}

}  // namespace

std::uint64_t UpdateCrc64X86(std::uint64_t crc, const unsigned char* data, std::size_t size) {
  if (size < folding::kBlockBytes) return UpdateCrc64Plain(crc, data, size);
  __m128i block = _mm_xor_si128(folding::Low(crc), folding::LoadBlock(data));
  if (size >= kStep) {
    block = FoldLanes(block, data, size);
  } else {
    data += folding::kBlockBytes;
    size -= folding::kBlockBytes;
  }
  return folding::Finish(block, data, size);
}

}  // namespace quarnfc::codec
