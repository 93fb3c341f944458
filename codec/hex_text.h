// SPDX-License-Identifier: MIT
// Hexadecimal text in narrow and wide characters.
#ifndef QUARNFC_CODEC_HEX_TEXT_H_
#define QUARNFC_CODEC_HEX_TEXT_H_

namespace quarnfc::codec {

constexpr char kLowerHexDigits[] = "0123456789abcdef";
constexpr char kUpperHexDigits[] = "0123456789ABCDEF";

// Writes the two digits of a byte, the high one first; returns what follows them.
template <class Char>
Char* WriteHexByte(unsigned byte, const char* digits, Char* text) {
  *text++ = static_cast<Char>(digits[byte >> 4 & 0xF]);
  *text++ = static_cast<Char>(digits[byte & 0xF]);
  return text;
}

}  // namespace quarnfc::codec

#endif  // QUARNFC_CODEC_HEX_TEXT_H_
