// SPDX-License-Identifier: MIT
// Editing strings in place.
#include <quarnfc/qn_string.h>

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <string>
#include <string_view>

#include "tests/core/text/text.h"

namespace {

using text_test::Bytes;
using text_test::Chars;
using namespace std::string_literals;

// --- Insert -----------------------------------------------------------------------------------

TEST(StringEdit, InsertPutsTextBeforeTheClampedIndex) {
  struct {
    int index;
    const char* insert;
    const char* result;
  } const cases[] = {
      {0, "xy", "xyabc"},     {1, "xy", "axybc"},         {3, "xy", "abcxy"},
      {10, "xy", "abcxy"},    {-5, "xy", "xyabc"},        {INT_MAX, "x", "abcx"},
      {INT_MIN, "x", "xabc"}, {1, ZHONG, "a" ZHONG "bc"},
  };
  for (const auto& c : cases) {
    CQNString text("abc");
    EXPECT_EQ(text.Insert(c.index, c.insert), static_cast<int>(std::string(c.result).size()));
    EXPECT_EQ(Bytes(text), c.result) << c.index;
    EXPECT_STREQ(Chars(text), c.result) << c.index;
  }
}

TEST(StringEdit, InsertPutsACharacterBeforeTheClampedIndex) {
  struct {
    int index;
    const char* result;
  } const cases[] = {
      {0, "xabc"},  {1, "axbc"},       {3, "abcx"},       {10, "abcx"},
      {-5, "xabc"}, {INT_MAX, "abcx"}, {INT_MIN, "xabc"},
  };
  for (const auto& c : cases) {
    CQNString text("abc");
    EXPECT_EQ(text.Insert(c.index, 'x'), 4);
    EXPECT_EQ(Bytes(text), c.result) << c.index;
  }
  CQNString empty;
  EXPECT_EQ(empty.Insert(0, 'x'), 1);
  EXPECT_EQ(Bytes(empty), "x");
}

TEST(StringEdit, InsertingNothingChangesNothing) {
  CQNString text("abc");
  CQNString copy(text);
  EXPECT_EQ(text.Insert(1, ""), 3);
  EXPECT_EQ(text.Insert(1, static_cast<const char*>(nullptr)), 3);
  EXPECT_EQ(Chars(text), Chars(copy));
}

TEST(StringEdit, InsertGrowsTheBufferOnlyWhenItIsTooSmall) {
  CQNString text('x', 63);
  const char* before = text;
  text.Insert(0, 'a');
  EXPECT_EQ(Chars(text), before);
  text.Insert(64, 'b');
  EXPECT_EQ(text.GetAllocLength(), 128);
  EXPECT_EQ(Bytes(text), "a" + std::string(63, 'x') + "b");
  CQNString large('x', 600);
  large.Insert(300, "yz");
  EXPECT_EQ(large.GetAllocLength(), 602);
  EXPECT_EQ(Bytes(large), std::string(300, 'x') + "yz" + std::string(300, 'x'));
}

TEST(StringEdit, InsertKeepsEmbeddedZeros) {
  CQNString text("a\0b", 3);
  EXPECT_EQ(text.Insert(2, "xy"), 5);
  EXPECT_EQ(Bytes(text), "a\0xyb"s);
}

TEST(StringEdit, InsertTakesItsOwnText) {
  CQNString text("abc");
  text.Insert(1, Chars(text));
  EXPECT_EQ(Bytes(text), "aabcbc");
  CQNString large = CQNString('x', 600) + "yz";
  large.Insert(0, Chars(large) + 600);
  EXPECT_EQ(Bytes(large), "yz" + std::string(600, 'x') + "yz");
}

// --- Delete -----------------------------------------------------------------------------------

// Deliberately the length before the deletion, not after it.
TEST(StringEdit, DeleteReturnsTheOldLength) {
  CQNString text("abc");
  EXPECT_EQ(text.Delete(1, 1), 3);
  EXPECT_EQ(Bytes(text), "ac");
}

TEST(StringEdit, DeleteRemovesBytes) {
  struct {
    int index;
    int count;
    const char* result;
  } const cases[] = {
      {0, 1, "bcdef"},
      {0, 6, ""},
      {2, 3, "abf"},
      {5, 1, "abcde"},
      {-2, 1, "bcdef"},
      {INT_MIN, 2, "cdef"},
      // nothing to delete
      {6, 1, "abcdef"},
      {7, 1, "abcdef"},
      {1, 0, "abcdef"},
      {1, -1, "abcdef"},
      {INT_MAX, 1, "abcdef"},
      {0, INT_MIN, "abcdef"},
      // what lies beyond the text is ignored
      {4, 3, "abcd"},
      {0, INT_MAX, ""},
      {5, INT_MAX, "abcde"},
  };
  for (const auto& c : cases) {
    CQNString text("abcdef");
    EXPECT_EQ(text.Delete(c.index, c.count), 6);
    EXPECT_EQ(Bytes(text), c.result) << c.index << " " << c.count;
    EXPECT_STREQ(Chars(text), c.result);
  }
  CQNString empty;
  EXPECT_EQ(empty.Delete(0, 1), 0);
}

TEST(StringEdit, DeleteKeepsTheBuffer) {
  CQNString text('x', 600);
  text.Delete(0, 599);
  EXPECT_EQ(text.GetAllocLength(), 600);
}

// --- Replace a character ----------------------------------------------------------------------

TEST(StringEdit, ReplacesACharacter) {
  struct {
    const char* text;
    char old_char;
    char new_char;
    int count;
    const char* result;
  } const cases[] = {
      {"banana", 'a', 'o', 3, "bonono"},
      {"banana", 'x', 'o', 0, "banana"},
      {"banana", 'a', 'a', 0, "banana"},
      {"", 'a', 'b', 0, ""},
      {"a/" TRAIL_BACKSLASH "\\", '\\', '/', 1, "a/" TRAIL_BACKSLASH "/"},
      {TRAIL_BAR "|" TRAIL_BAR, '|', '!', 1, TRAIL_BAR "!" TRAIL_BAR},
      {TRAIL_LOWER_A "a", 'a', 'b', 1, TRAIL_LOWER_A "b"},
      {TRAIL_AT TRAIL_OPEN TRAIL_CLOSE TRAIL_TILDE, '@', '!', 0,
       TRAIL_AT TRAIL_OPEN TRAIL_CLOSE TRAIL_TILDE},
  };
  for (const auto& c : cases) {
    CQNString text(c.text);
    EXPECT_EQ(text.Replace(c.old_char, c.new_char), c.count) << c.text;
    EXPECT_EQ(Bytes(text), c.result) << c.text;
  }
}

// The byte compared is the first one, whatever the width of its character.
TEST(StringEdit, ReplaceWritesOverTheFirstByteOfADoubleByteCharacter) {
  CQNString text(ZHONG);
  EXPECT_EQ(text.Replace('\xD6', 'x'), 1);
  EXPECT_EQ(Bytes(text), "x\xD0");
}

// A second byte that equals the character stands in most of these texts, and so do zero bytes.
TEST(StringEdit, ReplaceFindsCharactersAsAWalkDoes) {
  std::mt19937 random(1);
  constexpr std::string_view kBytes("ab@\\\x81\xD6\xFE\0", 8);
  for (int i = 0; i < 20'000; ++i) {
    std::string text(random() % 20, '\0');
    for (char& byte : text) byte = kBytes[random() % kBytes.size()];
    CQNString replaced(text.data(), static_cast<int>(text.size()));
    int count = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
      const bool is_pair = static_cast<unsigned char>(text[at]) > 0x80 && at + 1 < text.size() &&
                           text[at + 1] != '\0';
      count += text[at] == '@';
      if (text[at] == '@') text[at] = 'x';
      if (is_pair) ++at;
    }
    ASSERT_EQ(replaced.Replace('@', 'x'), count);
    ASSERT_EQ(Bytes(replaced), text);
  }
}

