// SPDX-License-Identifier: MIT
// Code-page conversions, all four with one convention.
#include <quarnfc/string_utils.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string>
#include <vector>

#include "tests/core/text/text.h"

namespace {

using QNStringUtils::Ansi2Unicode;
using QNStringUtils::Unicode2Ansi;
using QNStringUtils::Unicode2UTF8;
using QNStringUtils::UTF82Unicode;

// The wide texts of the tests are written as UTF-16 literals.
const wchar_t* Wide(const std::u16string& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}

using ToWide = int (*)(const char*, wchar_t*, int);
using FromWide = int (*)(const wchar_t*, char*, int);

// Converts with as much capacity as the size query asks for.
std::u16string ConvertToWide(ToWide convert, const std::string& text) {
  const int needed = convert(text.c_str(), nullptr, 0);
  std::vector<wchar_t> buffer(static_cast<std::size_t>(needed) + 1, L'#');
  EXPECT_EQ(convert(text.c_str(), buffer.data(), needed), needed);
  EXPECT_EQ(buffer[static_cast<std::size_t>(needed) - 1], L'\0');
  EXPECT_EQ(buffer[static_cast<std::size_t>(needed)], L'#');
  return text_test::Utf16(buffer.data());
}

std::string ConvertFromWide(FromWide convert, const std::u16string& text) {
  const int needed = convert(Wide(text), nullptr, 0);
  std::string buffer(static_cast<std::size_t>(needed) + 1, '#');
  EXPECT_EQ(convert(Wide(text), buffer.data(), needed), needed);
  EXPECT_EQ(buffer[static_cast<std::size_t>(needed) - 1], '\0');
  EXPECT_EQ(buffer[static_cast<std::size_t>(needed)], '#');
  buffer.resize(std::strlen(buffer.c_str()));
  return buffer;
}

struct TextPair {
  const char* bytes;
  const char16_t* wide;
};

TEST(CodePage, ConvertsTextOfTheAnsiCodePage) {
  const TextPair cases[] = {
      {"", u""},
      {"abc", u"abc"},
      {"a" ZHONG WEN "z", u"a\u4E2D\u6587z"},
      {TRAIL_AT TRAIL_UPPER_A TRAIL_OPEN TRAIL_BACKSLASH, u"\u65F2\u65F3\u661C\u661E"},
      {TRAIL_CLOSE TRAIL_LOWER_A TRAIL_BAR TRAIL_TILDE, u"\u6621\u6626\u6650\u6658"},
      {WIDE_BLANK, u"\u3000"},
      {"\x80", u"\u20AC"},
      {"\x81\x40\xFE\x4F", u"\u4E02\uFA29"},
      {"\xA1\xA4\xA1\xAA\xA8\x44", u"\u00B7\u2014\u2015"},
      {"\t\r\n\x7F", u"\t\r\n\u007F"},
  };
  for (const TextPair& c : cases) {
    EXPECT_EQ(ConvertToWide(Ansi2Unicode, c.bytes), c.wide) << c.bytes;
    EXPECT_EQ(ConvertFromWide(Unicode2Ansi, c.wide), c.bytes) << c.bytes;
  }
}

TEST(CodePage, ConvertsUtf8) {
  const TextPair cases[] = {
      {"", u""},
      {"abc", u"abc"},
      {"\xC3\xA9", u"\u00E9"},
      {"\xE4\xB8\xAD\xE6\x96\x87", u"\u4E2D\u6587"},
      {"\xF0\x9F\x98\x80", u"\U0001F600"},
      {"\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF", u"\u007F\u0080\u07FF\u0800\uFFFF"},
      {"\xF4\x8F\xBF\xBF", u"\U0010FFFF"},
  };
  for (const TextPair& c : cases) {
    EXPECT_EQ(ConvertToWide(UTF82Unicode, c.bytes), c.wide) << c.bytes;
    EXPECT_EQ(ConvertFromWide(Unicode2UTF8, c.wide), c.bytes) << c.bytes;
  }
}

TEST(CodePage, WhatTheAnsiCodePageLacksBecomesAQuestionMark) {
  EXPECT_EQ(ConvertFromWide(Unicode2Ansi, u"a\u0E01z"), "a?z");
  EXPECT_EQ(ConvertFromWide(Unicode2Ansi, u"a\U0001F600z"), "a??z");
}

TEST(CodePage, MalformedUtf8BecomesReplacementCharacters) {
  EXPECT_EQ(ConvertToWide(UTF82Unicode, "a\xFFz"), u"a\uFFFDz");
  EXPECT_EQ(ConvertToWide(UTF82Unicode, "a\x80z"), u"a\uFFFDz");
  EXPECT_EQ(ConvertToWide(UTF82Unicode, "a\xE4\xB8"), u"a\uFFFD");
  EXPECT_EQ(ConvertToWide(UTF82Unicode, "\xE4\xB8z"), u"\uFFFDz");
  EXPECT_EQ(ConvertToWide(UTF82Unicode, "\xC0\x80"), u"\uFFFD\uFFFD");
}

TEST(CodePage, LoneSurrogatesBecomeReplacementCharacters) {
  EXPECT_EQ(ConvertFromWide(Unicode2UTF8, std::u16string{u'a', 0xD83D, u'z'}), "a\xEF\xBF\xBDz");
  EXPECT_EQ(ConvertFromWide(Unicode2UTF8, std::u16string{0xDE00}), "\xEF\xBF\xBD");
}

TEST(CodePage, SizeQueryCountsTheTerminator) {
  EXPECT_EQ(Ansi2Unicode("abc", nullptr, 0), 4);
  EXPECT_EQ(Ansi2Unicode(ZHONG WEN, nullptr, 0), 3);
  EXPECT_EQ(Ansi2Unicode("", nullptr, 0), 1);
  EXPECT_EQ(Unicode2Ansi(L"abc", nullptr, 0), 4);
  EXPECT_EQ(Unicode2Ansi(L"\x4E2D", nullptr, 0), 3);
  EXPECT_EQ(UTF82Unicode("\xE4\xB8\xAD", nullptr, 0), 2);
  EXPECT_EQ(Unicode2UTF8(L"\x4E2D", nullptr, 0), 4);
  EXPECT_EQ(Unicode2UTF8(L"", nullptr, 0), 1);
}

TEST(CodePage, ADestinationWithoutCapacityGivesZero) {
  wchar_t wide[2] = {L'#', L'#'};
  char narrow[2] = {'#', '#'};
  EXPECT_EQ(Ansi2Unicode("abc", wide, 0), 0);
  EXPECT_EQ(UTF82Unicode("abc", wide, 0), 0);
  EXPECT_EQ(Unicode2Ansi(L"abc", narrow, 0), 0);
  EXPECT_EQ(Unicode2UTF8(L"abc", narrow, 0), 0);
  EXPECT_EQ(wide[0], L'#');
  EXPECT_EQ(narrow[0], '#');
}

TEST(CodePage, MoreCapacityThanNeededIsLeftAlone) {
  wchar_t wide[10];
  std::fill(std::begin(wide), std::end(wide), L'#');
  EXPECT_EQ(Ansi2Unicode("abc", wide, 9), 4);
  EXPECT_EQ(text_test::Utf16(wide), u"abc");
  EXPECT_EQ(wide[4], L'#');
  char narrow[10] = "#########";
  EXPECT_EQ(Unicode2UTF8(L"abc", narrow, 9), 4);
  EXPECT_STREQ(narrow, "abc");
  EXPECT_EQ(narrow[4], '#');
}

// Deliberately: the terminator of a failed conversion stands at index capacity, one element beyond
// the stated capacity, and the result is capacity + 1.
TEST(CodePage, AFailedConversionTerminatesAtItsCapacity) {
  for (int capacity : {1, 2, 3}) {
    const std::size_t end = static_cast<std::size_t>(capacity);
    for (ToWide convert : {Ansi2Unicode, UTF82Unicode}) {
      wchar_t wide[6];
      std::fill(std::begin(wide), std::end(wide), L'#');
      EXPECT_EQ(convert("abc", wide, capacity), capacity + 1);
      EXPECT_EQ(wide[end], L'\0');
      EXPECT_EQ(wide[end + 1], L'#');
    }
    for (FromWide convert : {Unicode2Ansi, Unicode2UTF8}) {
      char narrow[6];
      std::fill(std::begin(narrow), std::end(narrow), '#');
      EXPECT_EQ(convert(L"abc", narrow, capacity), capacity + 1);
      EXPECT_EQ(narrow[end], '\0');
      EXPECT_EQ(narrow[end + 1], '#');
    }
  }
}

TEST(CodePage, ACharacterIsNeverCutByTheCapacity) {
  char narrow[8] = "#######";
  EXPECT_EQ(Unicode2Ansi(L"\x4E2D\x6587", narrow, 3), 4);
  EXPECT_EQ(narrow[3], '\0');
  EXPECT_EQ(Unicode2UTF8(L"\x4E2D", narrow, 3), 4);
  EXPECT_EQ(narrow[3], '\0');
  EXPECT_EQ(narrow[4], '#');
}

TEST(CodePage, NonsenseArgumentsGiveZero) {
  wchar_t wide[4] = {L'#', L'#', L'#', L'#'};
  char narrow[4] = {'#', '#', '#', '#'};
  EXPECT_EQ(Ansi2Unicode(nullptr, wide, 4), 0);
  EXPECT_EQ(Ansi2Unicode(nullptr, nullptr, 0), 0);
  EXPECT_EQ(Ansi2Unicode("abc", wide, -1), 0);
  EXPECT_EQ(Ansi2Unicode("abc", nullptr, 4), 0);
  EXPECT_EQ(UTF82Unicode(nullptr, wide, 4), 0);
  EXPECT_EQ(Unicode2Ansi(nullptr, narrow, 4), 0);
  EXPECT_EQ(Unicode2Ansi(L"abc", narrow, -1), 0);
  EXPECT_EQ(Unicode2UTF8(nullptr, nullptr, 0), 0);
  EXPECT_EQ(Unicode2UTF8(L"abc", nullptr, 4), 0);
}

// --- the whole code page ------------------------------------------------------------------------

// FNV-1a over 16-bit values: one figure for a whole table. The figures below are those of the
// platform's own tables on Windows.
class Digest {
 public:
  void Add(unsigned value) {
    hash_ = (hash_ ^ (value & 0xFF)) * kPrime;
    hash_ = (hash_ ^ (value >> 8 & 0xFF)) * kPrime;
  }
  std::uint64_t Value() const { return hash_; }

