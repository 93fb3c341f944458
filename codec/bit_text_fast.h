// SPDX-License-Identifier: MIT
// The fast paths of codec/bit_text.h: the vector code, where the processor has what it takes.
#ifndef QUARNFC_CODEC_BIT_TEXT_FAST_H_
#define QUARNFC_CODEC_BIT_TEXT_FAST_H_

#include <cstdint>

#include "codec/alphabets.h"
#include "codec/bit_text.h"
#include "codec/bit_text_x86.h"
#include "platform/cpu.h"

namespace quarnfc::codec {

inline bool HasFastBitText() {
  static const bool has = platform::CpuHasAvx2();
  return has;
}

template <class Char>
struct FastPath<Base64Alphabet, Char> {
  static std::uint64_t Encode(const unsigned char* data, std::uint64_t size, Char* text) {
    return HasFastBitText() ? EncodeBase64X86(data, size, text) : 0;
  }

  static std::uint64_t Decode(const Char* text, std::uint64_t length, unsigned char* data) {
    return HasFastBitText() ? DecodeBase64X86(text, length, data) : 0;
  }
};

template <class Char>
struct FastPath<Base32Alphabet, Char> {
  static std::uint64_t Encode(const unsigned char* data, std::uint64_t size, Char* text) {
    return HasFastBitText() ? EncodeBase32X86(data, size, text) : 0;
  }

  static std::uint64_t Decode(const Char* text, std::uint64_t length, unsigned char* data) {
    return HasFastBitText() ? DecodeBase32X86(text, length, data) : 0;
  }
};

}  // namespace quarnfc::codec

#endif  // QUARNFC_CODEC_BIT_TEXT_FAST_H_
