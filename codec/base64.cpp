// SPDX-License-Identifier: MIT
#include "quarnfc/base64.h"

#include "codec/alphabets.h"
#include "codec/base64_x86.h"
#include "codec/bit_text.h"
#include "platform/cpu.h"

namespace quarnfc::codec {

template <>
struct FastPath<Base64Alphabet, char> {
  static std::uint64_t Encode(const unsigned char* data, std::uint64_t size, char* text) {
    return Available() ? EncodeBase64X86(data, size, text) : 0;
  }

  static std::uint64_t Decode(const char* text, std::uint64_t length, unsigned char* data) {
    return Available() ? DecodeBase64X86(text, length, data) : 0;
  }

  static bool Available() {
    static const bool available = platform::CpuHasSsse3();
    return available;
  }
};

}  // namespace quarnfc::codec

using quarnfc::codec::Base64Alphabet;
using quarnfc::codec::DecodeBits;
using quarnfc::codec::EncodeBits;

namespace QNBase64 {

char* qnEncodeBase64A(const unsigned char* data, unsigned int size) {
  return EncodeBits<Base64Alphabet, char>(data, size);
}

wchar_t* qnEncodeBase64W(const unsigned char* data, unsigned int size) {
  return EncodeBits<Base64Alphabet, wchar_t>(data, size);
}

int qnDecodeBase64A(const char* text, unsigned int length, unsigned char** data) {
  return DecodeBits<Base64Alphabet>(text, length, data);
}

int qnDecodeBase64W(const wchar_t* text, unsigned int length, unsigned char** data) {
  return DecodeBits<Base64Alphabet>(text, length, data);
}

}  // namespace QNBase64