 private:
  static constexpr std::uint64_t kPrime = 0x100000001B3u;
  std::uint64_t hash_ = 0xCBF29CE484222325u;
};

TEST(CodePage, EveryCharacterOfTheCodePageGoesThereAndBack) {
  Digest digest;
  int assigned = 0;
  for (unsigned lead = 0x81; lead <= 0xFE; ++lead) {
    for (unsigned trail = 0x40; trail <= 0xFE; ++trail) {
      if (trail == 0x7F) continue;
      const std::string bytes = {static_cast<char>(lead), static_cast<char>(trail)};
      const std::u16string wide = ConvertToWide(Ansi2Unicode, bytes);
      for (char16_t unit : wide) digest.Add(unit);
      if (wide.size() != 1 || wide == u"?" || (wide[0] >= 0xE000 && wide[0] < 0xF900)) continue;
      ++assigned;
      ASSERT_EQ(ConvertFromWide(Unicode2Ansi, wide), bytes) << lead << " " << trail;
    }
  }
  EXPECT_EQ(assigned, 21791);
  EXPECT_EQ(digest.Value(), 9094135210527398281u);
}

TEST(CodePage, EveryUtf16UnitHasTheSameBytesOnEveryTarget) {
  Digest digest;
  for (unsigned unit = 1; unit <= 0xFFFF; ++unit) {
    for (char byte :
         ConvertFromWide(Unicode2Ansi, std::u16string(1, static_cast<char16_t>(unit)))) {
      digest.Add(static_cast<unsigned char>(byte));
    }
  }
  EXPECT_EQ(digest.Value(), 1790883748162148716u);
}

}  // namespace
