// SPDX-License-Identifier: MIT
// Bytes as lower-case hexadecimal digits.
#ifndef QUARNFC_TESTS_SUPPORT_HEX_H_
#define QUARNFC_TESTS_SUPPORT_HEX_H_

#include <cstddef>
#include <string>

namespace quarnfc_test {

inline std::string Hex(const void* bytes, std::size_t size) {
  static const char kDigits[] = "0123456789abcdef";
  std::string text;
  for (std::size_t i = 0; i < size; ++i) {
    const unsigned char byte = static_cast<const unsigned char*>(bytes)[i];
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

}  // namespace quarnfc_test

#endif  // QUARNFC_TESTS_SUPPORT_HEX_H_
