// SPDX-License-Identifier: MIT
#include <quarnfc/qn_string.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/core/text/text.h"

namespace {

using text_test::Sign;

struct CompareCase {
  const char* left;
  const char* right;
  int order;
};

TEST(StringCompare, OrdersByCharactersOfTheCodePage) {
  const CompareCase cases[] = {
      {"", "", 0},
      {"", "a", -1},
      {"a", "", 1},
      {"abc", "abc", 0},
      {"abc", "abd", -1},
      {"abc", "ab", 1},
      {"ABC", "abc", -1},
      {"Z", "a", -1},
      {ZHONG, ZHONG, 0},
      {ZHONG, WEN, 1},
      {"z", ZHONG, -1},
      {TRAIL_AT, TRAIL_BACKSLASH, -1},
      {TRAIL_BACKSLASH, TRAIL_BAR, -1},
      {TRAIL_UPPER_A, TRAIL_LOWER_A, -1},
      // A single byte is below every double-byte character, even where its byte is above.
      {"\xFF", "\x81\x40", -1},
      {"\x81\x40", "\xFF", 1},
      {"a\xFF", "a" ZHONG, -1},
  };
  for (const CompareCase& c : cases) {
    EXPECT_EQ(Sign(CQNString(c.left).Compare(c.right)), c.order) << c.left << " " << c.right;
  }
}

TEST(StringCompare, LooksAtTheTextUpToItsFirstZero) {
  EXPECT_EQ(CQNString("a\0b", 3).Compare("a"), 0);
  EXPECT_TRUE(CQNString("a\0b", 3) == CQNString("a\0c", 3));
}

TEST(StringCompare, NullComparesLikeTheEmptyText) {
  EXPECT_EQ(CQNString().Compare(nullptr), 0);
  EXPECT_GT(CQNString("a").Compare(nullptr), 0);
  EXPECT_EQ(CQNString().CompareNoCase(nullptr), 0);
  EXPECT_GT(CQNString("a").CompareNoCase(nullptr), 0);
  EXPECT_EQ(CQNString().Collate(nullptr), 0);
  EXPECT_EQ(CQNString().CollateNoCase(nullptr), 0);
}

TEST(StringCompare, NoCaseIgnoresTheCaseOfLetters) {
  const CompareCase cases[] = {
      {"", "", 0},
      {"abc", "ABC", 0},
      {"AbC", "aBd", -1},
      {"a", "B", -1},
      {"B", "a", 1},
      {"a" ZHONG "b", "A" ZHONG "B", 0},
      {"abc", "AB", 1},
      // The second byte of a double-byte character is no letter.
      {TRAIL_UPPER_A, TRAIL_LOWER_A, -1},
      {TRAIL_LOWER_A, TRAIL_UPPER_A, 1},
  };
  for (const CompareCase& c : cases) {
    EXPECT_EQ(Sign(CQNString(c.left).CompareNoCase(c.right)), c.order) << c.left << " " << c.right;
  }
}

TEST(StringCompare, CollatesEqualTextsAsEqual) {
  EXPECT_EQ(CQNString("abc").Collate("abc"), 0);
  EXPECT_EQ(CQNString("a" ZHONG).Collate("a" ZHONG), 0);
  EXPECT_LT(CQNString("abc").Collate("abd"), 0);
  EXPECT_GT(CQNString("abd").Collate("abc"), 0);
  EXPECT_LT(CQNString("a").Collate("ab"), 0);
  EXPECT_NE(CQNString("abc").Collate("ABC"), 0);
}

TEST(StringCompare, CollatesWithoutCase) {
  EXPECT_EQ(CQNString("abc").CollateNoCase("ABC"), 0);
  EXPECT_LT(CQNString("ABC").CollateNoCase("abd"), 0);
  EXPECT_GT(CQNString("abd").CollateNoCase("ABC"), 0);
  EXPECT_NE(CQNString(TRAIL_UPPER_A).CollateNoCase(TRAIL_LOWER_A), 0);
}

// Every operator, in its three forms, against the sign of Compare.
void ExpectOperators(const char* left_text, const char* right_text, int order) {
  const CQNString left(left_text);
  const CQNString right(right_text);
  SCOPED_TRACE(std::string(left_text) + " and " + right_text);
  EXPECT_EQ(left == right, order == 0);
  EXPECT_EQ(left != right, order != 0);
  EXPECT_EQ(left < right, order < 0);
  EXPECT_EQ(left > right, order > 0);
  EXPECT_EQ(left <= right, order <= 0);
  EXPECT_EQ(left >= right, order >= 0);
  EXPECT_EQ(left == right_text, order == 0);
  EXPECT_EQ(left != right_text, order != 0);
  EXPECT_EQ(left < right_text, order < 0);
  EXPECT_EQ(left > right_text, order > 0);
  EXPECT_EQ(left <= right_text, order <= 0);
  EXPECT_EQ(left >= right_text, order >= 0);
  EXPECT_EQ(left_text == right, order == 0);
  EXPECT_EQ(left_text != right, order != 0);
  EXPECT_EQ(left_text < right, order < 0);
  EXPECT_EQ(left_text > right, order > 0);
  EXPECT_EQ(left_text <= right, order <= 0);
  EXPECT_EQ(left_text >= right, order >= 0);
}

TEST(StringCompare, OperatorsAgreeInTheirThreeForms) {
  ExpectOperators("a", "b", -1);
  ExpectOperators("b", "a", 1);
  ExpectOperators("a", "a", 0);
  ExpectOperators("", "", 0);
  ExpectOperators("A", "a", -1);
  ExpectOperators("\xFF", "\x81\x40", -1);
}

}  // namespace
