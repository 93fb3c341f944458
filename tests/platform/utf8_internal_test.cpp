// SPDX-License-Identifier: MIT
// UTF-8 to and from UTF-16.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

#include "tests/platform/conversion_cases.h"
#include "tests/platform/wine.h"
#include "tests/support/bytes.h"

namespace {

using quarnfc_test::ConversionCase;
using quarnfc_test::Decode;
using quarnfc_test::Digest;
using quarnfc_test::Encode;
using quarnfc_test::Encoding;
using quarnfc_test::ExpectDecodes;
using quarnfc_test::ExpectEncodes;
using namespace std::string_view_literals;

constexpr ConversionCase kUtf8BothWays[] = {
    {"ASCII and a zero byte", "a\0\x7F"sv, u"a\0\x7F"sv},
    {"two bytes, first and last", "\xC2\x80\xDF\xBF", u"\u0080\u07FF"},
    {"three bytes, first and last", "\xE0\xA0\x80\xEF\xBF\xBF", u"\u0800\uFFFF"},
    {"around the surrogates", "\xED\x9F\xBF\xEE\x80\x80", u"\uD7FF\uE000"},
    {"four bytes, first and last", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", u"\U00010000\U0010FFFF"},
    {"byte-order mark is a character", "\xEF\xBB\xBFz", u"\uFEFFz"},
    {"mixed", "abcdefgh\xE4\xB8\xADijk\xF0\x9F\x98\x80lmnopqrstuvw",
     u"abcdefgh\u4E2Dijk\U0001F600lmnopqrstuvw"},
};

TEST(Utf8, CharactersSurviveBothWays) {
  ExpectDecodes(Encoding::kUtf8, kUtf8BothWays);
  ExpectEncodes(Encoding::kUtf8, kUtf8BothWays);
}

// Behind each text stand four more bytes, so that none is truncated.
constexpr ConversionCase kMalformed[] = {
    {"trail byte alone", "\x80\xBF....", u"\uFFFD\uFFFD...."},
    {"bytes that never occur", "\xC0\xC1\xF5\xFE\xFF....", u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD...."},
    {"longer than needed, two bytes", "\xC0\xAF....", u"\uFFFD\uFFFD...."},
    {"longer than needed, three bytes", "\xE0\x9F\xBF....", u"\uFFFD\uFFFD...."},
    {"longer than needed, four bytes", "\xF0\x8F\xBF\xBF....", u"\uFFFD\uFFFD\uFFFD...."},
    {"surrogate", "\xED\xA0\x80....", u"\uFFFD\uFFFD...."},
    {"beyond the last character", "\xF4\x90\x80\x80....", u"\uFFFD\uFFFD\uFFFD...."},
    {"second byte missing", "\xE4....", u"\uFFFD...."},
    {"third byte missing", "\xE4\xB8....", u"\uFFFD...."},
    {"fourth byte missing", "\xF0\x9F\x98....", u"\uFFFD...."},
    {"cut off by a character", "\xE4\xE4\xB8\xAD....", u"\uFFFD\u4E2D...."},
};

TEST(Utf8, MalformedTextDecodesToReplacementCharacters) {
  ExpectDecodes(Encoding::kUtf8, kMalformed);
}

constexpr ConversionCase kTruncated[] = {
    {"one of two", "a\xC3", u"a\uFFFD"},
    {"one of three", "a\xE4", u"a\uFFFD"},
    {"two of three", "a\xE4\xB8", u"a\uFFFD"},
    {"three of four", "a\xF0\x9F\x98", u"a\uFFFD"},
};

TEST(Utf8, TruncatedCharacterDecodesToOneReplacementCharacter) {
  ExpectDecodes(Encoding::kUtf8, kTruncated);
}

constexpr ConversionCase kTruncatedBeforeOthers[] = {
    {"one of three and a letter", "\xE4x", u"\uFFFDx"},
    {"one of three and a zero byte", "\xE4\0"sv, u"\uFFFD\0"sv},
    {"one of four and two letters", "\xF0xy", u"\uFFFDxy"},
};

TEST(Utf8, BytesBehindATruncatedCharacterAreKept) {
  if (quarnfc_test::RunsUnderWine()) {
    GTEST_SKIP() << "Wine drops what follows a lead byte that asks for more bytes than are left";
  }
  ExpectDecodes(Encoding::kUtf8, kTruncatedBeforeOthers);
}

TEST(Utf8, SurrogateAloneEncodesToTheReplacementCharacter) {
  EXPECT_EQ("\xEF\xBF\xBDz\xEF\xBF\xBD\xF0\x9F\x98\x80\xEF\xBF\xBD",
            Encode(Encoding::kUtf8, u"\xD800z\xDC00\xD83D\xDE00\xD83D"));
}

// Bytes that mean something in UTF-8 more often than by chance. Four others end each text, so that
// no character is truncated at its end.
std::string RandomText(std::mt19937& random) {
  constexpr std::string_view kBytes =
      "a\x80\x8F\x90\x9F\xA0\xBF\xC1\xC2\xDF\xE0\xE4\xED\xEF\xF0\xF4\xF5";
  std::string text;
  for (unsigned int length = random() % 12; length > 0; --length) {
    text.push_back(kBytes[random() % kBytes.size()]);
  }
  return text + "....";
}

constexpr std::uint64_t kMalformedDigest = 307734355633105734u;

TEST(Utf8, RandomTextsDecodeAsOnWindows) {
  std::mt19937 random;
  Digest digest;
  for (int i = 0; i < 50'000; ++i) {
    for (const unsigned int unit : Decode(Encoding::kUtf8, RandomText(random))) {
      digest.Add(unit);
    }
  }
  EXPECT_EQ(kMalformedDigest, digest.value());
}

constexpr std::uint64_t kUtf8EncodeDigest = 3574170529431433157u;

TEST(Utf8, EveryPairOfSurrogateCandidatesEncodesAsOnWindows) {
  constexpr char16_t kUnits[] = {0,      'a',    0x7F,   0x80,   0x7FF,  0x800,  0xD7FF, 0xD800,
                                 0xD83D, 0xDBFF, 0xDC00, 0xDE00, 0xDFFF, 0xE000, 0xFFFD, 0xFFFF};
  Digest digest;
  for (const char16_t first : kUnits) {
    for (const char16_t second : kUnits) {
      for (const char16_t third : kUnits) {
        for (const char byte : Encode(Encoding::kUtf8, std::u16string{first, second, third})) {
          digest.Add(static_cast<unsigned char>(byte));
        }
      }
    }
  }
  EXPECT_EQ(kUtf8EncodeDigest, digest.value());
}

}  // namespace
