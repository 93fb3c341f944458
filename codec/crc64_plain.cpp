// SPDX-License-Identifier: MIT
// CRC-64's remainder for every processor: sixteen bytes at a time ("slicing": M. E. Kounavis and
// F. L. Berry, A Systematic Approach to Building High Performance Software-Based CRC Generators,
// 2005) with sixteen tables of 2 KiB that the compiler makes.
#include <array>
#include <cstddef>
#include <cstdint>

#include "codec/byte_order.h"
#include "codec/crc64_update.h"

namespace quarnfc::codec {
namespace {

constexpr std::size_t kSlices = 16;

using Table = std::array<std::uint64_t, 256>;

// Table 0 advances the remainder by one byte; table k advances the effect of a byte by k bytes
// more, so that 16 bytes are taken at once. Made by the compiler: complete before any first use.
constexpr std::array<Table, kSlices> MakeTables() {
  std::array<Table, kSlices> tables{};
  for (unsigned i = 0; i < 256; ++i) {
    std::uint64_t entry = i;
    for (int bit = 0; bit < 8; ++bit)
      entry = entry >> 1 ^ ((entry & 1) != 0 ? kCrc64Polynomial : 0);
    tables[0][i] = entry;
  }
  for (std::size_t k = 1; k < kSlices; ++k) {
    for (unsigned i = 0; i < 256; ++i) {
      const std::uint64_t previous = tables[k - 1][i];
      tables[k][i] = tables[0][previous & 0xFF] ^ previous >> 8;
    }
  }
  return tables;
}

constexpr std::array<Table, kSlices> kTables = MakeTables();

// The joint effect of the eight bytes of word, with skip bytes following them.
std::uint64_t Slice(std::uint64_t word, std::size_t skip) {
  std::uint64_t sum = 0;
  for (std::size_t i = 0; i < 8; ++i) sum ^= kTables[skip + 7 - i][word >> 8 * i & 0xFF];
  return sum;
}

}  // namespace

std::uint64_t UpdateCrc64Plain(std::uint64_t crc, const unsigned char* data, std::size_t size) {
  for (; size >= 16; size -= 16, data += 16) {
    crc = Slice(crc ^ LoadLittle64(data), 8) ^ Slice(LoadLittle64(data + 8), 0);
  }
  for (; size > 0; --size, ++data) crc = kTables[0][(*data ^ crc) & 0xFF] ^ crc >> 8;
  return crc;
}

}  // namespace quarnfc::codec
