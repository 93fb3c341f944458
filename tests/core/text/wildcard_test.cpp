// SPDX-License-Identifier: MIT
#include <quarnfc/string_utils.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/core/text/text.h"

namespace {

using QNStringUtils::StrIsMatching;

struct WildcardCase {
  const char* pattern;
  const char* text;
  bool matches;
};

template <std::size_t kCount>
void ExpectMatches(const WildcardCase (&cases)[kCount]) {
  for (const WildcardCase& c : cases) {
    EXPECT_EQ(StrIsMatching(c.pattern, c.text, true), c.matches) << c.pattern << " on " << c.text;
    EXPECT_EQ(StrIsMatching(c.pattern, c.text, false), c.matches) << c.pattern << " on " << c.text;
  }
}

TEST(Wildcard, APatternWithoutStarsConsumesTheWholeText) {
  ExpectMatches({
      {"abc", "abc", true},
      {"abc", "abcd", false},
      {"abc", "ab", false},
      {"abc", "xabc", false},
      {"", "", true},
      {"", "a", false},
      {"a", "", false},
  });
}

TEST(Wildcard, AQuestionMarkIsAnyOneCharacter) {
  ExpectMatches({
      {"a?c", "abc", true},
      {"a?c", "ac", false},
      {"?", "", false},
      {"?", "a", true},
      {"?", "ab", false},
      {"???", "abc", true},
      {"?", ZHONG, true},  // one double-byte character
      {"??", ZHONG, false},
      {"a?c", "a" WEN "c", true},
      {"?*", "", false},
      {"?*", "a", true},
      {"*?", "", false},
      {"*?", "abc", true},
      {"?b?", "abc", true},
  });
}

TEST(Wildcard, AStarIsAnyRun) {
  ExpectMatches({
      {"*", "", true},
      {"*", "abc", true},
      {"**", "", true},
      {"***", "abc", true},
      {"a*", "a", true},
      {"a*", "abc", true},
      {"a*", "ba", false},
      {"*a", "a", true},
      {"*a", "bca", true},
      {"*a", "ab", false},
      {"a*c", "ac", true},
      {"a*c", "abbc", true},
      {"a*c", "abb", false},
      {"*b*", "abc", true},
      {"*b*", "b", true},
      {"*b*", "ac", false},
      {"a*b*c", "aXbYc", true},
      {"a*b*c", "aXYc", false},
      {"a**c", "abc", true},
      {"*ab*cd*", "xxabyycdzz", true},
      {"*cd*ab*", "xxabyycdzz", false},
      {"*?b*", "b", false},
      {"*?b*", "ab", true},
      {"*a?c*", "xxabcyy", true},
      {"*a?c", "xxaac", true},
      {"a*?", "a", false},
      {"a*?", "ab", true},
  });
}

// The last segment must lie behind what was matched already.
TEST(Wildcard, TheLastSegmentDoesNotOverlapTheOthers) {
  ExpectMatches({
      {"ab*ba", "aba", false},
      {"ab*ba", "abba", true},
      {"a*a", "a", false},
      {"a*a", "aa", true},
      {"a*ab", "aab", true},
      {"a*ab", "ab", false},
      {"*abc*bcd", "abcd", false},
      {"*abc*bcd", "abcbcd", true},
      {"*a*a", "a", false},
      {"*aa*aa*", "aaa", false},
      {"*aa*aa*", "aaaa", true},
  });
}

TEST(Wildcard, TheFirstMatchOfAMiddleSegmentWins) {
  ExpectMatches({
      {"*ab*b", "abab", true},
      {"*aab*", "aaab", true},  // a failed attempt advances by one character
      {"*abab*", "ababab", true},
      {"*abac*", "ababac", true},
  });
}

TEST(Wildcard, CaseCountsOnlyWhenAsked) {
  EXPECT_TRUE(StrIsMatching("*.TXT", "a.txt", false));
  EXPECT_FALSE(StrIsMatching("*.TXT", "a.txt", true));
  EXPECT_TRUE(StrIsMatching("*.txt", "A.TXT", false));
  EXPECT_TRUE(StrIsMatching("AbC", "aBc", false));
  EXPECT_FALSE(StrIsMatching("AbC", "aBc", true));
  EXPECT_TRUE(StrIsMatching("AbC", "AbC", true));
}

TEST(Wildcard, MatchesByCharactersOfTheCodePage) {
  ExpectMatches({
      {TRAIL_UPPER_A, TRAIL_LOWER_A, false},  // second bytes have no case
      {"*|", TRAIL_BAR, false},
      {"*" TRAIL_BAR, "|", false},
      {"*" WEN, ZHONG WEN, true},
      {ZHONG "*", ZHONG WEN, true},
      {"*\xA1\xB0*", "\xB0\xA1\xB0\xA2", false},  // across two characters
      {"?" TRAIL_BACKSLASH "*", "\\" TRAIL_BACKSLASH "\\", true},
  });
}

// Plain texts take another way than those with double-byte characters: one such character in front
// of both must not change the answer.
TEST(Wildcard, PlainTextsMatchAsTheyDoBehindADoubleByteCharacter) {
  constexpr char kPattern[] = {'a', 'B', '*', '?'};
  constexpr char kText[] = {'a', 'A', 'b', '['};
  const auto text_of = [](const char(&units)[4], int number, int length) {
    std::string text;
    for (; length > 0; --length, number /= 4) text += units[number % 4];
    return text;
  };
  for (int length = 0; length <= 4; ++length) {
    for (int pattern_number = 0; pattern_number < 256; ++pattern_number) {
      const std::string pattern = text_of(kPattern, pattern_number, 4);
      for (int text_number = 0; text_number < 1 << 2 * length; ++text_number) {
        const std::string text = text_of(kText, text_number, length);
        for (const bool case_sensitive : {false, true}) {
          ASSERT_EQ(
              StrIsMatching(pattern.c_str(), text.c_str(), case_sensitive),
              StrIsMatching((ZHONG + pattern).c_str(), (ZHONG + text).c_str(), case_sensitive))
              << pattern << " on " << text;
        }
      }
    }
  }
}

TEST(Wildcard, NullMatchesNothing) {
  EXPECT_FALSE(StrIsMatching(nullptr, "a", true));
  EXPECT_FALSE(StrIsMatching("*", nullptr, true));
  EXPECT_FALSE(StrIsMatching(nullptr, nullptr, false));
}

TEST(Wildcard, OddBytesAreHarmless) {
  EXPECT_TRUE(StrIsMatching("*", "\xFF\x80\xB0", true));
  EXPECT_TRUE(StrIsMatching("a*", "a\xB0", false));
  EXPECT_FALSE(StrIsMatching("a\xB0", "b", false));
}

// Patterns on which a matcher that tries every way would not finish.
TEST(Wildcard, ManyStarsDoNotMultiplyTheWork) {
  std::string pattern;
  for (int i = 0; i < 50; ++i) pattern += "*a";
  const std::string text(10000, 'a');
  EXPECT_TRUE(StrIsMatching(pattern.c_str(), text.c_str(), false));
  EXPECT_TRUE(StrIsMatching((pattern + "*").c_str(), text.c_str(), true));
  EXPECT_FALSE(StrIsMatching((pattern + "b").c_str(), text.c_str(), true));
  EXPECT_FALSE(StrIsMatching((pattern + "b*").c_str(), text.c_str(), true));
  EXPECT_FALSE(StrIsMatching((pattern + "?b?*").c_str(), text.c_str(), false));
}

TEST(Wildcard, LongTextsMatch) {
  const std::string text = std::string(100000, 'x') + "end";
  EXPECT_TRUE(StrIsMatching("*end", text.c_str(), true));
  EXPECT_TRUE(StrIsMatching("x*e?d", text.c_str(), true));
  EXPECT_FALSE(StrIsMatching("*y*", text.c_str(), true));
}

}  // namespace
