// SPDX-License-Identifier: MIT
// Characters of the ANSI code page, which is 936 here.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "platform/code_page.h"
#include "tests/support/bytes.h"

namespace quarnfc::platform {
namespace {

TEST(Character, LeadBytesBeginCharactersOfTwoBytes) {
  for (unsigned int byte = 0; byte <= 0xFF; ++byte) {
    EXPECT_EQ(byte >= 0x81 && byte <= 0xFE, IsLeadByte(static_cast<unsigned char>(byte))) << byte;
  }
}

TEST(Character, IsOneWhereTheCodePageHasIt) {
  constexpr struct {
    unsigned char lead;
    unsigned char trail;
    bool expected;
  } kCases[] = {
      {0xD6, 0xD0, true},  {0x95, 0x5C, true},  {0x81, 0x40, true},  {0xAA, 0xA1, true},
      {0xB0, 0x22, false}, {0xB0, 0x30, false}, {0xB0, 0x3F, false}, {0xB0, 0x7F, false},
      {0xB0, 0xFF, false}, {0xB0, 0x00, false},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(c.expected, IsCharacter(c.lead, c.trail)) << +c.lead << " " << +c.trail;
  }
}

TEST(Character, WhiteSpaceIsTheSixOfAsciiAndTheIdeographicSpace) {
  for (unsigned int code = 0; code <= 0xFF; ++code) {
    EXPECT_EQ((code >= 9 && code <= 13) || code == 32, IsSpace(code)) << code;
  }
  EXPECT_TRUE(IsSpace(0xA1A1));
  EXPECT_FALSE(IsSpace(0xB0A1));
  EXPECT_FALSE(IsSpace(0xFFFFFFA0u));  // a byte that was sign-extended
}

TEST(Character, OemTextIsAnsiText) {
  char text[] = "a\xD6\xD0\x95\x5C";
  ConvertAnsiToOem(text);
  EXPECT_STREQ("a\xD6\xD0\x95\x5C", text);
  ConvertOemToAnsi(text);
  EXPECT_STREQ("a\xD6\xD0\x95\x5C", text);
}

TEST(Character, UpperCaseOfWideTextIsUnitByUnit) {
  wchar_t text[] = {L'a', L'Z', L'1', 0x00E9, 0x03B1, 0x0434, 0xFF41, 0x4E2D, L'z'};
  ToUpperCase(text, 8);
  const wchar_t expected[] = {L'A', L'Z', L'1', 0x00C9, 0x0391, 0x0414, 0xFF21, 0x4E2D, L'z'};
  EXPECT_EQ(0, std::memcmp(expected, text, sizeof text));
  ToUpperCase(text, 0);
}

TEST(Character, CodePageIs936) { EXPECT_TRUE(AnsiIsCodePage936()); }

}  // namespace
}  // namespace quarnfc::platform
