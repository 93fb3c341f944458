// SPDX-License-Identifier: MIT
#include <quarnfc/base64.h>

#include <gtest/gtest.h>

#include "tests/codec/codec_reference.h"

namespace codec_test {
namespace {

struct Base64Case {
  const char* data;
  const char* text;
};

// RFC 4648, section 10.
constexpr Base64Case kBase64Cases[] = {{"", ""},
                                       {"f", "Zg=="},
                                       {"fo", "Zm8="},
                                       {"foo", "Zm9v"},
                                       {"foob", "Zm9vYg=="},
                                       {"fooba", "Zm9vYmE="},
                                       {"foobar", "Zm9vYmFy"}};

TEST(Base64, PublishedVectorsEncode) {
  for (const auto& [data, text] : kBase64Cases) {
    EXPECT_EQ(EncodeA<Base64>(ToBytes(data)), text);
    EXPECT_EQ(EncodeW<Base64>(ToBytes(data)), text);
  }
}

TEST(Base64, PublishedVectorsDecode) {
  for (const auto& [data, text] : kBase64Cases) {
    const Bytes expected = ToBytes(data);
    for (Decoded decoded : {DecodeA<Base64>(text), DecodeW<Base64>(text)}) {
      EXPECT_EQ(decoded.count, static_cast<int>(expected.size())) << text;
      decoded.buffer.resize(expected.size());
      EXPECT_EQ(decoded.buffer, expected) << text;
    }
  }
}

TEST(Base64, PaddingMayBeMissing) {
  EXPECT_EQ(DecodeA<Base64>("Zg"), (Decoded{1, false, {'f', 0}}));
  EXPECT_EQ(DecodeA<Base64>("Zm8"), (Decoded{2, false, {'f', 'o', 0}}));
}

TEST(Base64, DecodingStopsAtTheCount) {
  unsigned char* data = nullptr;
  ASSERT_EQ(QNBase64::qnDecodeBase64A("Zm9v", 2, &data), 1);
  EXPECT_EQ(data[0], 'f');
  qnFreeMem(data);
}

TEST(Base64, BlankInsideIsForeign) { EXPECT_TRUE(DecodeA<Base64>("Zm 9v").refused); }

TEST(Base64, LeadingPadGivesNoBytesAndABufferOfZeros) {
  EXPECT_EQ(DecodeA<Base64>("=abc"), (Decoded{0, false, {0, 0, 0, 0}}));
}

TEST(Base64, OneCharacterGivesNoByte) {
  EXPECT_EQ(DecodeA<Base64>("Z"), (Decoded{0, false, {25 << 2}}));
}

TEST(Base64, UrlSafeAlphabetIsForeign) {
  EXPECT_TRUE(DecodeA<Base64>("ab-_").refused);
  EXPECT_FALSE(DecodeA<Base64>("ab+/").refused);
}

}  // namespace
}  // namespace codec_test