TEST(StringEdit, ReplaceInAnEmptyStringTakesAnEmptyStringAsItsNewText) {
  CQNString text;
  const CQNString nothing;
  EXPECT_EQ(text.Replace("a", nothing), 0);
  EXPECT_EQ(text.Replace("a", text), 0);
  EXPECT_EQ(text.GetLength(), 0);
}

TEST(StringEdit, ReplaceByTheSameCharacterDoesNotUnshare) {
  CQNString text("abc");
  CQNString copy(text);
  EXPECT_EQ(text.Replace('a', 'a'), 0);
  EXPECT_EQ(Chars(text), Chars(copy));
}

TEST(StringEdit, ReplaceReachesCharactersBehindAZero) {
  CQNString text("a\0a", 3);
  EXPECT_EQ(text.Replace('a', 'b'), 2);
  EXPECT_EQ(Bytes(text), "b\0b"s);
}

// --- Replace a text ---------------------------------------------------------------------------

TEST(StringEdit, ReplacesAText) {
  struct {
    const char* text;
    const char* old_text;
    const char* new_text;
    int count;
    const char* result;
  } const cases[] = {
      {"aaaa", "aa", "b", 2, "bb"},
      {"aaaaa", "aa", "b", 2, "bba"},
      {"banana", "a", "", 3, "bnn"},
      {"banana", "a", nullptr, 3, "bnn"},
      {"banana", "an", "xyz", 2, "bxyzxyza"},
      {"banana", "an", "xy", 2, "bxyxya"},
      {"banana", "banana", "", 1, ""},
      {"banana", "x", "y", 0, "banana"},
      {"banana", "", "y", 0, "banana"},
      {"banana", nullptr, "y", 0, "banana"},
      {"", "a", "b", 0, ""},
      {"abc", "b", "b", 1, "abc"},
      {"a", "a", "aa", 1, "aa"},  // the inserted text is not searched again
      {"abab", "ab", "aab", 2, "aabaab"},
      {"\xB0\xA1\xB0\xA2", "\xA1\xB0", "x", 0, "\xB0\xA1\xB0\xA2"},
      {TRAIL_LOWER_A "b"
                     "ab",
       "ab", "x", 1, TRAIL_LOWER_A "bx"},
      {TRAIL_BACKSLASH "\\", "\\", "\\\\", 1, TRAIL_BACKSLASH "\\\\"},
      {ZHONG WEN ZHONG, ZHONG, "zh", 2, "zh" WEN "zh"},
      {ZHONG "a", "a", WEN, 1, ZHONG WEN},
  };
  for (const auto& c : cases) {
    CQNString text(c.text);
    EXPECT_EQ(text.Replace(c.old_text, c.new_text), c.count) << c.text;
    EXPECT_EQ(Bytes(text), c.result) << c.text;
    EXPECT_STREQ(Chars(text), c.result) << c.text;
  }
}

