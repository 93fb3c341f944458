// SPDX-License-Identifier: MIT
// In place of base64_x86.cpp and sha256_x86.cpp on other processors: nothing is done in groups of
// sixteen, and the plain code does it all.
#include "codec/base64_x86.h"
#include "codec/sha256_compress.h"

namespace quarnfc::codec {

std::uint64_t EncodeBase64X86(const unsigned char*, std::uint64_t, char*) { return 0; }

std::uint64_t DecodeBase64X86(const char*, std::uint64_t, unsigned char*) { return 0; }

void Sha256CompressX86(std::uint32_t* state, const unsigned char* blocks, std::size_t count) {
  Sha256CompressPlain(state, blocks, count);
}

}  // namespace quarnfc::codec
