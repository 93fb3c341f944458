// SPDX-License-Identifier: MIT
#include "quarnfc/base64.h"

#include "codec/bit_text_fast.h"

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
