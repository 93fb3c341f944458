// SPDX-License-Identifier: MIT
// Upper and lower case, the order of characters, and the OEM code page.
#include <quarnfc/qn_string.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/core/text/text.h"

namespace {

using text_test::Bytes;

std::string Upper(const char* bytes) {
  CQNString text(bytes);
  text.MakeUpper();
  return Bytes(text);
}

std::string Lower(const char* bytes) {
  CQNString text(bytes);
  text.MakeLower();
  return Bytes(text);
}

std::string Reversed(const char* bytes) {
  CQNString text(bytes);
  text.MakeReverse();
  return Bytes(text);
}

TEST(StringCase, MakesLettersUpperAndLower) {
  EXPECT_EQ(Upper("abcXYZ 019[]"), "ABCXYZ 019[]");
  EXPECT_EQ(Lower("abcXYZ 019[]"), "abcxyz 019[]");
  EXPECT_EQ(Upper(""), "");
  EXPECT_EQ(Lower(""), "");
}

TEST(StringCase, NeverTouchesTheSecondByteOfACharacter) {
  EXPECT_EQ(Upper(TRAIL_LOWER_A "a"), TRAIL_LOWER_A "A");
  EXPECT_EQ(Lower(TRAIL_UPPER_A "A"), TRAIL_UPPER_A "a");
  EXPECT_EQ(Upper(ZHONG "a" WEN), ZHONG "A" WEN);
  EXPECT_EQ(Lower(ZHONG "A" WEN), ZHONG "a" WEN);
}

// Letters of two bytes have a case too: full-width Latin, Greek and Cyrillic.
TEST(StringCase, MakesDoubleByteLettersUpperAndLower) {
  const struct {
    const char* lower;
    const char* upper;
  } cases[] = {
      {"\xA3\xE1", "\xA3\xC1"},  // U+FF41, U+FF21
      {"\xA3\xFA", "\xA3\xDA"},  // U+FF5A, U+FF3A
      {"\xA6\xC2", "\xA6\xA2"},  // U+03B2, U+0392
      {"\xA7\xD8", "\xA7\xA8"},  // U+0436, U+0416
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Upper(c.lower), c.upper);
    EXPECT_EQ(Lower(c.upper), c.lower);
    EXPECT_EQ(Upper(c.upper), c.upper);
    EXPECT_EQ(Lower(c.lower), c.lower);
  }
}

TEST(StringCase, ReversesByCharacters) {
  EXPECT_EQ(Reversed("abc"), "cba");
  EXPECT_EQ(Reversed(""), "");
  EXPECT_EQ(Reversed("a"), "a");
  EXPECT_EQ(Reversed("a" ZHONG "b" WEN), WEN "b" ZHONG "a");
  EXPECT_EQ(Reversed(TRAIL_BACKSLASH "\\" TRAIL_BAR "|"), "|" TRAIL_BAR "\\" TRAIL_BACKSLASH);
  EXPECT_EQ(Reversed(TRAIL_AT TRAIL_OPEN), TRAIL_OPEN TRAIL_AT);
}

// ANSI and OEM are the same code page where 936 is the ANSI one.
TEST(StringCase, OemConversionKeepsTextOfTheCodePage) {
  CQNString text("abc" ZHONG TRAIL_BACKSLASH "\\");
  text.CharToOemA();
  EXPECT_EQ(Bytes(text), "abc" ZHONG TRAIL_BACKSLASH "\\");
  text.OemToCharA();
  EXPECT_EQ(Bytes(text), "abc" ZHONG TRAIL_BACKSLASH "\\");
}

TEST(StringCase, WorksOnSharedAndEmptyStrings) {
  CQNString text("abc");
  CQNString copy(text);
  text.MakeUpper();
  EXPECT_EQ(Bytes(copy), "abc");
  copy.MakeReverse();
  EXPECT_EQ(Bytes(text), "ABC");
  CQNString empty;
  empty.MakeUpper();
  empty.MakeLower();
  empty.MakeReverse();
  empty.CharToOemA();
  empty.OemToCharA();
  EXPECT_EQ(Bytes(empty), "");
}

TEST(StringCase, OemConversionsKeepTheTerminatorOfBrokenText) {
  for (const char* const broken :
       {"ab\xF6", "x\xE8\xFF\xEA\xFF\xE0\xEA\xDF\xFF\xFF\xEF\x9D#\xF6"}) {
    CQNString text(broken);
    const int length = text.GetLength();
    text.CharToOemA();
    EXPECT_EQ(text.GetLength(), length);
    EXPECT_EQ(text[length], '\0');
    text.OemToCharA();
    EXPECT_EQ(text.GetLength(), length);
    EXPECT_EQ(text[length], '\0');
  }
}

}  // namespace
