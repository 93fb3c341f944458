#include "tests/platform/bytes.h"

#include <gtest/gtest.h>

namespace quarnfc_test {

Units Decode(UINT code_page, std::string_view text) {
  const int length = static_cast<int>(text.size());
  const int size = MultiByteToWideChar(code_page, 0, text.data(), length, nullptr, 0);
  std::vector<wchar_t> units(static_cast<std::size_t>(size) + 1);
  EXPECT_EQ(size, MultiByteToWideChar(code_page, 0, text.data(), length, units.data(), size + 1));
  return Units(units.begin(), units.end() - 1);
}

std::string Encode(UINT code_page, std::u16string_view text) {
  const std::vector<wchar_t> units(text.begin(), text.end());
  const int length = static_cast<int>(units.size());
  const int size =
      WideCharToMultiByte(code_page, 0, units.data(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  EXPECT_EQ(size, WideCharToMultiByte(code_page, 0, units.data(), length, bytes.data(), size,
                                      nullptr, nullptr));
  return bytes;
}

}  // namespace quarnfc_test
