// SPDX-License-Identifier: MIT
// Text in one call between ANSI (936 in every run of these tests), UTF-8 and UTF-16. Bytes of the
// code page are those of GBK: U+4E2D is D6 D0, U+6E58 is CF E6, U+20AC is 80.
#include <quarnfc/ext/text_conversion.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using quarnfc::ext::AnsiFromUtf16;
using quarnfc::ext::AnsiFromUtf8;
using quarnfc::ext::StrictAnsiFromUtf16;
using quarnfc::ext::StrictAnsiFromUtf8;
using quarnfc::ext::StrictUtf16FromAnsi;
using quarnfc::ext::StrictUtf16FromUtf8;
using quarnfc::ext::StrictUtf8FromAnsi;
using quarnfc::ext::StrictUtf8FromUtf16;
using quarnfc::ext::TextLoss;
using quarnfc::ext::Utf16FromAnsi;
using quarnfc::ext::Utf16FromUtf8;
using quarnfc::ext::Utf16View;
using quarnfc::ext::Utf8FromAnsi;
using quarnfc::ext::Utf8FromUtf16;
using quarnfc::ext::WideChars;
using namespace std::string_literals;

struct Text {
  std::string ansi;
  std::string utf8;
  std::u16string utf16;
};

const Text kTexts[] = {
    {"", "", u""},
    {"plain", "plain", u"plain"},
    {"a\xD6\xD0z", "a\xE4\xB8\xADz", u"a\u4E2Dz"},
    {"\x80", "\xE2\x82\xAC", u"\u20AC"},
    // The last byte of the code page and a user-defined character.
    {"\xFF\xAA\xA1", "\xEF\xA3\xB5\xEE\x80\x80", u"\uF8F5\uE000"},
    {"\0x\0"s, "\0x\0"s, u"\0x\0"s},
    {std::string(70000, 'q') + "\xCF\xE6", std::string(70000, 'q') + "\xE6\xB9\x98",
     std::u16string(70000, u'q') + u"\u6E58"},
};

TEST(TextConversion, TextsOfAllThreeEncodingsAreOneText) {
  for (const Text& text : kTexts) {
    EXPECT_EQ(Utf16FromAnsi(text.ansi), text.utf16);
    EXPECT_EQ(Utf16FromUtf8(text.utf8), text.utf16);
    EXPECT_EQ(AnsiFromUtf16(text.utf16), text.ansi);
    EXPECT_EQ(AnsiFromUtf8(text.utf8), text.ansi);
    EXPECT_EQ(Utf8FromAnsi(text.ansi), text.utf8);
    EXPECT_EQ(Utf8FromUtf16(text.utf16), text.utf8);
  }
}

TEST(TextConversion, TheStrictFormGivesTheSameWhereNothingIsLost) {
  for (const Text& text : kTexts) {
    TextLoss loss{7, 7, 7};
    EXPECT_EQ(StrictUtf16FromAnsi(text.ansi, &loss), text.utf16);
    EXPECT_EQ(StrictUtf16FromUtf8(text.utf8, &loss), text.utf16);
    EXPECT_EQ(StrictAnsiFromUtf16(text.utf16, &loss), text.ansi);
    EXPECT_EQ(StrictAnsiFromUtf8(text.utf8, &loss), text.ansi);
    EXPECT_EQ(StrictUtf8FromAnsi(text.ansi, &loss), text.utf8);
    EXPECT_EQ(StrictUtf8FromUtf16(text.utf16, &loss), text.utf8);
    EXPECT_EQ(loss.offset, 7u) << "a loss is told only where there is one";
  }
}

void ExpectLoss(const TextLoss& loss, std::size_t offset, std::size_t length, char32_t character) {
  EXPECT_EQ(loss.offset, offset);
  EXPECT_EQ(loss.length, length);
  EXPECT_EQ(loss.character, character);
}

TEST(TextConversion, TheFirstCharacterThatTheCodePageLacksIsTold) {
  TextLoss loss;
  EXPECT_FALSE(StrictAnsiFromUtf8("a\xE4\xB8\xAD\xF0\x9F\x98\x80z\xF0\x9F\x98\x81", &loss));
  ExpectLoss(loss, 4, 4, 0x1F600);
  EXPECT_FALSE(StrictAnsiFromUtf16(u"a\u4E2D\U0001F600z", &loss));
  ExpectLoss(loss, 2, 2, 0x1F600);
  EXPECT_FALSE(StrictAnsiFromUtf16(u"\u0E01", &loss));
  ExpectLoss(loss, 0, 1, 0x0E01);
  EXPECT_FALSE(StrictAnsiFromUtf8("a\xE0\xB8\x81\xFF", &loss)) << "in front of what is no UTF-8";
  ExpectLoss(loss, 1, 3, 0x0E01);
  EXPECT_EQ(StrictAnsiFromUtf8("\xE0\xB8\x81"), std::nullopt) << "a loss need not be asked for";
}

