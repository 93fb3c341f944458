// SPDX-License-Identifier: MIT
// Texts of the tests as the functions under test take them, and results in a form that prints.
#ifndef QUARNFC_TESTS_SUPPORT_BYTES_H_
#define QUARNFC_TESTS_SUPPORT_BYTES_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/code_page.h"

namespace quarnfc_test {

using quarnfc::platform::Encoding;

inline const unsigned char* Bytes(const char* text) {
  return reinterpret_cast<const unsigned char*>(text);
}

// UTF-16 units as numbers, which a failing test can print.
using Units = std::vector<unsigned int>;

inline Units UnitsOf(std::u16string_view text) { return Units(text.begin(), text.end()); }

// The result of ToUtf16; the size is asked for first and must agree.
Units Decode(Encoding encoding, std::string_view text);

// The result of FromUtf16; the size is asked for first and must agree.
std::string Encode(Encoding encoding, std::u16string_view text);

// FNV-1a over 64 bits, to compare tables that are too long to be listed.
class Digest {
 public:
  void Add(unsigned int value) {
    for (int shift = 0; shift < 32; shift += 8) {
      hash_ = (hash_ ^ (value >> shift & 0xFF)) * 0x100000001B3u;
    }
  }
  std::uint64_t value() const { return hash_; }

 private:
  std::uint64_t hash_ = 0xCBF29CE484222325u;
};

}  // namespace quarnfc_test

#endif  // QUARNFC_TESTS_SUPPORT_BYTES_H_
