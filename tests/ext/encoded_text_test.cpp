// SPDX-License-Identifier: MIT
// Documents in an encoding that has to be found first. The code page is 936 in every run.
#include <quarnfc/ext/encoded_text.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using quarnfc::ext::ByteOrderMark;
using quarnfc::ext::Charset;
using quarnfc::ext::DetectEncoding;
using quarnfc::ext::EncodeText;
using quarnfc::ext::EncodeTextLossy;
using quarnfc::ext::IsAscii;
using quarnfc::ext::TextDecoder;
using quarnfc::ext::TextEncoding;
using quarnfc::ext::TextLoss;
using namespace std::string_literals;

struct Sample {
  std::string bytes;
  std::string text;
  TextEncoding encoding;
};

const std::string kSmiling = "\xF0\x9F\x98\x80";

const Sample kSamples[] = {
    {"", "", {Charset::kUtf8, false}},
    {"plain", "plain", {Charset::kUtf8, false}},
    {"a\xE4\xB8\xAD" + kSmiling, "a\xE4\xB8\xAD" + kSmiling, {Charset::kUtf8, false}},
    {"\xEF\xBB\xBF" + kSmiling, kSmiling, {Charset::kUtf8, true}},
    {"\xEF\xBB\xBF", "", {Charset::kUtf8, true}},
    {"\xFF\xFE"s + "a\0\x2D\x4E"s, "a\xE4\xB8\xAD", {Charset::kUtf16Le, true}},
    {"\xFE\xFF"s + "\0a\x4E\x2D"s, "a\xE4\xB8\xAD", {Charset::kUtf16Be, true}},
    {"\xFF\xFE\x3D\xD8\x00\xDE"s, kSmiling, {Charset::kUtf16Le, true}},
    {"a\0\x2D\x4E"s, "a\xE4\xB8\xAD", {Charset::kUtf16Le, false}},
    {"\0a\x4E\x2D"s, "a\xE4\xB8\xAD", {Charset::kUtf16Be, false}},
    {"a\xD6\xD0", "a\xE4\xB8\xAD", {Charset::kAnsi, false}},
};

std::string Decoded(TextDecoder& decoder, std::string_view bytes, std::size_t piece) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += piece) {
    EXPECT_TRUE(decoder.Decode(bytes.substr(i, piece), false, text));
  }
  EXPECT_TRUE(decoder.Decode("", true, text));
  return text;
}

TEST(EncodedText, EncodingsAreFoundAndDocumentsComeBackByteForByte) {
  for (const Sample& sample : kSamples) {
    EXPECT_EQ(DetectEncoding(sample.bytes), sample.encoding) << sample.text;
    TextDecoder decoder;
    EXPECT_EQ(Decoded(decoder, sample.bytes, sample.bytes.size() + 1), sample.text);
    EXPECT_EQ(decoder.Found(), sample.encoding) << sample.text;
    const std::string mark(sample.encoding.mark ? ByteOrderMark(sample.encoding.charset)
                                                : std::string_view());
    EXPECT_EQ(mark + EncodeText(sample.text, sample.encoding).value(), sample.bytes);
    EXPECT_EQ(mark + EncodeTextLossy(sample.text, sample.encoding), sample.bytes);
  }
}

TEST(EncodedText, PiecesOfAnySizeGiveTheSameText) {
  for (const Sample& sample : kSamples) {
    for (std::size_t piece = 1; piece <= sample.bytes.size(); ++piece) {
      TextDecoder decoder;
      EXPECT_EQ(Decoded(decoder, sample.bytes, piece), sample.text) << piece;
      EXPECT_EQ(decoder.Found(), sample.encoding);
    }
  }
}

// Characters lie across every border between the pieces that the decoder works on by itself.
TEST(EncodedText, LongDocumentsOfEveryEncodingAreDecodedWhole) {
  for (std::size_t shift = 0; shift < 4; ++shift) {
    std::string text(shift, 'x');
    for (int i = 0; i < 5000; ++i) text += "\xE4\xB8\xAD";
    for (const Charset charset :
         {Charset::kUtf8, Charset::kUtf16Le, Charset::kUtf16Be, Charset::kAnsi}) {
      const TextEncoding encoding = {charset, false};
      const std::string bytes = EncodeText(text, encoding).value();
      EXPECT_EQ(EncodeTextLossy(text, encoding), bytes);
      TextDecoder decoder(encoding);
      std::string decoded;
      ASSERT_TRUE(decoder.Decode(bytes, true, decoded));
      EXPECT_EQ(decoded, text);
    }
  }
}

