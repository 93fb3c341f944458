// SPDX-License-Identifier: MIT
// Construction, assignment, concatenation and observers of strings.
#include <quarnfc/qn_string.h>

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <utility>

#include "tests/core/text/text.h"

namespace {

using text_test::Bytes;
using text_test::Chars;
using namespace std::string_literals;

TEST(String, IsOnePointerWide) { EXPECT_EQ(sizeof(CQNString), sizeof(void*)); }

// --- construction -----------------------------------------------------------------------------

TEST(String, DefaultConstructedIsEmpty) {
  CQNString text;
  EXPECT_EQ(Bytes(text), "");
  EXPECT_EQ(text.GetLength(), 0);
  EXPECT_EQ(text.GetAllocLength(), 0);
  EXPECT_NE(text.IsEmpty(), 0);
  EXPECT_STREQ(Chars(text), "");
}

TEST(String, CopyConstructedSharesTheBuffer) {
  CQNString source("abc");
  CQNString copy(source);
  EXPECT_EQ(Chars(copy), Chars(source));
  EXPECT_EQ(Bytes(copy), "abc");
}

TEST(String, ConstructsFromARepeatedCharacter) {
  EXPECT_EQ(Bytes(CQNString('x', 3)), "xxx");
  EXPECT_EQ(Bytes(CQNString('x', 1)), "x");
  EXPECT_EQ(Bytes(CQNString('\0', 2)), "\0\0"s);
  EXPECT_EQ(Bytes(CQNString('x', 700)), std::string(700, 'x'));
  for (int count : {0, -1, INT_MIN}) EXPECT_EQ(Bytes(CQNString('x', count)), "") << count;
}

TEST(String, ConstructsFromZeroTerminatedText) {
  EXPECT_EQ(Bytes(CQNString("abc")), "abc");
  EXPECT_EQ(Bytes(CQNString("")), "");
  EXPECT_EQ(Bytes(CQNString(static_cast<const char*>(nullptr))), "");
  EXPECT_EQ(Bytes(CQNString(TRAIL_BACKSLASH)), TRAIL_BACKSLASH);
}

TEST(String, ConstructsFromUnsignedBytes) {
  const unsigned char bytes[] = {0xD6, 0xD0, 'a', 0};
  EXPECT_EQ(Bytes(CQNString(bytes)), ZHONG "a");
  EXPECT_EQ(Bytes(CQNString(reinterpret_cast<const unsigned char*>(""))), "");
  EXPECT_EQ(Bytes(CQNString(static_cast<const unsigned char*>(nullptr))), "");
}

TEST(String, ConstructsFromCountedTextWithEmbeddedZeros) {
  EXPECT_EQ(Bytes(CQNString("abcdef", 3)), "abc");
  EXPECT_EQ(Bytes(CQNString("a\0b\0", 4)), "a\0b\0"s);
  EXPECT_STREQ(Chars(CQNString("abcdef", 3)), "abc");
  EXPECT_EQ(Bytes(CQNString("abc", 0)), "");
}

TEST(String, CountedConstructionFromNothingIsEmpty) {
  EXPECT_EQ(Bytes(CQNString("abc", -1)), "");
  EXPECT_EQ(Bytes(CQNString(static_cast<const char*>(nullptr), 3)), "");
}

// --- observers --------------------------------------------------------------------------------

TEST(String, IndexReadsTheByte) {
  const CQNString text("a" ZHONG "z");
  EXPECT_EQ(text[0], 'a');
  EXPECT_EQ(text[1], '\xD6');
  EXPECT_EQ(text[2], '\xD0');
  EXPECT_EQ(text[3], 'z');
  EXPECT_EQ(text[4], '\0');
}

TEST(String, LengthCountsBytes) {
  EXPECT_EQ(CQNString(ZHONG WEN "a").GetLength(), 5);
  EXPECT_EQ(CQNString("a\0b", 3).GetLength(), 3);
  EXPECT_EQ(CQNString("a").IsEmpty(), 0);
  EXPECT_EQ(CQNString("\0", 1).IsEmpty(), 0);
}

// --- assignment -------------------------------------------------------------------------------

TEST(String, AssignmentSharesTheBuffer) {
  CQNString source("abc");
  CQNString target("something else");
  const CQNString& result = (target = source);
  EXPECT_EQ(&result, &target);
  EXPECT_EQ(Chars(target), Chars(source));
}

TEST(String, AssignmentToAnEmptyStringShares) {
  CQNString source("abc");
  CQNString target;
  target = source;
  EXPECT_EQ(Chars(target), Chars(source));
}

TEST(String, SelfAssignmentAndAssignmentOfASharedBufferChangeNothing) {
  CQNString text("abc");
  CQNString copy(text);
  const char* before = text;
  CQNString& alias = text;
  text = alias;
  text = copy;
  EXPECT_EQ(Chars(text), before);
  EXPECT_EQ(Chars(copy), before);
  EXPECT_EQ(Bytes(text), "abc");
}

TEST(String, AssigningAnEmptyStringKeepsTheBuffer) {
  CQNString text("abc");
  const char* before = text;
  text = CQNString();
  EXPECT_EQ(Bytes(text), "");
  EXPECT_EQ(text.GetAllocLength(), 64);
  EXPECT_EQ(Chars(text), before);
}

TEST(String, AssigningAnEmptyStringToASharedOneReleasesTheBuffer) {
  CQNString text("abc");
  CQNString copy(text);
  text = CQNString();
  EXPECT_EQ(Bytes(text), "");
  EXPECT_EQ(text.GetAllocLength(), 0);
  EXPECT_EQ(Bytes(copy), "abc");
}

TEST(String, AssigningTextCopiesIntoTheBufferWhenItFits) {
  CQNString text("abc");
  const char* before = text;
  text = "defgh";
  EXPECT_EQ(Bytes(text), "defgh");
  EXPECT_EQ(Chars(text), before);
}

TEST(String, AssigningTextToASharedStringLeavesTheOtherAlone) {
  CQNString text("abc");
  CQNString copy(text);
  text = "xyz";
  EXPECT_EQ(Bytes(text), "xyz");
  EXPECT_EQ(Bytes(copy), "abc");
}

TEST(String, AssigningEmptyOrNullTextKeepsTheBuffer) {
  for (const char* empty : {"", static_cast<const char*>(nullptr)}) {
    CQNString text("abc");
    text = empty;
    EXPECT_EQ(Bytes(text), "");
    EXPECT_EQ(text.GetAllocLength(), 64);
  }
}

TEST(String, AssigningPartOfItselfWorks) {
  CQNString text("abcdef");
  text = Chars(text) + 2;
  EXPECT_EQ(Bytes(text), "cdef");
  CQNString shared("abcdef");
  CQNString copy(shared);
  shared = Chars(shared) + 3;
  EXPECT_EQ(Bytes(shared), "def");
  EXPECT_EQ(Bytes(copy), "abcdef");
}

TEST(String, AssigningACharacterWritesInPlace) {
  CQNString text('x', 600);
  const char* before = text;
  const CQNString& result = (text = 'y');
  EXPECT_EQ(&result, &text);
  EXPECT_EQ(Bytes(text), "y");
  EXPECT_EQ(text.GetAllocLength(), 600);
  EXPECT_EQ(Chars(text), before);
}

TEST(String, AssigningACharacterToASharedOrEmptyStringTakesASmallBlock) {
  CQNString text('x', 600);
  CQNString copy(text);
  text = 'y';
  EXPECT_EQ(Bytes(text), "y");
  EXPECT_EQ(text.GetAllocLength(), 64);
  EXPECT_EQ(Bytes(copy), std::string(600, 'x'));
  CQNString empty;
  empty = 'y';
  EXPECT_EQ(Bytes(empty), "y");
  EXPECT_EQ(empty.GetAllocLength(), 64);
}

TEST(String, AssigningAZeroCharacterGivesLengthOne) {
  CQNString text("abc");
  text = '\0';
  EXPECT_EQ(Bytes(text), "\0"s);
}

// --- concatenation ----------------------------------------------------------------------------

TEST(String, PlusJoinsInEveryForm) {
  const CQNString ab("ab");
  const CQNString cd("cd");
  EXPECT_EQ(Bytes(ab + cd), "abcd");
  EXPECT_EQ(Bytes(ab + "cd"), "abcd");
  EXPECT_EQ(Bytes("ab" + cd), "abcd");
  EXPECT_EQ(Bytes(ab + 'c'), "abc");
  EXPECT_EQ(Bytes('b' + cd), "bcd");
  EXPECT_EQ(Bytes(ab), "ab");
  EXPECT_EQ(Bytes(cd), "cd");
}

TEST(String, PlusKeepsEmbeddedZeros) {
  EXPECT_EQ(Bytes(CQNString("a\0b", 3) + CQNString("\0c", 2)), "a\0b\0c"s);
  EXPECT_EQ(Bytes(CQNString("a") + '\0'), "a\0"s);
}

TEST(String, PlusWithNothingIsTheOtherPart) {
  const char* null = nullptr;
  EXPECT_EQ(Bytes(CQNString("ab") + null), "ab");
  EXPECT_EQ(Bytes(null + CQNString("ab")), "ab");
  EXPECT_EQ(Bytes(CQNString() + ""), "");
  EXPECT_EQ((CQNString() + CQNString()).GetAllocLength(), 0);
}

TEST(String, PlusGivesExactlyTheJoinedLength) {
  const CQNString left('a', 400);
  const CQNString right('b', 300);
  const CQNString joined = left + right;
  EXPECT_EQ(joined.GetLength(), 700);
  EXPECT_EQ(joined.GetAllocLength(), 700);
  EXPECT_EQ(Bytes(joined), std::string(400, 'a') + std::string(300, 'b'));
}

TEST(String, PlusEqualsAppendsInEveryForm) {
  CQNString text("a");
  EXPECT_EQ(&(text += "bc"), &text);
  EXPECT_EQ(&(text += 'd'), &text);
  EXPECT_EQ(&(text += CQNString("e\0f", 3)), &text);
  EXPECT_EQ(Bytes(text), "abcde\0f"s);
  text += '\0';
  EXPECT_EQ(Bytes(text), "abcde\0f\0"s);
}

TEST(String, PlusEqualsNothingChangesNothing) {
  CQNString text("abc");
  CQNString copy(text);
  text += static_cast<const char*>(nullptr);
  text += "";
  text += CQNString();
  EXPECT_EQ(Chars(text), Chars(copy));
}

TEST(String, PlusEqualsItselfDoublesTheText) {
  CQNString text("abc");
  for (int i = 0; i < 9; ++i) text += text;
  std::string expected;
  for (int i = 0; i < 512; ++i) expected += "abc";
  EXPECT_EQ(Bytes(text), expected);
}

TEST(String, PlusEqualsPartOfItselfWorks) {
  CQNString text(CQNString('a', 62) + "bc");
  text += Chars(text) + 62;
  EXPECT_EQ(Bytes(text), std::string(62, 'a') + "bcbc");
  CQNString large(CQNString('a', 600) + "bc");
  large += Chars(large) + 600;
  EXPECT_EQ(Bytes(large), std::string(600, 'a') + "bcbc");
}

TEST(String, PlusEqualsOnASharedStringLeavesTheOtherAlone) {
  CQNString text("abc");
  CQNString copy(text);
  text += "def";
  EXPECT_EQ(Bytes(text), "abcdef");
  EXPECT_EQ(Bytes(copy), "abc");
}

// --- copies for the caller --------------------------------------------------------------------

TEST(String, AllocAnsiStringGivesACopyTheCallerReleases) {
  CQNString text("abc" ZHONG);
  EXPECT_EQ(text_test::TakeText(text.AllocANSIString()), "abc" ZHONG);
  EXPECT_EQ(text_test::TakeText(CQNString().AllocANSIString()), "");
}

TEST(String, AllocAnsiStringCopiesEmbeddedZeros) {
  char* copy = CQNString("a\0b", 3).AllocANSIString();
  EXPECT_EQ(std::string(copy, 4), "a\0b\0"s);
  qnFreeMem(copy);
}

}  // namespace
