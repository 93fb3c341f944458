// SPDX-License-Identifier: MIT
// Trimming white space, a character, or the characters of a set.
#include <quarnfc/qn_string.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/core/text/text.h"

namespace {

using text_test::Bytes;
using text_test::Chars;

struct TrimCase {
  const char* text;
  const char* left;
  const char* right;
  const char* both;
};

TEST(StringTrim, DropsWhiteSpace) {
  const TrimCase cases[] = {
      {"  abc  ", "abc  ", "  abc", "abc"},
      {"abc", "abc", "abc", "abc"},
      {"", "", "", ""},
      {"   ", "", "", ""},
      {" \t\n\v\f\ra b\t \r\n", "a b\t \r\n", " \t\n\v\f\ra b", "a b"},
      {" " ZHONG " ", ZHONG " ", " " ZHONG, ZHONG},
      {" a b c ", "a b c ", " a b c", "a b c"},
      // A wide blank is judged by its first byte, which is no white space.
      {WIDE_BLANK "a" WIDE_BLANK, WIDE_BLANK "a" WIDE_BLANK, WIDE_BLANK "a" WIDE_BLANK,
       WIDE_BLANK "a" WIDE_BLANK},
      {"\x80 \xFF", "\x80 \xFF", "\x80 \xFF", "\x80 \xFF"},
  };
  for (const TrimCase& c : cases) {
    CQNString left(c.text);
    left.TrimLeft();
    EXPECT_EQ(Bytes(left), c.left);
    EXPECT_STREQ(Chars(left), c.left);
    CQNString right(c.text);
    right.TrimRight();
    EXPECT_EQ(Bytes(right), c.right);
    EXPECT_STREQ(Chars(right), c.right);
    CQNString both(c.text);
    both.Trim();
    EXPECT_EQ(Bytes(both), c.both);
  }
}

struct TrimCharCase {
  const char* text;
  char ch;
  const char* left;
  const char* right;
};

TEST(StringTrim, DropsACharacter) {
  const TrimCharCase cases[] = {
      {"xxabxx", 'x', "abxx", "xxab"},
      {"xxx", 'x', "", ""},
      {"", 'x', "", ""},
      {"abc", 'x', "abc", "abc"},
      {"xaxbx", 'x', "axbx", "xaxb"},
      {"\\" TRAIL_BACKSLASH "\\", '\\', TRAIL_BACKSLASH "\\", "\\" TRAIL_BACKSLASH},
      {TRAIL_BACKSLASH, '\\', TRAIL_BACKSLASH, TRAIL_BACKSLASH},
      {TRAIL_BAR "||", '|', TRAIL_BAR "||", TRAIL_BAR},
      {"a" TRAIL_LOWER_A "a", 'a', TRAIL_LOWER_A "a", "a" TRAIL_LOWER_A},
      {"@" TRAIL_AT, '@', TRAIL_AT, "@" TRAIL_AT},
      {"~" TRAIL_TILDE "~", '~', TRAIL_TILDE "~", "~" TRAIL_TILDE},
      // The byte compared is the first one, whatever the width of its character.
      {ZHONG "a" ZHONG, '\xD6', "a" ZHONG, ZHONG "a"},
  };
  for (const TrimCharCase& c : cases) {
    CQNString left(c.text);
    left.TrimLeft(c.ch);
    EXPECT_EQ(Bytes(left), c.left) << c.text;
    CQNString right(c.text);
    right.TrimRight(c.ch);
    EXPECT_EQ(Bytes(right), c.right) << c.text;
  }
}

struct TrimSetCase {
  const char* text;
  const char* set;
  const char* left;
  const char* right;
};

TEST(StringTrim, DropsTheCharactersOfASet) {
  const TrimSetCase cases[] = {
      {"xyaxybyx", "xy", "axybyx", "xyaxyb"},
      {"xyx", "xy", "", ""},
      {"", "xy", "", ""},
      {"abc", "", "abc", "abc"},
      {WIDE_BLANK " a " WIDE_BLANK, " " WIDE_BLANK, "a " WIDE_BLANK, WIDE_BLANK " a"},
      {ZHONG WEN "a" WEN, ZHONG WEN, "a" WEN, ZHONG WEN "a"},
      {TRAIL_BAR "|", "|", TRAIL_BAR "|", TRAIL_BAR},
      {"|" TRAIL_BAR, TRAIL_BAR, "|" TRAIL_BAR, "|"},
      {TRAIL_LOWER_A "ba", "ab", TRAIL_LOWER_A "ba", TRAIL_LOWER_A},
      {"\xA1\xB0", "\xB0\xA1", "\xA1\xB0", "\xA1\xB0"},
  };
  for (const TrimSetCase& c : cases) {
    CQNString left(c.text);
    left.TrimLeft(c.set);
    EXPECT_EQ(Bytes(left), c.left) << c.text;
    CQNString right(c.text);
    right.TrimRight(c.set);
    EXPECT_EQ(Bytes(right), c.right) << c.text;
  }
}

TEST(StringTrim, ANullOrEmptySetDoesNothingAtTheLeft) {
  CQNString text(" abc");
  CQNString copy(text);
  text.TrimLeft(static_cast<const char*>(nullptr));
  text.TrimLeft("");
  EXPECT_EQ(Bytes(text), " abc");
  EXPECT_EQ(Chars(text), Chars(copy));
}

TEST(StringTrim, ANullSetIsHarmlessAtTheRight) {
  CQNString text("abc ");
  text.TrimRight(static_cast<const char*>(nullptr));
  EXPECT_EQ(Bytes(text), "abc ");
}

TEST(StringTrim, TrimsBehindEmbeddedZeros) {
  CQNString text(" a\0b ", 5);
  text.Trim();
  EXPECT_EQ(Bytes(text), std::string("a\0b", 3));
}

// A zero byte in the text is no member of any set, although every set ends with one.
TEST(StringTrim, AZeroByteIsInNoSet) {
  CQNString text("\0ab\0", 4);
  text.TrimLeft("x");
  text.TrimRight("x");
  EXPECT_EQ(Bytes(text), std::string("\0ab\0", 4));
}

TEST(StringTrim, KeepsTheBuffer) {
  CQNString text = CQNString(' ', 600) + "abc" + CQNString(' ', 600);
  text.Trim();
  EXPECT_EQ(Bytes(text), "abc");
  EXPECT_EQ(text.GetAllocLength(), 1203);
}

}  // namespace
