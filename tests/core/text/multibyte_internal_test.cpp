// SPDX-License-Identifier: MIT
// The multibyte run-time functions in code page 936. Double-byte characters whose second byte is
// that of a backslash (95 5C), a bar (81 7C) or an at sign (AA 40) stand in most texts.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "core/text/character.h"
#include "core/text/multibyte.h"
#include "tests/core/text/change_case.h"
#include "tests/core/text/text.h"
#include "tests/support/bytes.h"

namespace {

using quarnfc_test::Bytes;
using text_test::MakeLower;
using text_test::MakeUpper;
using text_test::Sign;

constexpr std::ptrdiff_t kNotFound = -1;

std::ptrdiff_t IndexOf(const char* text, const unsigned char* hit) {
  return hit == nullptr ? kNotFound : hit - Bytes(text);
}

struct CharacterCase {
  const char* text;
  unsigned int character;
  std::ptrdiff_t first;
  std::ptrdiff_t last;
};

TEST(Multibyte, FindsCharacters) {
  constexpr CharacterCase kCases[] = {
      {"abcabc", 'b', 1, 4},
      {"abc", 'z', kNotFound, kNotFound},
      {"", 'a', kNotFound, kNotFound},
      {"\x95\x5Cx\\y\\", '\\', 3, 5},
      {"\x95\x5C\x95\x5C", '\\', kNotFound, kNotFound},
      {"\x95\x5Cx\x95\x5C", 0x955C, 0, 3},
      {"\xB0\xA1\xB0\xA1", 0xA1B0, kNotFound, kNotFound},
      {"\x95\x5C", 0x95, kNotFound, kNotFound},
      {"a\x95\x5C", 0, 3, 3},
      {"a\xB0\0b", 'b', kNotFound, kNotFound},
      {"a\xB0\0b", 0xB0, kNotFound, kNotFound},
  };
  for (const CharacterCase& c : kCases) {
    EXPECT_EQ(c.first, IndexOf(c.text, quarnfc::MbsChr(Bytes(c.text), c.character))) << c.text;
    EXPECT_EQ(c.last, IndexOf(c.text, quarnfc::MbsRChr(Bytes(c.text), c.character))) << c.text;
  }
}

struct TextCase {
  const char* text;
  const char* sub;
  std::ptrdiff_t index;
};

TEST(Multibyte, FindsTexts) {
  constexpr TextCase kCases[] = {
      {"abcabc", "ca", 2},
      {"abc", "", 0},
      {"", "", 0},
      {"", "a", kNotFound},
      {"ab", "abc", kNotFound},
      {"aab", "ab", 1},
      {"\xD6\xD0\xCE\xC4", "\xCE\xC4", 2},
      {"\x95\x5C\\b", "\\b", 2},
      {"\x95\x5Cz", "\\z", kNotFound},
      {"\xB0\xA1\xB0\xA1", "\xA1\xB0", kNotFound},
      {"\xB0\xA1\xB0\xA1\xB0", "\xA1", kNotFound},
      {"a\xB0", "a\xB0", 0},
  };
  for (const TextCase& c : kCases) {
    EXPECT_EQ(c.index, IndexOf(c.text, quarnfc::MbsStr(Bytes(c.text), Bytes(c.sub)))) << c.text;
  }
}

struct SetCase {
  const char* text;
  const char* set;
  std::size_t in_set;
  std::size_t not_in_set;
};

TEST(Multibyte, SpansByCharactersOfASet) {
  constexpr SetCase kCases[] = {
      {"aabbc", "ab", 4, 0},
      {"abc", "", 0, 3},
      {"", "ab", 0, 0},
      {"\x95\x5Cz\\", "\\", 0, 3},
      {"\x95\x5C\x81\x7Cx", "\x81\x7C\x95\x5C", 4, 0},
      {"\xB0\xA1\xB0\xA2", "\xB0\xA1", 2, 0},
      {"\xB0\xA1", "\xA1\xB0", 0, 2},
      {"xy\xB0\xA1", "\xB0\xA1", 0, 2},
      {"ab\xB0", "ab", 2, 0},
      {"ab\xB0", "z", 0, 3},
  };
  for (const SetCase& c : kCases) {
    const unsigned char* hit =
        c.text[c.not_in_set] != '\0' ? Bytes(c.text) + c.not_in_set : nullptr;
    EXPECT_EQ(c.in_set, quarnfc::MbsSpn(Bytes(c.text), Bytes(c.set))) << c.text;
    EXPECT_EQ(c.not_in_set, quarnfc::MbsCSpn(Bytes(c.text), Bytes(c.set))) << c.text;
    EXPECT_EQ(hit, quarnfc::MbsPBrk(Bytes(c.text), Bytes(c.set))) << c.text;
  }
}

struct CompareCase {
  const char* left;
  const char* right;
  int exact;
  int ignoring_case;
};

TEST(Multibyte, ComparesByCharacterCodes) {
  constexpr CompareCase kCases[] = {
      {"", "", 0, 0},
      {"", "a", -1, -1},
      {"abc", "abc", 0, 0},
      {"abc", "abd", -1, -1},
      {"ab", "abc", -1, -1},
      {"abc", "ABC", 1, 0},
      {"a", "B", 1, -1},
      {"_", "a", -1, -1},
      {"_", "A", 1, -1},
      {"z", "\xB0\xA1", -1, -1},
      {"\xFF", "\xB0\xA1", -1, -1},
      {"\xB0\xA1", "\xD6\xD0", -1, -1},
      {"\x81\x41", "\x81\x61", -1, -1},
      {"\xA3\xC1", "\xA3\xE1", -1, 0},
      {"\xA3\xC1", "A", 1, 1},
      {"\xA6\xA1\xA6\xB8", "\xA6\xC1\xA6\xD8", -1, 0},
      {"\xA7\xA1\xA7\xC1", "\xA7\xD1\xA7\xF1", -1, 0},
      {"\xA2\xF1\xA2\xFA", "\xA2\xA1\xA2\xAA", 1, 0},
      {"a\xB0", "a", 0, 0},
      {"a\xB0", "a\xB1", 0, 0},
  };
  for (const CompareCase& c : kCases) {
    SCOPED_TRACE(std::string(c.left) + " " + c.right);
    EXPECT_EQ(c.exact, Sign(quarnfc::MbsCmp(Bytes(c.left), Bytes(c.right))));
    EXPECT_EQ(-c.exact, Sign(quarnfc::MbsCmp(Bytes(c.right), Bytes(c.left))));
    EXPECT_EQ(c.ignoring_case, Sign(quarnfc::MbsICmp(Bytes(c.left), Bytes(c.right))));
    EXPECT_EQ(-c.ignoring_case, Sign(quarnfc::MbsICmp(Bytes(c.right), Bytes(c.left))));
  }
}

struct MappingCase {
  const char* upper;
  const char* lower;
};

TEST(Multibyte, ChangesCaseOfLettersOnly) {
  constexpr MappingCase kCases[] = {
      {"", ""},
      {"ABYZ@[09", "abyz@[09"},
      {"\x81\x41\x81\x61Z", "\x81\x41\x81\x61z"},
      {"\xA3\xC1\xA3\xDA\xA3\xC0\xA3\xDB", "\xA3\xE1\xA3\xFA\xA3\xC0\xA3\xDB"},
      {"\xA6\xA1\xA6\xB8", "\xA6\xC1\xA6\xD8"},
      {"\xA7\xA1\xA7\xC1", "\xA7\xD1\xA7\xF1"},
      {"\xA2\xF1\xA2\xFA", "\xA2\xA1\xA2\xAA"},
      {"\xD6\xD0\x80\xFFZ", "\xD6\xD0\x80\xFFz"},
      {"Z\xB0", "z\xB0"},
  };
  for (const MappingCase& c : kCases) {
    std::string text = c.lower;
    MakeUpper(text);
    EXPECT_EQ(c.upper, text);
    MakeLower(text);
    EXPECT_EQ(c.lower, text);
  }
}

TEST(Multibyte, LettersWithoutTheOtherCaseStayAsTheyAre) {
  std::string text = "\xA8\xBB\xA8\xBD\xA8\xBE\xA8\xC0\xA2\xFB\xA2\xFC";
  const std::string before = text;
  MakeUpper(text);
  EXPECT_EQ(before, text);
  MakeLower(text);
  EXPECT_EQ(before, text);
}

TEST(Multibyte, ReversesByCharacters) {
  struct {
    const char* text;
    const char* reversed;
  } constexpr kCases[] = {
      {"", ""},
      {"abc", "cba"},
      {"x\x95\x5Cy\xD6\xD0", "\xD6\xD0y\x95\x5Cx"},
      {"xy\xB0", "yx\xB0"},
  };
  for (const auto& c : kCases) {
    std::string text = c.text;
    EXPECT_EQ(Bytes(text.data()), quarnfc::MbsRev(reinterpret_cast<unsigned char*>(text.data())));
    EXPECT_EQ(c.reversed, text);
  }
}

}  // namespace
