// SPDX-License-Identifier: MIT
#include <quarnfc/internet_exception.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "net/bounded_text.h"
#include "tests/net/fake_internet.h"

namespace {

constexpr DWORD kExtendedError = 12003;

TEST(ExceptionText, TheServersOwnWordsReplaceTheExtendedError) {
  TheFakeInternet().server_text = "550 no such file";
  char text[100] = "old";
  unsigned int help = 5;
  EXPECT_EQ(CQNInternetException(kExtendedError).GetErrorMessage(text, sizeof(text), &help), 1);
  EXPECT_STREQ(text, "550 no such file");
  EXPECT_EQ(help, 0u);
}

TEST(ExceptionText, TheServersWordsAreNeverCut) {
  const std::string words = "550 no such file";
  const CQNInternetException exception(kExtendedError);
  // Whether the platform's lengths count the terminator or not.
  for (const bool counts_end : {true, false}) {
    TheFakeInternet().server_text = words;
    TheFakeInternet().asks_for_end = counts_end;
    for (unsigned int maximum = 1; maximum <= words.size() + 1; ++maximum) {
      char text[100];
      std::memset(text, '?', sizeof(text));
      EXPECT_EQ(exception.GetErrorMessage(text, maximum), 1);
      EXPECT_STREQ(text, maximum > words.size() ? words.c_str() : "") << maximum;
      EXPECT_EQ(text[maximum], '?') << maximum;
    }
  }
}

TEST(ExceptionText, StaysAsItWasWhenTheServerSaidNothing) {
  char text[10] = "old";
  EXPECT_EQ(CQNInternetException(kExtendedError).GetErrorMessage(text, sizeof(text)), 1);
  EXPECT_STREQ(text, "old");
}

TEST(BoundedText, NeverSplitsADoubleByteCharacter) {
  const struct {
    const char* source;
    unsigned int maximum;
    const char* result;
  } cases[] = {{"abc", 10, "abc"},
               {"abc", 4, "abc"},
               {"abc", 3, "ab"},
               {"abc", 1, ""},
               {"\xC4\xE3\xBA\xC3", 5, "\xC4\xE3\xBA\xC3"},
               {"\xC4\xE3\xBA\xC3", 4, "\xC4\xE3"},
               {"\xC4\xE3\xBA\xC3", 3, "\xC4\xE3"},
               {"\xC4\xE3\xBA\xC3", 2, ""},
               {"a\xC4\xE3", 3, "a"},
               {"a\xC4", 3, "a\xC4"},
               {"a\xC4", 2, "a"}};
  for (const auto& c : cases) {
    char text[16];
    std::memset(text, '?', sizeof(text));
    quarnfc::net::CopyBounded(text, c.maximum, c.source);
    EXPECT_STREQ(text, c.result) << c.maximum;
    EXPECT_EQ(text[c.maximum], '?') << c.maximum;
  }
}

TEST(BoundedText, TakesNothingWithoutABuffer) {
  char text[2] = {'?', '?'};
  quarnfc::net::CopyBounded(nullptr, 10, "abc");
  quarnfc::net::CopyBounded(text, 0, "abc");
  EXPECT_EQ(text[0], '?');
}

}  // namespace
