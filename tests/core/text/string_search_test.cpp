// SPDX-License-Identifier: MIT
// Searching in strings and taking parts of them.
#include <quarnfc/qn_string.h>

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "tests/core/text/text.h"

namespace {

using text_test::Bytes;
using text_test::Chars;

// --- Find -------------------------------------------------------------------------------------

TEST(StringSearch, FindsACharacter) {
  const CQNString text("abcabc");
  EXPECT_EQ(text.Find('a'), 0);
  EXPECT_EQ(text.Find('c'), 2);
  EXPECT_EQ(text.Find('x'), -1);
  EXPECT_EQ(CQNString().Find('a'), -1);
  EXPECT_EQ(CQNString().Find('\0'), -1);
}

TEST(StringSearch, FindsACharacterFromAPosition) {
  const CQNString text("abcabc");
  struct {
    char ch;
    int start;
    int index;
  } const cases[] = {
      {'a', 0, 0}, {'a', 1, 3},  {'a', 3, 3},  {'a', 4, -1},
      {'c', 5, 5}, {'c', 6, -1}, {'c', 7, -1}, {'a', INT_MAX, -1},
  };
  for (const auto& c : cases) EXPECT_EQ(text.Find(c.ch, c.start), c.index) << c.ch << c.start;
  EXPECT_EQ(CQNString("abc").Find('a', 3), -1);
}

// The second byte of a double-byte character is never taken for a character.
TEST(StringSearch, FindSkipsSecondBytes) {
  struct {
    const char* text;
    char ch;
    int index;
  } const cases[] = {
      {TRAIL_BACKSLASH, '\\', -1},
      {TRAIL_BACKSLASH "\\", '\\', 2},
      {TRAIL_BAR "a|", '|', 3},
      {TRAIL_AT, '@', -1},
      {TRAIL_OPEN TRAIL_CLOSE "[", '[', 4},
      {TRAIL_CLOSE, ']', -1},
      {TRAIL_TILDE "~", '~', 2},
      {TRAIL_LOWER_A TRAIL_UPPER_A, 'a', -1},
      {TRAIL_LOWER_A TRAIL_UPPER_A "A", 'A', 4},
      {ZHONG, '\xD0', -1},
      {ZHONG, '\xD6', -1},  // a first byte alone is no character of the text either
  };
  for (const auto& c : cases) {
    EXPECT_EQ(CQNString(c.text).Find(c.ch), c.index) << c.text;
    EXPECT_EQ(CQNString(c.text).ReverseFind(c.ch), c.index) << c.text;
  }
}

TEST(StringSearch, FindsTheTwoSingleCharactersAboveAscii) {
  EXPECT_EQ(CQNString(ZHONG "\x80").Find('\x80'), 2);
  EXPECT_EQ(CQNString(ZHONG "\xFF").Find('\xFF'), 2);
}

TEST(StringSearch, FindsAText) {
  struct {
    const char* text;
    const char* sub;
    int index;
  } const cases[] = {
      {"abcabc", "bc", 1},
      {"abcabc", "abcabc", 0},
      {"abcabc", "abcabcd", -1},
      {"abc", "", 0},
      {"", "", 0},
      {"", "a", -1},
      {"aab", "ab", 1},
      {"ab", "abc", -1},
      {ZHONG WEN, WEN, 2},
      {"\xB0\xA1\xB0\xA1\xB0", "\xA1", -1},
      {"a\xB0", "a\xB0", 0},
      {TRAIL_BACKSLASH "\\b", "\\b", 2},
      {"\xB0\xA1\xB0\xA2", "\xA1\xB0", -1},  // across two characters
      {"\xB0\xA1\xB0\xA2", "\xB0\xA2", 2},
      {TRAIL_LOWER_A "bc", "ab", -1},  // starting in the middle of one
      {TRAIL_LOWER_A "bcab", "ab", 4},
      {TRAIL_BACKSLASH "n", "\\n", -1},
      {"x" TRAIL_BACKSLASH "n\\n", "\\n", 4},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(CQNString(c.text).Find(c.sub), c.index) << c.text << " " << c.sub;
    EXPECT_EQ(CQNString(c.text).Find(c.sub, 0), c.index) << c.text << " " << c.sub;
  }
}

TEST(StringSearch, FindsATextFromAPosition) {
  const CQNString text("abcabc");
  EXPECT_EQ(text.Find("abc", 1), 3);
  EXPECT_EQ(text.Find("abc", 3), 3);
  EXPECT_EQ(text.Find("abc", 4), -1);
}

// Deliberately unlike the character form: start may equal the length.
TEST(StringSearch, TextFormAllowsAStartAtTheEnd) {
  EXPECT_EQ(CQNString("abc").Find("", 3), 3);
  EXPECT_EQ(CQNString("abc").Find("", 2), 2);
  EXPECT_EQ(CQNString("abc").Find("a", 3), -1);
  EXPECT_EQ(CQNString("abc").Find("", 4), -1);
  EXPECT_EQ(CQNString().Find("", 0), 0);
  EXPECT_EQ(CQNString().Find("", 1), -1);
}

TEST(StringSearch, ANegativeStartCountsAsZero) {
  EXPECT_EQ(CQNString("abc").Find('a', -5), 0);
  EXPECT_EQ(CQNString("abc").Find("bc", INT_MIN), 1);
}

TEST(StringSearch, NullTextIsNeverFound) {
  EXPECT_EQ(CQNString("abc").Find(static_cast<const char*>(nullptr)), -1);
  EXPECT_EQ(CQNString("abc").Find(static_cast<const char*>(nullptr), 1), -1);
}

TEST(StringSearch, ReverseFindGivesTheLastOccurrence) {
  EXPECT_EQ(CQNString("abcabc").ReverseFind('b'), 4);
  EXPECT_EQ(CQNString("abc").ReverseFind('x'), -1);
  EXPECT_EQ(CQNString().ReverseFind('x'), -1);
  EXPECT_EQ(CQNString("C:\\" TRAIL_BACKSLASH).ReverseFind('\\'), 2);
}

TEST(StringSearch, FindOneOfGivesTheFirstCharacterOfTheSet) {
  struct {
    const char* text;
    const char* set;
    int index;
  } const cases[] = {
      {"abcdef", "fd", 3},
      {"abc", "xyz", -1},
      {"abc", "", -1},
      {"", "abc", -1},
      {TRAIL_BAR "a|", "|", 3},
      {"a" WEN ZHONG, ZHONG WEN, 1},
      {"a" WEN "b", ZHONG "b", 3},
      {"a\xA1\xB0", "\xB0\xA1", -1},
      {"|", TRAIL_BAR, -1},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(CQNString(c.text).FindOneOf(c.set), c.index) << c.text << " " << c.set;
  }
}

// --- parts ------------------------------------------------------------------------------------

TEST(StringParts, MidIsClampedToTheText) {
  const CQNString text("abcdef");
  struct {
    int first;
    int count;
    const char* part;
  } const cases[] = {
      {0, 3, "abc"},
      {2, 2, "cd"},
      {1, 100, "bcdef"},
      {6, 1, ""},
      {7, 1, ""},
      {2, 0, ""},
      {2, -1, ""},
      {-3, 2, "ab"},
      {0, 6, "abcdef"},
      {-1, 7, "abcdef"},
      {1, INT_MAX, "bcdef"},
      {INT_MAX, INT_MAX, ""},
      {5, 1, "f"},
      {INT_MIN, 1, "a"},
      {INT_MIN, INT_MIN, ""},
      {3, INT_MIN, ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Bytes(text.Mid(c.first, c.count)), c.part) << c.first << " " << c.count;
  }
}

TEST(StringParts, MidWithoutCountTakesTheRest) {
  const CQNString text("abcdef");
  EXPECT_EQ(Bytes(text.Mid(2)), "cdef");
  EXPECT_EQ(Bytes(text.Mid(0)), "abcdef");
  EXPECT_EQ(Bytes(text.Mid(6)), "");
  EXPECT_EQ(Bytes(text.Mid(7)), "");
  EXPECT_EQ(Bytes(text.Mid(-2)), "abcdef");
  EXPECT_EQ(Bytes(text.Mid(INT_MIN)), "abcdef");
  EXPECT_EQ(Bytes(CQNString("abc").Mid(1, 100)), "bc");
  EXPECT_EQ(Bytes(CQNString("abc").Mid(5)), "");
}

TEST(StringParts, LeftAndRightAreClampedToTheText) {
  const CQNString text("abcdef");
  struct {
    int count;
    const char* left;
    const char* right;
  } const cases[] = {
      {2, "ab", "ef"},
      {0, "", ""},
      {-1, "", ""},
      {6, "abcdef", "abcdef"},
      {7, "abcdef", "abcdef"},
      {INT_MAX, "abcdef", "abcdef"},
      {INT_MIN, "", ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Bytes(text.Left(c.count)), c.left) << c.count;
    EXPECT_EQ(Bytes(text.Right(c.count)), c.right) << c.count;
  }
}

TEST(StringParts, TheWholeStringSharesItsBuffer) {
  const CQNString text("abcdef");
  EXPECT_EQ(Chars(text.Mid(0, 6)), Chars(text));
  EXPECT_EQ(Chars(text.Mid(0)), Chars(text));
  EXPECT_EQ(Chars(text.Left(6)), Chars(text));
  EXPECT_EQ(Chars(text.Left(100)), Chars(text));
  EXPECT_EQ(Chars(text.Right(6)), Chars(text));
  EXPECT_NE(Chars(text.Left(5)), Chars(text));
}

// Positions are bytes, so a double-byte character can be cut.
TEST(StringParts, PartsCountBytes) {
  const CQNString text("a" ZHONG "b");
  EXPECT_EQ(Bytes(text.Left(2)), "a\xD6");
  EXPECT_EQ(Bytes(text.Right(2)),
            "\xD0"
            "b");
  EXPECT_EQ(Bytes(text.Mid(2, 1)), "\xD0");
}

TEST(StringParts, PartsKeepEmbeddedZeros) {
  EXPECT_EQ(Bytes(CQNString("ab\0cd", 5).Mid(1, 3)), std::string("b\0c", 3));
}

TEST(StringParts, SpansTakeTheLeadingRun) {
  struct {
    const char* text;
    const char* set;
    const char* including;
    const char* excluding;
  } const cases[] = {
      {"aabbcd", "ab", "aabb", ""},
      {"aabbcd", "cd", "", "aabb"},
      {"aabb", "ab", "aabb", ""},
      {"aabb", "x", "", "aabb"},
      {"aabb", "", "", "aabb"},
      {"", "ab", "", ""},
      {ZHONG WEN "a", WEN ZHONG, ZHONG WEN, ""},
      {TRAIL_LOWER_A "a", "a", "", TRAIL_LOWER_A},
      {TRAIL_BAR "x|y", "|", "", TRAIL_BAR "x"},
      {"|", TRAIL_BAR, "", "|"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Bytes(CQNString(c.text).SpanIncluding(c.set)), c.including) << c.text;
    EXPECT_EQ(Bytes(CQNString(c.text).SpanExcluding(c.set)), c.excluding) << c.text;
  }
}

TEST(StringParts, NullSetsAreEmptySets) {
  EXPECT_EQ(Bytes(CQNString("abc").SpanIncluding(nullptr)), "");
  EXPECT_EQ(Bytes(CQNString("abc").SpanExcluding(nullptr)), "abc");
  EXPECT_EQ(CQNString("abc").FindOneOf(nullptr), -1);
}

// A first byte without its second, at the very end of a heap buffer: nothing behind the terminator
// may be looked at.
TEST(StringSearch, ALoneFirstByteAtTheEndIsHarmless) {
  const CQNString text = CQNString('a', 599) + '\xB0';
  EXPECT_EQ(text.Find('x'), -1);
  EXPECT_EQ(text.Find("xy"), -1);
  EXPECT_EQ(text.Find("\xB0\xA1"), -1);
  EXPECT_EQ(text.ReverseFind('x'), -1);
  EXPECT_EQ(text.FindOneOf("xy"), -1);
  EXPECT_EQ(text.FindOneOf("x\xB0"), text.FindOneOf("\xB0"));
  EXPECT_GE(text.SpanIncluding("a").GetLength(), 599);
  EXPECT_GE(text.SpanExcluding("x").GetLength(), 599);
  EXPECT_NE(text.Compare("a"), 0);
  EXPECT_NE(text.CompareNoCase("a"), 0);
}

}  // namespace
