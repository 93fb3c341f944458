// SPDX-License-Identifier: MIT
// The two codecs as the tests see them: the functions of the library under common names, and the
// decoding rule written down plainly, character by character with a linear search.
#ifndef QUARNFC_TESTS_CODEC_CODEC_REFERENCE_H_
#define QUARNFC_TESTS_CODEC_CODEC_REFERENCE_H_

#include <quarnfc/base32.h>
#include <quarnfc/base64.h>

#include <cstdint>
#include <string>

#include "tests/codec/results.h"

namespace codec_test {

// What a decoder reports, and its whole buffer.
struct Decoded {
  int count = 0;
  bool refused = false;
  Bytes buffer;

  bool operator==(const Decoded&) const = default;
};

struct Base64 {
  static constexpr char kAlphabet[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  static constexpr int kBits = 6;
  static inline const auto EncodeA = QNBase64::qnEncodeBase64A;
  static inline const auto EncodeW = QNBase64::qnEncodeBase64W;
  static inline const auto DecodeA = QNBase64::qnDecodeBase64A;
  static inline const auto DecodeW = QNBase64::qnDecodeBase64W;
};

struct Base32 {
  static constexpr char kAlphabet[] = "abcdefghijklmnopqrstuvwxyz654321";
  static constexpr int kBits = 5;
  static inline const auto EncodeA = QNBase32::qnEncodeBase32A;
  static inline const auto EncodeW = QNBase32::qnEncodeBase32W;
  static inline const auto DecodeA = QNBase32::qnDecodeBase32A;
  static inline const auto DecodeW = QNBase32::qnDecodeBase32W;
};

template <class Codec>
std::string EncodeA(const Bytes& data) {
  return Take(Codec::EncodeA(data.data(), static_cast<unsigned>(data.size())));
}

template <class Codec>
std::string EncodeW(const Bytes& data) {
  return Take(Codec::EncodeW(data.data(), static_cast<unsigned>(data.size())));
}

// Takes over what a decoder stored; length is the count of characters it went by.
template <class Codec>
Decoded TakeDecoded(int count, unsigned char* data, std::size_t length) {
  const Owned<unsigned char> owned(data);
  Decoded decoded{count, data == nullptr, {}};
  if (data != nullptr) decoded.buffer.assign(data, data + length * Codec::kBits / 8 + 1);
  return decoded;
}

template <class Codec>
Decoded DecodeA(const std::string& text) {
  unsigned char* data = nullptr;
  const int count = Codec::DecodeA(text.data(), static_cast<unsigned>(text.size()), &data);
  return TakeDecoded<Codec>(count, data, text.size());
}

template <class Codec>
Decoded DecodeW(const std::string& text) {
  const std::vector<wchar_t> wide = Widen(text);
  unsigned char* data = nullptr;
  const int count = Codec::DecodeW(wide.data(), static_cast<unsigned>(text.size()), &data);
  return TakeDecoded<Codec>(count, data, text.size());
}

// Bit by bit: a character adds its bits, most significant first; a byte counts when it has eight.
template <class Codec>
Decoded ReferenceDecode(const std::string& text) {
  Decoded decoded{0, false, Bytes(text.size() * Codec::kBits / 8 + 1)};
  std::size_t bit_position = 0;
  for (const char ch : text) {
    if (ch == '=') break;
    int value = 0;
    while (value < 1 << Codec::kBits && Codec::kAlphabet[value] != ch) ++value;
    if (value == 1 << Codec::kBits) return {0, true, {}};
    for (int bit = Codec::kBits - 1; bit >= 0; --bit, ++bit_position) {
      if ((value >> bit & 1) != 0) decoded.buffer[bit_position / 8] |= 0x80 >> bit_position % 8;
    }
  }
  decoded.count = static_cast<int>(bit_position / 8);
  return decoded;
}

}  // namespace codec_test

#endif  // QUARNFC_TESTS_CODEC_CODEC_REFERENCE_H_
