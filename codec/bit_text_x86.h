// SPDX-License-Identifier: MIT
// Base64 and Base32 thirty-two characters at a time, with AVX2. Only call where CpuHasAvx2().
#ifndef QUARNFC_CODEC_BIT_TEXT_X86_H_
#define QUARNFC_CODEC_BIT_TEXT_X86_H_

#include <cstdint>

namespace quarnfc::codec {

// Encode as many groups of bytes as they can without reading beyond size; return their number.
std::uint64_t EncodeBase64X86(const unsigned char* data, std::uint64_t size, char* text);
std::uint64_t EncodeBase64X86(const unsigned char* data, std::uint64_t size, wchar_t* text);
std::uint64_t EncodeBase32X86(const unsigned char* data, std::uint64_t size, char* text);
std::uint64_t EncodeBase32X86(const unsigned char* data, std::uint64_t size, wchar_t* text);

// Decode groups of characters up to one near the end of the text or near the first pad or foreign
// character; return their number. data has room for the bytes of the whole text.
std::uint64_t DecodeBase64X86(const char* text, std::uint64_t length, unsigned char* data);
std::uint64_t DecodeBase64X86(const wchar_t* text, std::uint64_t length, unsigned char* data);
std::uint64_t DecodeBase32X86(const char* text, std::uint64_t length, unsigned char* data);
std::uint64_t DecodeBase32X86(const wchar_t* text, std::uint64_t length, unsigned char* data);

}  // namespace quarnfc::codec

#endif  // QUARNFC_CODEC_BIT_TEXT_X86_H_
