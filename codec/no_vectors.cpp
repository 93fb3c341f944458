// SPDX-License-Identifier: MIT
// In place of the files ..._x86.cpp on other processors: no group is done by vector code, and the
// plain code does it all.
#include "codec/bit_text_x86.h"
#include "codec/crc64_update.h"
#include "codec/sha256_compress.h"

namespace quarnfc::codec {

std::uint64_t EncodeBase64X86(const unsigned char*, std::uint64_t, char*) { return 0; }
std::uint64_t EncodeBase64X86(const unsigned char*, std::uint64_t, wchar_t*) { return 0; }
std::uint64_t EncodeBase32X86(const unsigned char*, std::uint64_t, char*) { return 0; }
std::uint64_t EncodeBase32X86(const unsigned char*, std::uint64_t, wchar_t*) { return 0; }

std::uint64_t DecodeBase64X86(const char*, std::uint64_t, unsigned char*) { return 0; }
std::uint64_t DecodeBase64X86(const wchar_t*, std::uint64_t, unsigned char*) { return 0; }
std::uint64_t DecodeBase32X86(const char*, std::uint64_t, unsigned char*) { return 0; }
std::uint64_t DecodeBase32X86(const wchar_t*, std::uint64_t, unsigned char*) { return 0; }

std::uint64_t UpdateCrc64X86(std::uint64_t crc, const unsigned char* data, std::size_t size) {
  return UpdateCrc64Plain(crc, data, size);
}

std::uint64_t UpdateCrc64X86Wide(std::uint64_t crc, const unsigned char* data, std::size_t size) {
  return UpdateCrc64Plain(crc, data, size);
}

void Sha256CompressX86(std::uint32_t* state, const unsigned char* blocks, std::size_t count) {
  Sha256CompressPlain(state, blocks, count);
}

}  // namespace quarnfc::codec
