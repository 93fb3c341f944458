// SPDX-License-Identifier: MIT
#include <quarnfc/base32.h>

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/codec/codec_reference.h"

namespace codec_test {
namespace {

// RFC 4648 Base32 text in the library's alphabet: the same values, without padding.
std::string FromStandard(const std::string& text) {
  const std::string standard = "ABCDEFGHIJKLMNOPQRSTUVWXYZ234567";
  std::string result;
  for (const char ch : text) {
    if (ch != '=') result.push_back(Base32::kAlphabet[standard.find(ch)]);
  }
  return result;
}

struct Base32Case {
  const char* data;
  const char* standard_text;
};

// RFC 4648, section 10.
constexpr Base32Case kBase32Cases[] = {{"", ""},
                                       {"f", "MY======"},
                                       {"fo", "MZXQ===="},
                                       {"foo", "MZXW6==="},
                                       {"foob", "MZXW6YQ="},
                                       {"fooba", "MZXW6YTB"},
                                       {"foobar", "MZXW6YTBOI======"}};

TEST(Base32, PublishedVectorsEncodeInTheLibrarysAlphabet) {
  for (const auto& [data, standard_text] : kBase32Cases) {
    EXPECT_EQ(EncodeA<Base32>(ToBytes(data)), FromStandard(standard_text));
    EXPECT_EQ(EncodeW<Base32>(ToBytes(data)), FromStandard(standard_text));
  }
}

TEST(Base32, PublishedVectorsDecode) {
  for (const auto& [data, standard_text] : kBase32Cases) {
    const Bytes expected = ToBytes(data);
    for (Decoded decoded : {DecodeA<Base32>(FromStandard(standard_text)),
                            DecodeW<Base32>(FromStandard(standard_text))}) {
      EXPECT_EQ(decoded.count, static_cast<int>(expected.size())) << standard_text;
      decoded.buffer.resize(expected.size());
      EXPECT_EQ(decoded.buffer, expected) << standard_text;
    }
  }
}

TEST(Base32, ShortTexts) {
  EXPECT_EQ(EncodeA<Base32>({0x66}), "my");
  EXPECT_EQ(EncodeA<Base32>({0x66, 0x6F}), "mzxq");
  EXPECT_EQ(EncodeA<Base32>({0xFF}), "14");
  EXPECT_EQ(EncodeW<Base32>({0xFF}), "14");
}

TEST(Base32, RemaindersGiveTwoFourFiveAndSevenCharactersWithoutPadding) {
  constexpr std::size_t kLengths[] = {0, 2, 4, 5, 7, 8, 10, 12, 13, 15, 16};
  for (std::size_t size = 0; size < std::size(kLengths); ++size) {
    EXPECT_EQ(EncodeA<Base32>(RandomBytes(size)).size(), kLengths[size]);
  }
}

TEST(Base32, UpperCaseIsForeign) {
  EXPECT_TRUE(DecodeA<Base32>("MY").refused);
  EXPECT_EQ(DecodeA<Base32>("my"), (Decoded{1, false, {0x66, 0}}));
}

TEST(Base32, DigitsOutsideTheAlphabetAreForeign) {
  for (const char* digit : {"0", "7", "8", "9"}) {
    EXPECT_TRUE(DecodeA<Base32>(std::string("a") + digit).refused) << digit;
  }
}

}  // namespace
}  // namespace codec_test
