// SPDX-License-Identifier: MIT
#include "quarnfc/base32.h"

#include "codec/bit_text_fast.h"

using quarnfc::codec::Base32Alphabet;
using quarnfc::codec::DecodeBits;
using quarnfc::codec::EncodeBits;

namespace QNBase32 {

char* qnEncodeBase32A(const unsigned char* data, unsigned int size) {
  return EncodeBits<Base32Alphabet, char>(data, size);
}

wchar_t* qnEncodeBase32W(const unsigned char* data, unsigned int size) {
  return EncodeBits<Base32Alphabet, wchar_t>(data, size);
}

int qnDecodeBase32A(const char* text, unsigned int length, unsigned char** data) {
  return DecodeBits<Base32Alphabet>(text, length, data);
}

int qnDecodeBase32W(const wchar_t* text, unsigned int length, unsigned char** data) {
  return DecodeBits<Base32Alphabet>(text, length, data);
}

}  // namespace QNBase32
