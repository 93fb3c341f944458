// SPDX-License-Identifier: MIT
// The buffers behind strings: their layout and classes, sharing, locks and direct access.
#include <quarnfc/fixed_alloc.h>
#include <quarnfc/qn_string.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <random>
#include <string>
#include <utility>

#include "tests/core/text/text.h"
#include "tests/support/next_block.h"

namespace {

using quarnfc_test::NextBlock;
using text_test::Bytes;
using text_test::Chars;
using namespace std::string_literals;

// The header in front of the characters: three signed 32-bit words.
struct Header {
  int count;
  int length;
  int alloc_length;
};

Header HeaderOf(const CQNString& text) {
  Header header;
  std::memcpy(&header, Chars(text) - sizeof header, sizeof header);
  return header;
}

// --- layout and classes -----------------------------------------------------------------------

TEST(StringBuffer, StringPointsToACellThatPointsToTheCharacters) {
  CQNString text("abc");
  char** cell;
  std::memcpy(&cell, &text, sizeof cell);
  EXPECT_EQ(*cell, Chars(text));
  text += std::string(100, 'x').c_str();
  char** later;
  std::memcpy(&later, &text, sizeof later);
  EXPECT_EQ(later, cell);
  EXPECT_EQ(*later, Chars(text));
}

TEST(StringBuffer, HeaderHoldsCountLengthAndAllocatedLength) {
  CQNString text("abc");
  EXPECT_EQ(HeaderOf(text).count, 1);
  EXPECT_EQ(HeaderOf(text).length, 3);
  EXPECT_EQ(HeaderOf(text).alloc_length, 64);
  {
    CQNString copy(text);
    EXPECT_EQ(HeaderOf(text).count, 2);
    CQNString third;
    third = copy;
    EXPECT_EQ(HeaderOf(text).count, 3);
  }
  EXPECT_EQ(HeaderOf(text).count, 1);
}

TEST(StringBuffer, EmptyStringsPointAtOneSharedBufferWhoseCountNeverChanges) {
  CQNString first;
  CQNString second("");
  CQNString third(first);
  CQNString fourth;
  fourth = third;
  EXPECT_EQ(Chars(second), Chars(first));
  EXPECT_EQ(Chars(third), Chars(first));
  EXPECT_EQ(Chars(fourth), Chars(first));
  EXPECT_EQ(HeaderOf(first).count, -1);
  EXPECT_EQ(HeaderOf(first).length, 0);
  EXPECT_EQ(HeaderOf(first).alloc_length, 0);
}

TEST(StringBuffer, AllocatedLengthFollowsTheClassOfTheLength) {
  const std::pair<int, int> cases[] = {
      {0, 0},     {1, 64},    {64, 64},   {65, 128},  {128, 128}, {129, 256},
      {256, 256}, {257, 512}, {512, 512}, {513, 513}, {600, 600}, {100000, 100000},
  };
  for (const auto& [length, allocated] : cases) {
    CQNString text('x', length);
    EXPECT_EQ(text.GetAllocLength(), allocated) << length;
    EXPECT_EQ(text.GetLength(), length);
    EXPECT_EQ(Chars(text)[length], '\0');
    EXPECT_EQ(CQNString(std::string(length, 'y').c_str()).GetAllocLength(), allocated);
    EXPECT_EQ(CQNString(std::string(length, 'y').data(), length).GetAllocLength(), allocated);
  }
}

TEST(StringBuffer, ShortTextsLiveInPoolBlocks) {
  const std::pair<int, CQNFixedAlloc*> cases[] = {
      {1, _TempData64B()},    {64, _TempData64B()},   {65, _TempData128B()},
      {128, _TempData128B()}, {129, _TempData256B()}, {256, _TempData256B()},
      {257, _TempData512B()}, {512, _TempData512B()},
  };
  for (const auto& [length, pool] : cases) {
    const auto* next = static_cast<const char*>(NextBlock(pool));
    {
      CQNString text('x', length);
      EXPECT_EQ(Chars(text), next + sizeof(Header)) << length;
      EXPECT_NE(NextBlock(pool), next);
    }
    EXPECT_EQ(NextBlock(pool), next) << length;
  }
}

TEST(StringBuffer, GrowsThroughTheClassesByAppending) {
  CQNString text;
  EXPECT_EQ(text.GetAllocLength(), 0);
  text = "a";
  EXPECT_EQ(text.GetAllocLength(), 64);
  const char* before = text;
  while (text.GetLength() < 64) text += 'a';
  EXPECT_EQ(Chars(text), before);
  text += 'a';
  EXPECT_EQ(text.GetAllocLength(), 128);
  while (text.GetLength() < 129) text += 'a';
  EXPECT_EQ(text.GetAllocLength(), 256);
  while (text.GetLength() < 257) text += 'a';
  EXPECT_EQ(text.GetAllocLength(), 512);
  EXPECT_EQ(Bytes(text), std::string(257, 'a'));
}

// Deliberately no growth factor above 512 bytes.
TEST(StringBuffer, AppendsAbove512BytesReallocateToTheExactLength) {
  CQNString text('x', 600);
  for (int length = 601; length < 620; ++length) {
    text += 'x';
    EXPECT_EQ(text.GetAllocLength(), length);
  }
  text += "abc";
  EXPECT_EQ(text.GetAllocLength(), 622);
}

// --- copy on write ----------------------------------------------------------------------------

TEST(StringBuffer, EveryChangeUnsharesFirst) {
  using Change = void (*)(CQNString&);
  const Change changes[] = {
      [](CQNString& s) { s += "x"; },
      [](CQNString& s) { s += 'x'; },
      [](CQNString& s) { s = "x"; },
      [](CQNString& s) { s = 'x'; },
      [](CQNString& s) { s = L"x"; },
      [](CQNString& s) { s.SetAt(1, 'x'); },
      [](CQNString& s) { s.Insert(1, 'x'); },
      [](CQNString& s) { s.Insert(1, "x"); },
      [](CQNString& s) { s.Delete(1, 1); },
      [](CQNString& s) { s.Replace('b', 'x'); },
      [](CQNString& s) { s.Replace("b", "x"); },
      [](CQNString& s) { s.Replace("b", "xyz"); },
      [](CQNString& s) { s.Remove('b'); },
      [](CQNString& s) { s.TrimLeft(); },
      [](CQNString& s) { s.TrimLeft(' '); },
      [](CQNString& s) { s.TrimLeft(" "); },
      [](CQNString& s) { s.TrimRight(); },
      [](CQNString& s) { s.TrimRight(' '); },
      [](CQNString& s) { s.TrimRight(" "); },
      [](CQNString& s) { s.Trim(); },
      [](CQNString& s) { s.MakeUpper(); },
      [](CQNString& s) { s.MakeReverse(); },
      [](CQNString& s) { s.Format("x"); },
      [](CQNString& s) { s.GetBuffer(0)[1] = 'x'; },
      [](CQNString& s) { s.ReleaseBuffer(1); },
      [](CQNString& s) { s.GetBufferSetLength(2)[0] = 'x'; },
      [](CQNString& s) { s.LockBuffer()[1] = 'x'; },
      [](CQNString& s) { s.Empty(); },
  };
  for (std::size_t i = 0; i < std::size(changes); ++i) {
    CQNString text(" abC ");
    CQNString copy(text);
    changes[i](text);
    EXPECT_EQ(Bytes(copy), " abC ") << i;
    EXPECT_NE(Bytes(text), " abC ") << i;
    EXPECT_NE(Chars(text), Chars(copy)) << i;
    EXPECT_EQ(HeaderOf(copy).count, 1) << i;
  }
}

TEST(StringBuffer, MakeLowerUnsharesToo) {
  CQNString text("ABC");
  CQNString copy(text);
  text.MakeLower();
  EXPECT_EQ(Bytes(text), "abc");
  EXPECT_EQ(Bytes(copy), "ABC");
}

// --- direct access ----------------------------------------------------------------------------

TEST(StringBuffer, GetBufferReturnsTheCurrentBufferWhenItIsLargeEnough) {
  CQNString text("abc");
  for (int minimum : {-1, 0, 3, 64}) EXPECT_EQ(text.GetBuffer(minimum), Chars(text)) << minimum;
}

TEST(StringBuffer, GetBufferGrowsAndKeepsTheText) {
  CQNString text("abc");
  char* buffer = text.GetBuffer(100);
  EXPECT_EQ(text.GetAllocLength(), 128);
  EXPECT_STREQ(buffer, "abc");
  EXPECT_EQ(Bytes(text), "abc");
  buffer = text.GetBuffer(700);
  EXPECT_EQ(buffer, Chars(text));
  EXPECT_EQ(text.GetAllocLength(), 700);
  EXPECT_EQ(Bytes(text), "abc");
}

TEST(StringBuffer, GetBufferOfASharedStringIsAtLeastAsLongAsTheText) {
  CQNString text('x', 600);
  CQNString copy(text);
  text.GetBuffer(5);
  EXPECT_EQ(text.GetAllocLength(), 600);
  EXPECT_EQ(Bytes(text), std::string(600, 'x'));
  EXPECT_NE(Chars(text), Chars(copy));
}

TEST(StringBuffer, ReleaseBufferTakesTheLengthOfTheText) {
  CQNString text;
  std::strcpy(text.GetBuffer(10), "xy");
  text.ReleaseBuffer();
  EXPECT_EQ(text.GetLength(), 2);
  EXPECT_EQ(Bytes(text), "xy");
}

TEST(StringBuffer, ReleaseBufferTakesAGivenLength) {
  CQNString text("abcdef");
  text.GetBuffer(10);
  text.ReleaseBuffer(4);
  EXPECT_EQ(Bytes(text), "abcd");
  EXPECT_STREQ(Chars(text), "abcd");
  text.ReleaseBuffer(0);
  EXPECT_EQ(Bytes(text), "");
  EXPECT_EQ(text.GetAllocLength(), 64);
}

TEST(StringBuffer, ReleaseBufferKeepsTheLengthWithinTheBuffer) {
  CQNString text;
  std::memset(text.GetBuffer(64), 'x', 65);  // no terminator left
  text.ReleaseBuffer();
  EXPECT_EQ(Bytes(text), std::string(64, 'x'));
  text.ReleaseBuffer(100000);
  EXPECT_EQ(text.GetLength(), 64);
  text.ReleaseBuffer(-7);
  EXPECT_GE(text.GetLength(), 0);
  EXPECT_LE(text.GetLength(), 64);
  CQNString empty;
  empty.ReleaseBuffer(5);
  EXPECT_EQ(Bytes(empty), "");
  EXPECT_EQ(Bytes(CQNString()), "");
}

TEST(StringBuffer, GetBufferSetLengthSetsTheLengthAndTheTerminator) {
  CQNString text("abcdef");
  char* buffer = text.GetBufferSetLength(3);
  EXPECT_EQ(Bytes(text), "abc");
  EXPECT_EQ(buffer[3], '\0');
  buffer = text.GetBufferSetLength(100);
  EXPECT_EQ(text.GetLength(), 100);
  EXPECT_EQ(text.GetAllocLength(), 128);
  EXPECT_EQ(buffer[100], '\0');
  EXPECT_EQ(std::string(buffer, 3), "abc");
  std::memset(buffer, 'z', 100);
  EXPECT_EQ(Bytes(text), std::string(100, 'z'));
}

TEST(StringBuffer, GetBufferSetLengthOfNothingIsEmpty) {
  CQNString text;
  EXPECT_STREQ(text.GetBufferSetLength(0), "");
  CQNString other("abc");
  other.GetBufferSetLength(-5);
  EXPECT_EQ(Bytes(other), "");
}

TEST(StringBuffer, FreeExtraMovesToTheClassOfTheLength) {
  CQNString text('x', 600);
  text.Delete(10, 590);
  EXPECT_EQ(text.GetAllocLength(), 600);
  text.FreeExtra();
  EXPECT_EQ(text.GetAllocLength(), 64);
  EXPECT_EQ(Bytes(text), std::string(10, 'x'));
  text.FreeExtra();
  EXPECT_EQ(text.GetAllocLength(), 64);
  EXPECT_EQ(Bytes(text), std::string(10, 'x'));
}

TEST(StringBuffer, FreeExtraShrinksLargeBuffersToTheExactLength) {
  CQNString text('x', 2000);
  text.Delete(700, 1300);
  text.FreeExtra();
  EXPECT_EQ(text.GetAllocLength(), 700);
  const char* before = text;
  text.FreeExtra();
  EXPECT_EQ(Chars(text), before);
}

TEST(StringBuffer, FreeExtraEmptiesAZeroLengthBuffer) {
  CQNString text("abc");
  text = "";
  EXPECT_EQ(text.GetAllocLength(), 64);
  text.FreeExtra();
  EXPECT_EQ(text.GetAllocLength(), 0);
  EXPECT_EQ(Chars(text), Chars(CQNString()));
}

// --- locks ------------------------------------------------------------------------------------

TEST(StringBuffer, ALockedBufferIsNeverShared) {
  CQNString text("abc");
  char* locked = text.LockBuffer();
  EXPECT_EQ(locked, Chars(text));
  EXPECT_EQ(HeaderOf(text).count, -1);
  CQNString copy(text);
  EXPECT_NE(Chars(copy), locked);
  CQNString assigned("other");
  assigned = text;
  EXPECT_NE(Chars(assigned), locked);
  text += "x";
  EXPECT_EQ(Bytes(copy), "abc");
  EXPECT_EQ(Bytes(assigned), "abc");
  EXPECT_EQ(Bytes(text), "abcx");
  EXPECT_EQ(Chars(text), locked);
}

TEST(StringBuffer, CopiesShareAgainAfterUnlocking) {
  CQNString text("abc");
  text.LockBuffer();
  text.UnlockBuffer();
  EXPECT_EQ(HeaderOf(text).count, 1);
  CQNString copy(text);
  EXPECT_EQ(Chars(copy), Chars(text));
}

TEST(StringBuffer, UnlockingAStringThatIsNotLockedChangesNothing) {
  CQNString text("abc");
  CQNString copy(text);
  text.UnlockBuffer();
  EXPECT_EQ(HeaderOf(text).count, 2);
  text += "x";
  EXPECT_EQ(Bytes(copy), "abc");
}

TEST(StringBuffer, LockingASharedStringUnsharesIt) {
  CQNString text("abc");
  CQNString copy(text);
  EXPECT_NE(text.LockBuffer(), Chars(copy));
  EXPECT_EQ(HeaderOf(copy).count, 1);
}

TEST(StringBuffer, AssigningToALockedStringCopiesIntoItsBuffer) {
  CQNString text("abc");
  char* locked = text.LockBuffer();
  CQNString source("xyz");
  text = source;
  EXPECT_EQ(Bytes(text), "xyz");
  EXPECT_EQ(Chars(text), locked);
  EXPECT_EQ(HeaderOf(text).count, -1);
  EXPECT_EQ(HeaderOf(source).count, 1);
  text = "plain";
  EXPECT_EQ(Chars(text), locked);
  text = 'c';
  EXPECT_EQ(Chars(text), locked);
  EXPECT_EQ(Bytes(text), "c");
}

TEST(StringBuffer, ATooLongAssignmentReplacesALockedBuffer) {
  CQNString text("abc");
  text.LockBuffer();
  text = CQNString('x', 100);
  EXPECT_EQ(Bytes(text), std::string(100, 'x'));
  EXPECT_EQ(HeaderOf(text).count, 1);
}

TEST(StringBuffer, EmptyingALockedStringKeepsTheBuffer) {
  CQNString text("abc");
  char* locked = text.LockBuffer();
  text.Empty();
  EXPECT_EQ(Bytes(text), "");
  EXPECT_EQ(Chars(text), locked);
  EXPECT_EQ(HeaderOf(text).count, -1);
  EXPECT_EQ(text.GetAllocLength(), 64);
}

TEST(StringBuffer, LongStringsGrowByExactLengthsMostlyWhereTheyLie) {
  CQNString text(std::string(600, 'x').c_str());
  std::string expected(600, 'x');
  const char* place = text;
  int moves = 0;
  for (int i = 0; i < 60'000; ++i) {
    const char byte = static_cast<char>('a' + i % 26);
    text += byte;
    expected += byte;
    ASSERT_EQ(text.GetAllocLength(), text.GetLength());
    moves += static_cast<const char*>(text) != place;
    place = text;
  }
  EXPECT_EQ(Bytes(text), expected);
  EXPECT_LT(moves, 10);
}

TEST(StringBuffer, InsertionsAndReservesGrowLongStringsLikeNewBuffers) {
  std::mt19937 random(1);
  CQNString text;
  std::string expected;
  while (expected.size() < 20'000) {
    const std::string piece(1 + random() % 300, static_cast<char>('a' + random() % 26));
    const std::size_t index = random() % (expected.size() + 1);
    if (random() % 3 == 0) text.GetBuffer(text.GetLength() + static_cast<int>(random() % 100));
    const int room = text.GetAllocLength();
    text.Insert(static_cast<int>(index), piece.c_str());
    expected.insert(index, piece);
    ASSERT_EQ(Bytes(text), expected);
    ASSERT_TRUE(text.GetLength() <= 512 ||
                text.GetAllocLength() == std::max(room, text.GetLength()));
  }
}

TEST(StringBuffer, AppendingToALockedOrSharedLongStringTakesANewBuffer) {
  CQNString shared(std::string(700, 'x').c_str());
  const CQNString other(shared);
  shared += 'y';
  EXPECT_NE(static_cast<const char*>(shared), static_cast<const char*>(other));
  EXPECT_EQ(other.GetAllocLength(), 700);
  CQNString locked(std::string(700, 'x').c_str());
  locked.LockBuffer();
  locked += 'y';
  const CQNString copy(locked);
  EXPECT_EQ(static_cast<const char*>(copy), static_cast<const char*>(locked));
}

TEST(StringBuffer, LockingAnEmptyStringLeavesTheSharedEmptyBufferAlone) {
  CQNString text;
  text.LockBuffer();
  EXPECT_EQ(HeaderOf(CQNString()).count, -1);
  text.UnlockBuffer();
  EXPECT_EQ(HeaderOf(CQNString()).count, -1);
  EXPECT_EQ(Bytes(text), "");
  text = "abc";
  EXPECT_EQ(Bytes(text), "abc");
  EXPECT_EQ(Bytes(CQNString()), "");
}

TEST(StringBuffer, ALockedStringIsReleasedWithItsString) {
  const auto* next = static_cast<const char*>(NextBlock(_TempData64B()));
  {
    CQNString text("abc");
    EXPECT_EQ(text.LockBuffer(), next + sizeof(Header));
  }
  EXPECT_EQ(NextBlock(_TempData64B()), next);
}

// --- Empty ------------------------------------------------------------------------------------

TEST(StringBuffer, EmptyReleasesTheBuffer) {
  CQNString text("abc");
  text.Empty();
  EXPECT_EQ(Bytes(text), "");
  EXPECT_EQ(text.GetAllocLength(), 0);
  EXPECT_EQ(Chars(text), Chars(CQNString()));
}

TEST(StringBuffer, EmptyOnAZeroLengthStringKeepsItsBuffer) {
  CQNString text("abc");
  text = "";
  const char* before = text;
  text.Empty();
  EXPECT_EQ(Chars(text), before);
  EXPECT_EQ(text.GetAllocLength(), 64);
}

TEST(StringBuffer, EmptyOnASharedStringLeavesTheOtherAlone) {
  CQNString text("abc");
  CQNString copy(text);
  text.Empty();
  EXPECT_EQ(Bytes(copy), "abc");
  EXPECT_EQ(HeaderOf(copy).count, 1);
}

}  // namespace
