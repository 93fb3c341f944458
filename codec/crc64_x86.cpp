// SPDX-License-Identifier: MIT
// CRC-64 with carry-less products of sixteen bytes. This file is compiled for PCLMULQDQ and AVX; it
// must only run where CpuHasClmul() says so.
#include "codec/crc64_folding.h"

namespace quarnfc::codec {

namespace {

constexpr std::size_t kLanes = 4;  // blocks folded side by side
constexpr std::size_t kStep = kLanes * folding::kBlockBytes;

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
  const __m128i one_block = folding::Factors<folding::kBlockBytes>();
  __m128i block = lanes[0];
  for (std::size_t i = 1; i < kLanes; ++i) {
    block = _mm_xor_si128(folding::Moved(block, one_block), lanes[i]);
  }
  return block;
}

}  // namespace

std::uint64_t UpdateCrc64X86(std::uint64_t crc, const unsigned char* data, std::size_t size) {
  if (size < folding::kBlockBytes) return UpdateCrc64Plain(crc, data, size);
  __m128i block = _mm_xor_si128(folding::Low(crc), folding::LoadBlock(data));
  if (size >= 2 * kStep) {
    block = FoldLanes(block, data, size);
  } else {
    data += folding::kBlockBytes;
    size -= folding::kBlockBytes;
  }
  return folding::Finish(block, data, size);
}

}  // namespace quarnfc::codec
