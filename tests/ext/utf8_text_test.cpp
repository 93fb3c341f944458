// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <quarnfc/ext/utf8_text.h>

#include <string>

namespace quarnfc::ext {
namespace {

TEST(Utf8Text, WellFormedCharactersHaveTheirLength) {
  const struct {
    const char* bytes;
    std::size_t length;
  } cases[] = {
      {"a", 1},
      {"\x7F", 1},
      {"\xC2\x80", 2},
      {"\xDF\xBF", 2},
      {"\xE0\xA0\x80", 3},
      {"\xED\x9F\xBF", 3},
      {"\xEE\x80\x80", 3},
      {"\xEF\xBF\xBF", 3},
      {"\xF0\x90\x80\x80", 4},
      {"\xF4\x8F\xBF\xBF", 4},
      // Continuation alone, long forms, surrogates, beyond the last character, cut off.
      {"\x80", 0},
      {"\xC1\xBF", 0},
      {"\xE0\x9F\xBF", 0},
      {"\xED\xA0\x80", 0},
      {"\xF0\x8F\xBF\xBF", 0},
      {"\xF4\x90\x80\x80", 0},
      {"\xF5\x80\x80\x80", 0},
      {"\xC2", 0},
      {"\xE4\xB8", 0},
      {"\xF0\x9F\x98", 0},
      {"\xE4\xB8x", 0},
      {"", 0},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(Utf8CharLength(each.bytes, 0), each.length) << testing::PrintToString(each.bytes);
  }
}

TEST(Utf8Text, FirstInvalidByteIsFound) {
  EXPECT_EQ(FindInvalidUtf8("a\xE4\xB8\xAD\xD6z"), 4u);
  EXPECT_EQ(FindInvalidUtf8("a\xE4\xB8\xAD"), 4u);
  EXPECT_TRUE(IsUtf8(""));
  EXPECT_FALSE(IsUtf8("\xD6\xD0"));
}

TEST(Utf8Text, AppendedCharactersReadBack) {
  for (const char32_t ch : {U'a', U'\u00E9', U'\u4E2D', U'\U0001F600', U'\U0010FFFF'}) {
    std::string text;
    AppendUtf8(text, ch);
    EXPECT_EQ(Utf8CharLength(text, 0), text.size());
    EXPECT_EQ(CountUtf8Chars(text), 1u);
  }
  std::string none;
  AppendUtf8(none, char32_t{0xD800});
  AppendUtf8(none, char32_t{0x110000});
  EXPECT_EQ(none, "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Utf8Text, PlacesCountCharactersFromOne) {
  const std::string text = "ab\r\n\xE4\xB8\xAD\xE5\x9B\xBDx";
  EXPECT_EQ(PlaceInText(text, 0).line, 1u);
  EXPECT_EQ(PlaceInText(text, 0).column, 1u);
  EXPECT_EQ(PlaceInText(text, 10).line, 2u);
  EXPECT_EQ(PlaceInText(text, 10).column, 3u);
}

}  // namespace
}  // namespace quarnfc::ext
