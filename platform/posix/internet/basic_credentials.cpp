// SPDX-License-Identifier: MIT
#include "platform/posix/internet/basic_credentials.h"

#include <cstddef>

namespace quarnfc::internet {

std::string BasicCredentials(const std::string& user, const std::string& password) {
  static const char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  const std::string text = user + ":" + password;
  std::string value = "Basic ";
  for (std::size_t i = 0; i < text.size(); i += 3) {
    unsigned int bits = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      bits = bits << 8 | (i + k < text.size() ? static_cast<unsigned char>(text[i + k]) : 0u);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      value += i + k <= text.size() ? kDigits[bits >> (18 - 6 * k) & 63] : '=';
    }
  }
  return value;
}

}  // namespace quarnfc::internet
