// SPDX-License-Identifier: MIT
// The ways to CRC-64's remainder: plain code and carry-less products of x86. All give the same.
#ifndef QUARNFC_CODEC_CRC64_UPDATE_H_
#define QUARNFC_CODEC_CRC64_UPDATE_H_

#include <cstddef>
#include <cstdint>

namespace quarnfc::codec {

inline constexpr std::uint64_t kCrc64Polynomial = 0xC96C5795D7870F42;  // ECMA-182, reflected

// The remainder after size more bytes; see UpdateCrc64.
using Crc64Update = std::uint64_t (*)(std::uint64_t crc, const unsigned char* data,
                                      std::size_t size);

std::uint64_t UpdateCrc64Plain(std::uint64_t crc, const unsigned char* data, std::size_t size);

// Needs CpuHasClmul().
std::uint64_t UpdateCrc64X86(std::uint64_t crc, const unsigned char* data, std::size_t size);

// Needs CpuHasWideClmul().
std::uint64_t UpdateCrc64X86Wide(std::uint64_t crc, const unsigned char* data, std::size_t size);

}  // namespace quarnfc::codec

#endif  // QUARNFC_CODEC_CRC64_UPDATE_H_