TEST(TextConversion, ABestFitCountsAsLost) {
  EXPECT_EQ(AnsiFromUtf16(u"\u00AA"), "a");
  TextLoss loss;
  EXPECT_FALSE(StrictAnsiFromUtf16(u"x\u00AA", &loss));
  ExpectLoss(loss, 1, 1, 0xAA);
  EXPECT_FALSE(StrictAnsiFromUtf8("\xE4\xB8\xADx\xC2\xAA", &loss));
  ExpectLoss(loss, 4, 2, 0xAA);
}

TEST(TextConversion, BytesThatAreNoTextAreTold) {
  const struct {
    std::string bytes;
    std::size_t offset;
  } utf8[] = {{"ab\xFF", 2}, {"\xE4\xB8", 0}, {"a\xC0\x80", 1}, {"ab\xED\xA0\x80", 2}};
  for (const auto& each : utf8) {
    TextLoss loss;
    EXPECT_FALSE(StrictUtf16FromUtf8(each.bytes, &loss));
    ExpectLoss(loss, each.offset, 1, 0xFFFD);
    loss = {};
    EXPECT_FALSE(StrictAnsiFromUtf8(each.bytes, &loss));
    ExpectLoss(loss, each.offset, 1, 0xFFFD);
  }
  const struct {
    std::string bytes;
    std::size_t offset;
  } ansi[] = {{"ab\xD6", 2}, {"\xD6\xD0\xFE\x20z", 2}, {"\xD6", 0}, {"x\xD6\0"s, 1}};
  for (const auto& each : ansi) {
    TextLoss loss;
    EXPECT_FALSE(StrictUtf16FromAnsi(each.bytes, &loss));
    ExpectLoss(loss, each.offset, 1, 0xFFFD);
    loss = {};
    EXPECT_FALSE(StrictUtf8FromAnsi(each.bytes, &loss));
    ExpectLoss(loss, each.offset, 1, 0xFFFD);
  }
}

TEST(TextConversion, HalfASurrogatePairIsTold) {
  const std::u16string high = {u'a', char16_t{0xD83D}, u'b'};
  const std::u16string low = {char16_t{0xDE00}};
  const std::u16string swapped = {char16_t{0xDE00}, char16_t{0xD83D}};
  TextLoss loss;
  EXPECT_FALSE(StrictUtf8FromUtf16(high, &loss));
  ExpectLoss(loss, 1, 1, 0xFFFD);
  EXPECT_FALSE(StrictUtf8FromUtf16(low, &loss));
  ExpectLoss(loss, 0, 1, 0xFFFD);
  EXPECT_FALSE(StrictUtf8FromUtf16(swapped, &loss));
  ExpectLoss(loss, 0, 1, 0xFFFD);
  EXPECT_FALSE(StrictAnsiFromUtf16(high, &loss));
  ExpectLoss(loss, 1, 1, 0xFFFD);
  EXPECT_EQ(Utf8FromUtf16(high),
            "a\xEF\xBF\xBD"
            "b");
}

TEST(TextConversion, WideTextOfThePlatformIsUtf16) {
  EXPECT_EQ(Utf16View(L"a\x4E2D"), u"a\u4E2D");
  EXPECT_EQ(Utf16View(nullptr), u"");
  const std::u16string text = u"x\u4E2D";
  const wchar_t* const wide = WideChars(text);
  EXPECT_EQ(wide[1], 0x4E2D);
  EXPECT_EQ(wide[2], 0);
}

TEST(TextConversion, APlainCallAsksForTheCountAndFillsWhatIsLargeEnough) {
  wchar_t units[4] = {L'#', L'#', L'#', L'#'};
  EXPECT_EQ(QNTextUtils::Decode(QNTextUtils::eAnsi, "\xD6\xD0z", 3, nullptr, 0), 2u);
  EXPECT_EQ(QNTextUtils::Decode(QNTextUtils::eAnsi, "\xD6\xD0z", 3, units, 1), 2u);
  EXPECT_EQ(units[0], L'#') << "nothing is written into what is too small";
  EXPECT_EQ(QNTextUtils::Decode(QNTextUtils::eAnsi, "\xD6\xD0z", 3, units, 4), 2u);
  EXPECT_EQ(units[0], 0x4E2D);
  EXPECT_EQ(units[2], L'#') << "no terminator is written";
  EXPECT_EQ(QNTextUtils::Decode(QNTextUtils::eUtf8, nullptr, 3, units, 4), 0u);
  EXPECT_EQ(QNTextUtils::Encode(QNTextUtils::eUtf8, nullptr, 3, nullptr, 0), 0u);
  EXPECT_EQ(QNTextUtils::FindInvalidAnsi(nullptr, 3), 3u);
  EXPECT_EQ(QNTextUtils::FindLostInAnsi(nullptr, 3), 3u);
}

}  // namespace
