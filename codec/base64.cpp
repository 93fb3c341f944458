#include "quarnfc/base64.h"

#include "codec/alphabets.h"
#include "codec/bit_text.h"

using quarnfc::Base64Alphabet;
using quarnfc::DecodeBits;
using quarnfc::EncodeBits;

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
