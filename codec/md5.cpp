// SPDX-License-Identifier: MIT
// QNMD5: the library's own form of MD5 as words and as text. See md5_hash.cpp.
#include "quarnfc/md5.h"

#include <cstdint>
#include <cstring>

#include "codec/hex_text.h"
#include "codec/md5_hash.h"

namespace quarnfc::codec {
namespace {

Md5Hash::State Md5(const void* data, unsigned int size) {
  Md5Hash hash(Md5Packing::kSigned);
  hash.Update(data, data == nullptr ? 0 : size);
  return hash.Finish();
}

template <class Char>
void Md5Text(const void* data, unsigned int size, const char* digits, Char* text) {
  if (text == nullptr) return;
  for (const std::uint32_t word : Md5(data, size)) {
    for (int shift = 0; shift < 32; shift += 8) text = WriteHexByte(word >> shift, digits, text);
  }
  *text = Char{};
}

}  // namespace
}  // namespace quarnfc::codec

namespace QNMD5 {

using quarnfc::codec::kLowerHexDigits;
using quarnfc::codec::kUpperHexDigits;
using quarnfc::codec::Md5Text;

void qnGetMD5Data(const void* data, unsigned int size, unsigned int* words) {
  if (words == nullptr) return;
  const auto state = quarnfc::codec::Md5(data, size);
  std::memcpy(words, state.data(), sizeof(state));
}

void qnGetMD5StrLowerA(const void* data, unsigned int size, char* text) {
  Md5Text(data, size, kLowerHexDigits, text);
}

void qnGetMD5StrUpperA(const void* data, unsigned int size, char* text) {
  Md5Text(data, size, kUpperHexDigits, text);
}

void qnGetMD5StrLowerW(const void* data, unsigned int size, wchar_t* text) {
  Md5Text(data, size, kLowerHexDigits, text);
}

void qnGetMD5StrUpperW(const void* data, unsigned int size, wchar_t* text) {
  Md5Text(data, size, kUpperHexDigits, text);
}

}  // namespace QNMD5
