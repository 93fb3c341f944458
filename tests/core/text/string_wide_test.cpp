// SPDX-License-Identifier: MIT
// Strings made from UTF-16 text.
#include <quarnfc/qn_string.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/core/text/text.h"

namespace {

using text_test::Bytes;
using text_test::Chars;
using namespace std::string_literals;

// Wide text of count times the same unit.
class Repeated {
 public:
  Repeated(wchar_t unit, int count) : units_(static_cast<std::size_t>(count) + 1, 0) {
    for (int i = 0; i < count; ++i) units_[static_cast<std::size_t>(i)] = unit;
  }
  operator const wchar_t*() const { return reinterpret_cast<const wchar_t*>(units_.data()); }

 private:
  std::u16string units_;
};

TEST(StringWide, ConvertsToTheCodePage) {
  struct {
    const wchar_t* wide;
    const char* bytes;
  } const cases[] = {
      {L"", ""},
      {L"abc", "abc"},
      {L"a\x4E2D\x6587z", "a" ZHONG WEN "z"},
      {L"\x661E\x6650", TRAIL_BACKSLASH TRAIL_BAR},
      {L"\x3000", WIDE_BLANK},
      {L"\x20AC", "\x80"},
      {L"\x0E01", "?"},             // Thai, not in the code page
      {L"a\xD83D\xDE00z", "a??z"},  // one default character for each half of a surrogate pair
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Bytes(CQNString(c.wide)), c.bytes);
    CQNString assigned("something");
    EXPECT_EQ(&(assigned = c.wide), &assigned);
    EXPECT_EQ(Bytes(assigned), c.bytes);
    EXPECT_STREQ(Chars(assigned), c.bytes);
  }
}

TEST(StringWide, NullIsTheEmptyText) {
  const wchar_t* null = nullptr;
  EXPECT_EQ(Bytes(CQNString(null)), "");
  EXPECT_EQ(Bytes(CQNString(null, 3)), "");
  CQNString text("abc");
  text = null;
  EXPECT_EQ(Bytes(text), "");
}

TEST(StringWide, CountedFormConvertsExactlyThatManyUnits) {
  EXPECT_EQ(Bytes(CQNString(L"abcdef", 3)), "abc");
  EXPECT_EQ(Bytes(CQNString(L"a\0\x4E2D\0", 4)), "a\0" ZHONG "\0"s);
  EXPECT_EQ(Bytes(CQNString(L"abc", 0)), "");
  EXPECT_EQ(Bytes(CQNString(L"abc", -1)), "");
}

TEST(StringWide, AllocatesTwoBytesForEachUnit) {
  EXPECT_EQ(CQNString(L"").GetAllocLength(), 0);
  EXPECT_EQ(CQNString(L"abc").GetAllocLength(), 64);
  EXPECT_EQ(CQNString(Repeated(L'x', 32)).GetAllocLength(), 64);
  EXPECT_EQ(CQNString(Repeated(L'x', 33)).GetAllocLength(), 128);
  EXPECT_EQ(CQNString(Repeated(L'x', 300)).GetAllocLength(), 600);
  EXPECT_EQ(CQNString(Repeated(L'x', 300)).GetLength(), 300);
  EXPECT_EQ(CQNString(Repeated(L'x', 300), 290).GetAllocLength(), 580);
  EXPECT_EQ(CQNString(Repeated(L'\x4E2D', 300)).GetLength(), 600);
}

TEST(StringWide, AssignmentReusesABufferTwiceAsLongAsTheWideText) {
  CQNString text("abc");
  const char* before = text;
  text = Repeated(L'x', 32);
  EXPECT_EQ(Chars(text), before);
  text = Repeated(L'x', 33);
  EXPECT_EQ(text.GetAllocLength(), 128);
  EXPECT_EQ(Bytes(text), std::string(33, 'x'));
  text = L"";
  EXPECT_EQ(Bytes(text), "");
  EXPECT_EQ(text.GetAllocLength(), 128);
}

TEST(StringWide, AssignmentToASharedStringTakesABufferOfTheWideText) {
  CQNString text('x', 600);
  CQNString copy(text);
  text = L"abc";
  EXPECT_EQ(Bytes(text), "abc");
  EXPECT_EQ(text.GetAllocLength(), 64);
  EXPECT_EQ(Bytes(copy), std::string(600, 'x'));
}

TEST(StringWide, AssignmentToALockedStringKeepsItsBuffer) {
  CQNString text("abc");
  char* locked = text.LockBuffer();
  text = L"x\x4E2D";
  EXPECT_EQ(Chars(text), locked);
  EXPECT_EQ(Bytes(text), "x" ZHONG);
}

}  // namespace
