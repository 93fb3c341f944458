// SPDX-License-Identifier: MIT
// The alphabets of the codecs, as codec/bit_text.h takes them.
#ifndef QUARNFC_CODEC_ALPHABETS_H_
#define QUARNFC_CODEC_ALPHABETS_H_

namespace quarnfc::codec {

// RFC 4648, table 1.
struct Base64Alphabet {
  static constexpr int kBits = 6;
  static constexpr int kGroupBytes = 3;
  static constexpr int kGroupChars = 4;
  static constexpr char kCharacters[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  static constexpr bool kPadded = true;
};

// The library's own, deliberately: lower case, then the digits 6 down to 1. It is part of the data
// format, so texts of any other Base32 are foreign.
struct Base32Alphabet {
  static constexpr int kBits = 5;
  static constexpr int kGroupBytes = 5;
  static constexpr int kGroupChars = 8;
  static constexpr char kCharacters[] = "abcdefghijklmnopqrstuvwxyz654321";
  static constexpr bool kPadded = false;
};

}  // namespace quarnfc::codec

#endif  // QUARNFC_CODEC_ALPHABETS_H_
