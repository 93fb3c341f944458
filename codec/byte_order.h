// SPDX-License-Identifier: MIT
// Integers in memory with a stated byte order, at any alignment. Compilers make one load or store
// of each.
#ifndef QUARNFC_CODEC_BYTE_ORDER_H_
#define QUARNFC_CODEC_BYTE_ORDER_H_

#include <bit>
#include <cstdint>
#include <cstring>

namespace quarnfc::codec {

inline std::uint32_t LoadLittle32(const unsigned char* from) {
  return from[0] | std::uint32_t{from[1]} << 8 | std::uint32_t{from[2]} << 16 |
         std::uint32_t{from[3]} << 24;
}

inline std::uint64_t LoadLittle64(const unsigned char* from) {
  return LoadLittle32(from) | std::uint64_t{LoadLittle32(from + 4)} << 32;
}

inline std::uint32_t LoadBig32(const unsigned char* from) {
  return std::uint32_t{from[0]} << 24 | std::uint32_t{from[1]} << 16 | std::uint32_t{from[2]} << 8 |
         from[3];
}

// As one word: of single bytes, compilers that see several such stores together make long detours.
inline void StoreBig32(std::uint32_t value, unsigned char* to) {
  if constexpr (std::endian::native != std::endian::big) {
    value = value << 24 | (value & 0xFF00) << 8 | (value >> 8 & 0xFF00) | value >> 24;
  }
  std::memcpy(to, &value, sizeof(value));
}

inline void StoreBig64(std::uint64_t value, unsigned char* to) {
  StoreBig32(static_cast<std::uint32_t>(value >> 32), to);
  StoreBig32(static_cast<std::uint32_t>(value), to + 4);
}

}  // namespace quarnfc::codec

#endif  // QUARNFC_CODEC_BYTE_ORDER_H_
