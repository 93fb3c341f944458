// SPDX-License-Identifier: MIT
// Code page 936, the process ANSI code page, character by character.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tests/platform/conversion_cases.h"
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

// The digests were taken from the converters of Windows for code page 936 with its own table, so
// that a target with another table fails here.
constexpr std::uint64_t kDecodeDigest = 17968584947530918881u;
constexpr std::uint64_t kEncodeDigest = 765017316916208196u;

TEST(CodePage936, EveryPairOfBytesDecodesAsOnWindows) {
  Digest digest;
  for (unsigned int pair = 0; pair <= 0xFFFF; ++pair) {
    const char bytes[] = {static_cast<char>(pair >> 8), static_cast<char>(pair)};
    wchar_t units[2] = {};
    digest.Add(
        static_cast<unsigned int>(quarnfc::platform::ToUtf16(Encoding::kAnsi, bytes, 2, units, 2)));
    digest.Add(units[0]);
    digest.Add(units[1]);
  }
  EXPECT_EQ(kDecodeDigest, digest.value());
}

TEST(CodePage936, EveryUnitEncodesAsOnWindows) {
  Digest digest;
  for (unsigned int unit = 0; unit <= 0xFFFF; ++unit) {
    const auto source = static_cast<wchar_t>(unit);
    unsigned char bytes[2] = {};
    digest.Add(static_cast<unsigned int>(quarnfc::platform::FromUtf16(
        Encoding::kAnsi, &source, 1, reinterpret_cast<char*>(bytes), 2)));
    digest.Add(bytes[0]);
    digest.Add(bytes[1]);
  }
  EXPECT_EQ(kEncodeDigest, digest.value());
}

constexpr ConversionCase kBothWays[] = {
    {"ASCII", "\x01 AZaz09~\x7F", u"\x01 AZaz09~\x7F"},
    {"zero byte inside", "a\0b"sv, u"a\0b"sv},
    {"level 1 Chinese", "\xB0\xA1\xD6\xD0\xCE\xC4", u"\u554A\u4E2D\u6587"},
    {"level 2 Chinese", "\xD8\xA1\xF7\xFE", u"\u4E8D\u9F44"},
    {"beyond GB 2312", "\x81\x40\xA0\xFE\xFD\x9B", u"\u4E02\u72DB\u9FA5"},
    {"trail byte of a backslash", "\x95\x5C", u"\u661E"},
    {"trail byte of a bar", "\x81\x7C", u"\u4E85"},
    {"trail byte of an at sign", "\xAA\x40", u"\u72DC"},
    {"middle dot and dash", "\xA1\xA4\xA1\xAA", u"\u00B7\u2014"},
    {"full-width Latin", "\xA3\xC1\xA3\xE1", u"\uFF21\uFF41"},
    {"euro sign", "\x80", u"\u20AC"},
    {"byte FF", "\xFF", u"\uF8F5"},
    {"user-defined", "\xAA\xA1\xFE\xFE\xA1\x40\xA7\xA0", u"\uE000\uE4C5\uE4C6\uE765"},
    {"characters of ISO 10646 left out", "\xA6\xD9\xA8\xBC\xFE\x50", u"\uE78D\uE7C7\uE815"},
};

TEST(CodePage936, CharactersSurviveBothWays) {
  ExpectDecodes(Encoding::kAnsi, kBothWays);
  ExpectEncodes(Encoding::kAnsi, kBothWays);
}

constexpr ConversionCase kDecodeOnly[] = {
    {"lead byte at the end", "a\xB0", u"a?"},
    {"lead byte in front of a zero byte", "\xB0\0a"sv, u"?\0a"sv},
    {"invalid trail byte takes both", "\xB0\x30z", u"?z"},
    {"trail byte 7F takes both", "\xB0\x7Fz", u"?z"},
    {"trail byte FF takes both", "\xB0\xFFz", u"?z"},
    {"trail byte 80 is valid", "\xB0\x80", u"\u769C"},
    {"two lead bytes at the end", "\xB0\xB0\xB0", u"\u978D?"},
};

TEST(CodePage936, MalformedTextDecodesToQuestionMarks) {
  ExpectDecodes(Encoding::kAnsi, kDecodeOnly);
}

constexpr ConversionCase kEncodeOnly[] = {
    {"currency signs", "\xA1\xE9\xA1\xEA\xA3\xA4", u"\u00A2\u00A3\u00A5"},
    {"accents dropped or moved", "\xA8\xA4\xA8\xA2y", u"\u00C0\u00C1\u00FD"},
    {"superscript digits", "123", u"\u00B9\u00B2\u00B3"},
    {"circled Chinese", "\xD2\xBB", u"\u3280"},
    {"compatibility Chinese", "\xD8\x4D", u"\uF900"},
    {"no best fit", "????", u"\u00A9\u00AE\u0E01\uFFFD"},
    {"surrogate pair", "a??b", u"a\U0001F600b"},
    {"surrogate alone", "?z?", u"\xD800z\xDC00"},
};

TEST(CodePage936, TextWithoutACodeEncodesToTheBestFitOrAQuestionMark) {
  ExpectEncodes(Encoding::kAnsi, kEncodeOnly);
}

TEST(CodePage936, LongTextSurvivesBothWays) {
  std::string bytes;
  while (bytes.size() < 100'000) {
    bytes.append(bytes.size() % 37, 'x').append("\xD6\xD0\xCE\xC4");
  }
  std::u16string text;
  for (const unsigned int unit : Decode(Encoding::kAnsi, bytes)) {
    text.push_back(static_cast<char16_t>(unit));
  }
  EXPECT_EQ(bytes, Encode(Encoding::kAnsi, text));
}

TEST(CodePage936, MayBeUsedFirstBySeveralThreadsAtOnce) {
  std::vector<std::thread> threads;
  std::vector<unsigned int> units(8);
  threads.reserve(units.size());
  for (unsigned int& unit : units) {
    threads.emplace_back([&unit] {
      wchar_t result = 0;
      quarnfc::platform::ToUtf16(Encoding::kAnsi, "\xD6\xD0", 2, &result, 1);
      unit = result;
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(std::vector<unsigned int>(8, 0x4E2D), units);
}

}  // namespace
