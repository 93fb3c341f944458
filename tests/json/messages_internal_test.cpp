// SPDX-License-Identifier: MIT
#include "json/messages.h"

#include <gtest/gtest.h>
#include <quarnfc/string_utils.h>

#include <string>

namespace {

std::u16string Decode(const char* text) {
  wchar_t wide[64] = {};
  const int count = QNStringUtils::Ansi2Unicode(text, wide, 63);
  std::u16string decoded;
  for (int i = 0; i + 1 < count; ++i) decoded += static_cast<char16_t>(wide[i]);
  return decoded;
}

TEST(JsonMessages, ChineseTextsDecodeToTheirMeaning) {
  EXPECT_TRUE(Decode(quarnfc::json::kTextIsNull) == u"json字符串为NULL");
  EXPECT_TRUE(Decode(quarnfc::json::kInvalidTopString) == u"无效的字符串");
  EXPECT_TRUE(Decode(quarnfc::json::kInvalidText) == u"无效的json字符串");
  EXPECT_TRUE(Decode(quarnfc::json::kInvalidJsonPrefix) == u"无效的json，");
  EXPECT_TRUE(Decode(quarnfc::json::kUndefinedError) == u"未定义错误");
}

}  // namespace