TEST(StringEdit, ReplaceTextGoesOnBehindZeros) {
  CQNString text("a\0a\0\0ba", 7);
  EXPECT_EQ(text.Replace("a", "xy"), 3);
  EXPECT_EQ(Bytes(text), "xy\0xy\0\0bxy"s);
  EXPECT_EQ(text.Replace("xy", ""), 3);
  EXPECT_EQ(Bytes(text), "\0\0\0b"s);
}

TEST(StringEdit, ReplaceTextWorksInPlaceWhenTheBufferIsLargeEnough) {
  CQNString text("banana");
  const char* before = text;
  text.Replace("a", "abc");
  EXPECT_EQ(Chars(text), before);
  EXPECT_EQ(Bytes(text), "babcnabcnabc");
  text.Replace("abc", "");
  EXPECT_EQ(Chars(text), before);
  EXPECT_EQ(Bytes(text), "bnn");
}

TEST(StringEdit, ReplaceTextAllocatesTheNewLengthWhenTheBufferIsTooSmallOrShared) {
  CQNString grown('a', 600);
  EXPECT_EQ(grown.Replace("a", "bc"), 600);
  EXPECT_EQ(grown.GetAllocLength(), 1200);
  CQNString shared('a', 1200);
  CQNString copy(shared);
  EXPECT_EQ(shared.Replace("aa", "b"), 600);
  EXPECT_EQ(shared.GetAllocLength(), 600);
  EXPECT_EQ(Bytes(shared), std::string(600, 'b'));
  EXPECT_EQ(Bytes(copy), std::string(1200, 'a'));
}

TEST(StringEdit, ReplaceWithoutAHitDoesNotUnshare) {
  CQNString text("abc");
  CQNString copy(text);
  text.Replace("x", "y");
  EXPECT_EQ(Chars(text), Chars(copy));
}

TEST(StringEdit, ReplaceTakesItsOwnText) {
  CQNString text("abcab");
  EXPECT_EQ(text.Replace(Chars(text) + 3, "x"), 2);
  EXPECT_EQ(Bytes(text), "xcx");
  CQNString other("a-");
  EXPECT_EQ(other.Replace("-", Chars(other)), 1);
  EXPECT_EQ(Bytes(other), "aa-");
}

// --- Remove -----------------------------------------------------------------------------------

