// SPDX-License-Identifier: MIT
#include "tests/support/bytes.h"

#include <gtest/gtest.h>

namespace quarnfc_test {

using quarnfc::platform::FromUtf16;
using quarnfc::platform::ToUtf16;

Units Decode(Encoding encoding, std::string_view text) {
  const int length = static_cast<int>(text.size());
  const int size = ToUtf16(encoding, text.data(), length, nullptr, 0);
  std::vector<wchar_t> units(static_cast<std::size_t>(size) + 1);
  EXPECT_EQ(size, ToUtf16(encoding, text.data(), length, units.data(), size + 1));
  return Units(units.begin(), units.end() - 1);
}

std::string Encode(Encoding encoding, std::u16string_view text) {
  const std::vector<wchar_t> units(text.begin(), text.end());
  const int length = static_cast<int>(units.size());
  const int size = FromUtf16(encoding, units.data(), length, nullptr, 0);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  EXPECT_EQ(size, FromUtf16(encoding, units.data(), length, bytes.data(), size));
  return bytes;
}

}  // namespace quarnfc_test
