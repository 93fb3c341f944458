// SPDX-License-Identifier: MIT
// CRC-64 with the polynomial of ECMA-182, reflected.
#ifndef QUARNFC_CODEC_CRC64_HASH_H_
#define QUARNFC_CODEC_CRC64_HASH_H_

#include <cstddef>
#include <cstdint>

namespace quarnfc::codec {

// The remainder before the first byte.
inline constexpr std::uint64_t kCrc64Start = ~std::uint64_t{0};

// The remainder after size more bytes. Deliberately nothing is inverted at the end.
std::uint64_t UpdateCrc64(std::uint64_t crc, const unsigned char* data, std::size_t size);

}  // namespace quarnfc::codec

#endif  // QUARNFC_CODEC_CRC64_HASH_H_
