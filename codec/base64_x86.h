// SPDX-License-Identifier: MIT
// Base64 of narrow text, sixteen characters at a time, with SSSE3. Only call where CpuHasSsse3().
#ifndef QUARNFC_CODEC_BASE64_X86_H_
#define QUARNFC_CODEC_BASE64_X86_H_

#include <cstdint>

namespace quarnfc::codec {

// Encodes as many groups of 3 bytes as it can without reading beyond size; returns their number.
std::uint64_t EncodeBase64X86(const unsigned char* data, std::uint64_t size, char* text);

// Decodes groups of 4 characters up to one near the end of the text or near the first pad or
// foreign character; returns their number. data has room for the bytes of the whole text.
std::uint64_t DecodeBase64X86(const char* text, std::uint64_t length, unsigned char* data);

}  // namespace quarnfc::codec

#endif  // QUARNFC_CODEC_BASE64_X86_H_