TEST(StringEdit, RemovesACharacter) {
  struct {
    const char* text;
    char ch;
    int removed;
    const char* result;
  } const cases[] = {
      {"banana", 'a', 3, "bnn"},
      {"banana", 'x', 0, "banana"},
      {"aaa", 'a', 3, ""},
      {"", 'a', 0, ""},
      {TRAIL_BAR "x", '|', 0, TRAIL_BAR "x"},
      {ZHONG "b", '\xD6', 2, "b"},  // the whole character goes by its first byte
  };
  for (const auto& c : cases) {
    CQNString text(c.text);
    const int old_length = text.GetLength();
    EXPECT_EQ(text.Remove(c.ch), c.removed) << c.text;
    EXPECT_EQ(Bytes(text), c.result) << c.text;
    EXPECT_EQ(text.GetLength(), old_length - c.removed);
  }
}

// Deliberately kept: a kept character contributes only its first byte, and the destination moves
// on by one character as judged there, so that the second byte at the destination stays.
TEST(StringEdit, RemoveLeavesSecondBytesWhereTheyStood) {
  struct {
    const char* text;
    char ch;
    int removed;
    const char* result;
  } const cases[] = {
      {"a" ZHONG "b", 'a', 1,
       "\xD6\xD6"
       "b"},
      {"aa" ZHONG, 'a', 2,
       "\xD6"
       "a"},
      {ZHONG "b" WEN, 'b', 1, ZHONG "\xCE\xCE"},
      {"a" ZHONG WEN, 'a', 1, "\xD6\xD6\xCE\xCE"},
      {ZHONG WEN, 'a', 0, ZHONG WEN},
  };
  for (const auto& c : cases) {
    CQNString text(c.text);
    EXPECT_EQ(text.Remove(c.ch), c.removed) << c.text;
    EXPECT_EQ(Bytes(text), c.result) << c.text;
  }
}

// --- SetAt ------------------------------------------------------------------------------------

TEST(StringEdit, SetAtWritesOneByte) {
  CQNString text("abc");
  text.SetAt(1, 'x');
  EXPECT_EQ(Bytes(text), "axc");
  text.SetAt(2, '\0');
  EXPECT_EQ(Bytes(text), "ax\0"s);
}

TEST(StringEdit, SetAtOutsideTheTextIsIgnored) {
  CQNString text("abc");
  for (int index : {-1, 3, 4, INT_MIN, INT_MAX}) text.SetAt(index, 'x');
  EXPECT_EQ(Bytes(text), "abc");
  EXPECT_STREQ(Chars(text), "abc");
  CQNString empty;
  empty.SetAt(0, 'x');
  EXPECT_EQ(Bytes(CQNString()), "");
}

// --- hostile text -----------------------------------------------------------------------------

// A first byte without its second, at the very end of a heap buffer: nothing behind the terminator
// may be read or written.
TEST(StringEdit, ALoneFirstByteAtTheEndIsHarmless) {
  const CQNString source = CQNString('a', 599) + '\xB0';
  using Edit = void (*)(CQNString&);
  const Edit edits[] = {
      [](CQNString& s) { s.Replace('x', 'y'); },  [](CQNString& s) { s.Replace('a', '\xB0'); },
      [](CQNString& s) { s.Replace("x", "y"); },  [](CQNString& s) { s.Replace("\xB0", "y"); },
      [](CQNString& s) { s.Remove('x'); },        [](CQNString& s) { s.Remove('a'); },
      [](CQNString& s) { s.TrimLeft('a'); },      [](CQNString& s) { s.TrimRight('x'); },
      [](CQNString& s) { s.TrimRight('\xB0'); },  [](CQNString& s) { s.TrimLeft("a\xB0"); },
      [](CQNString& s) { s.TrimRight("a\xB0"); }, [](CQNString& s) { s.Trim(); },
      [](CQNString& s) { s.MakeUpper(); },        [](CQNString& s) { s.MakeLower(); },
      [](CQNString& s) { s.MakeReverse(); },      [](CQNString& s) { s.CharToOemA(); },
      [](CQNString& s) { s.OemToCharA(); },
  };
  for (const Edit edit : edits) {
    CQNString text(source, source.GetLength());
    edit(text);
    EXPECT_LE(text.GetLength(), 600);
    EXPECT_EQ(Chars(text)[text.GetLength()], '\0');
  }
}

}  // namespace