TEST(EncodedText, BytesThatAreNoTextAreRefusedAtTheirOffsetOrReplaced) {
  const struct {
    std::string bytes;
    std::optional<TextEncoding> encoding;
    std::string before;
    unsigned long long offset;
    std::string replaced;
  } cases[] = {
      {"ab\xFE\x20z", std::nullopt, "ab", 2, ""},
      {"\xEF\xBB\xBF"
       "a\xD6z",
       std::nullopt, "a", 4, "a\xEF\xBF\xBDz"},
      {"a\xE4\xB8", TextEncoding{Charset::kUtf8, false}, "a", 1, "a\xEF\xBF\xBD\xEF\xBF\xBD"},
      {"\xFF\xFE\x3D\xD8"s + "a\0"s, std::nullopt, "", 2,
       "\xEF\xBF\xBD"
       "a"},
      {"\xFE\xFF\0a\0"s, std::nullopt, "a", 4, "a\xEF\xBF\xBD"},
      {"a\xD6", TextEncoding{Charset::kAnsi, false}, "a", 1, "a\xEF\xBF\xBD"},
      {"\xD6\xD0\xFE\x20z", std::nullopt, "\xE4\xB8\xAD", 2, "\xE4\xB8\xAD\xEF\xBF\xBD z"},
  };
  for (const auto& each : cases) {
    TextDecoder strict(each.encoding);
    std::string text;
    EXPECT_FALSE(strict.Decode(each.bytes, true, text)) << each.bytes;
    EXPECT_EQ(text, each.before);
    EXPECT_EQ(strict.ErrorOffset(), each.offset);
    if (each.replaced.empty()) continue;
    TextDecoder lossy(each.encoding, true);
    text.clear();
    EXPECT_TRUE(lossy.Decode(each.bytes, true, text));
    EXPECT_EQ(text, each.replaced);
  }
}

TEST(EncodedText, AsciiIsToldFromTheRest) {
  TextDecoder ascii;
  TextDecoder other;
  std::string text;
  EXPECT_TRUE(ascii.Decode("abcdef", false, text));
  EXPECT_TRUE(ascii.OnlyAscii());
  EXPECT_TRUE(other.Decode("ab\xE4\xB8\xAD", true, text));
  EXPECT_FALSE(other.OnlyAscii());
  EXPECT_TRUE(IsAscii("abc\x7F"));
  EXPECT_FALSE(IsAscii("abc\x80"));
}

TEST(EncodedText, WhatAnEncodingLacksIsToldOrReplaced) {
  const TextEncoding ansi = {Charset::kAnsi, false};
  TextLoss loss;
  EXPECT_FALSE(EncodeText("a" + kSmiling + "\xE4\xB8\xAD", ansi, &loss));
  EXPECT_EQ(loss.offset, 1u);
  EXPECT_EQ(loss.length, 4u);
  EXPECT_EQ(EncodeTextLossy("a" + kSmiling + "\xE4\xB8\xAD\xFF", ansi), "a?\xD6\xD0?");
  EXPECT_FALSE(EncodeText("a\xFF", {Charset::kUtf8, false}, &loss));
  EXPECT_EQ(EncodeTextLossy("a\xFFz", {Charset::kUtf8, false}), "a\xEF\xBF\xBDz");
  EXPECT_EQ(EncodeTextLossy("\xFFz", {Charset::kUtf16Be, false}), "\xFF\xFD\0z"s);
}

TEST(EncodedText, ManyLostCharactersAreReplacedEach) {
  std::string text;
  std::string expected;
  for (int i = 0; i < 3000; ++i) {
    text += "ab" + kSmiling;
    expected += "ab?";
  }
  EXPECT_EQ(EncodeTextLossy(text, {Charset::kAnsi, false}), expected);
}

}  // namespace
