// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "qn/errors.h"
#include "qn/text/encoding.h"

namespace {

using qn::Charset;
using qn::Encoding;

struct Sample {
  std::string bytes;
  Encoding encoding;
};

// The text "a中😀", or "a中" in the code page.
const Sample kSamples[] = {
    {"a\xE4\xB8\xAD\xF0\x9F\x98\x80", {Charset::kUtf8, false}},
    {"\xEF\xBB\xBF"
     "a\xE4\xB8\xAD\xF0\x9F\x98\x80",
     {Charset::kUtf8, true}},
    {std::string("\xFF\xFE"
                 "a\0\x2D\x4E\x3D\xD8\x00\xDE",
                 10),
     {Charset::kUtf16Le, true}},
    {std::string("\xFE\xFF\0a\x4E\x2D\xD8\x3D\xDE\x00", 10), {Charset::kUtf16Be, true}},
    {std::string("a\0\x2D\x4E\x3D\xD8\x00\xDE", 8), {Charset::kUtf16Le, false}},
    {std::string("\0a\x4E\x2D\xD8\x3D\xDE\x00", 8), {Charset::kUtf16Be, false}},
    {"a\xD6\xD0", {Charset::kAnsi, false}},
};

std::string TextOf(const Sample& sample) {
  const bool whole = sample.encoding.charset != Charset::kAnsi;
  return std::string("a\xE4\xB8\xAD") + (whole ? "\xF0\x9F\x98\x80" : "");
}

TEST(QnEncoding, DocumentsAreRecognisedAndComeBackByteForByte) {
  for (const Sample& sample : kSamples) {
    const qn::Document document = qn::DecodeDocument(sample.bytes, "x");
    EXPECT_EQ(qn::NameOf(document.encoding), qn::NameOf(sample.encoding));
    EXPECT_EQ(document.text, TextOf(sample)) << qn::NameOf(sample.encoding);
    EXPECT_EQ(qn::EncodeDocument(document.text, document.encoding, false), sample.bytes);
  }
}

TEST(QnEncoding, PiecesOfAnySizeGiveTheSameText) {
  for (const Sample& sample : kSamples) {
    for (std::size_t size = 1; size <= sample.bytes.size(); ++size) {
      qn::TextDecoder decoder("x");
      std::string text;
      for (std::size_t i = 0; i < sample.bytes.size(); i += size) {
        text += decoder.Decode(sample.bytes.substr(i, size), false);
      }
      text += decoder.Decode("", true);
      EXPECT_EQ(text, TextOf(sample)) << qn::NameOf(sample.encoding) << ", pieces of " << size;
      EXPECT_EQ(decoder.Found(), sample.encoding);
    }
  }
}

TEST(QnEncoding, AsciiIsToldFromTheRest) {
  qn::TextDecoder ascii("x");
  EXPECT_EQ(ascii.Decode("abc", true), "abc");
  EXPECT_TRUE(ascii.OnlyAscii());
  qn::TextDecoder other("x");
  EXPECT_EQ(other.Decode("ab\xE4\xB8\xAD", true), "ab\xE4\xB8\xAD");
  EXPECT_FALSE(other.OnlyAscii());
}

TEST(QnEncoding, BytesThatAreNoTextAreRefusedUnlessAsked) {
  const struct {
    std::string bytes;
    std::optional<Encoding> encoding;
    const char* message;
    const char* lossy;
  } cases[] = {
      {"ab\xFE z", std::nullopt, "x: byte 2 is no text in code page, and the file is no UTF-8",
       nullptr},
      {"\xEF\xBB\xBF"
       "a\xD6z",
       std::nullopt, "x: byte 4 is no text in UTF-8", "a\xEF\xBF\xBDz"},
      {"a\xE4\xB8", Encoding{Charset::kUtf8, false}, "x: byte 1 is no text in UTF-8", nullptr},
      {std::string("\xFF\xFE\x3D\xD8"
                   "a\0",
                   6),
       std::nullopt, "x: byte 2 is no text in UTF-16 (little-endian) without mark",
       "\xEF\xBF\xBD"
       "a"},
      {std::string("\xFE\xFF\0a\0", 5), std::nullopt,
       "x: byte 4 is no text in UTF-16 (big-endian) without mark", "a\xEF\xBF\xBD"},
  };
  for (const auto& each : cases) {
    try {
      qn::DecodeDocument(each.bytes, "x", each.encoding);
      ADD_FAILURE() << each.message;
    } catch (const qn::Failure& failure) {
      EXPECT_STREQ(failure.what(), each.message);
    }
    const std::string replaced = qn::DecodeDocument(each.bytes, "x", each.encoding, true).text;
    if (each.lossy != nullptr) {
      EXPECT_EQ(replaced, each.lossy);
    }
  }
}

TEST(QnEncoding, CharactersThatTheCodePageLacksAreRefusedUnlessAsked) {
  const Encoding code_page = {Charset::kAnsi, false};
  EXPECT_THROW(qn::EncodeText("a\xF0\x9F\x98\x80", code_page, false), qn::Failure);
  EXPECT_EQ(qn::EncodeText("a\xF0\x9F\x98\x80\xE4\xB8\xAD", code_page, true), "a?\xD6\xD0");
}

TEST(QnEncoding, EncodingsHaveNames) {
  EXPECT_EQ(qn::EncodingFromName("utf-8-mark"), (Encoding{Charset::kUtf8, true}));
  EXPECT_EQ(qn::EncodingFromName("code-page"), (Encoding{Charset::kAnsi, false}));
  EXPECT_THROW(qn::EncodingFromName("latin"), qn::UsageError);
  EXPECT_THROW(qn::EncodingFromName(""), qn::UsageError);
}

}  // namespace
