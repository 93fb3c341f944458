// SPDX-License-Identifier: MIT
#include <quarnfc/md5.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "tests/codec/results.h"

namespace codec_test {
namespace {

std::string Lower(const Bytes& data) {
  char text[33];
  QNMD5::qnGetMD5StrLowerA(data.data(), static_cast<unsigned>(data.size()), text);
  return text;
}

// --- the digest written down plainly: the padded message as an array of words, packed by OR-ing
// each byte widened as a signed value (or, for the standard digest, as an unsigned one) ----------

enum class Widening { kSigned, kUnsigned };

std::vector<std::uint32_t> PackMessage(const Bytes& data, Widening widening) {
  const std::size_t size = data.size();
  std::vector<std::uint32_t> words((((size + 8) >> 6) + 1) * 16);
  for (std::size_t i = 0; i < size; ++i) {
    const std::int32_t value = widening == Widening::kSigned
                                   ? static_cast<std::int32_t>(static_cast<signed char>(data[i]))
                                   : static_cast<std::int32_t>(data[i]);
    words[i / 4] |= static_cast<std::uint32_t>(value) << 8 * (i % 4);
  }
  words[size / 4] |= 0x80u << 8 * (size % 4);
  words[words.size() - 2] = static_cast<std::uint32_t>(size * 8);
  return words;
}

void Transform(std::uint32_t state[4], const std::uint32_t* block) {
  constexpr int kRotations[4][4] = {
      {7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}};
  std::uint32_t a = state[0], b = state[1], c = state[2], d = state[3];
  for (int i = 0; i < 64; ++i) {
    std::uint32_t mix = 0;
    int word = 0;
    switch (i / 16) {
      case 0:
        mix = (b & c) | (~b & d), word = i;
        break;
      case 1:
        mix = (d & b) | (~d & c), word = (5 * i + 1) % 16;
        break;
      case 2:
        mix = b ^ c ^ d, word = (3 * i + 5) % 16;
        break;
      default:
        mix = c ^ (b | ~d), word = (7 * i) % 16;
        break;
    }
    const auto sine = static_cast<std::uint32_t>(std::floor(std::fabs(std::sin(i + 1.0)) * 0x1p32));
    const std::uint32_t sum = a + mix + sine + block[word];
    const int rotation = kRotations[i / 16][i % 4];
    a = d;
    d = c;
    c = b;
    b += sum << rotation | sum >> (32 - rotation);
  }
  state[0] += a, state[1] += b, state[2] += c, state[3] += d;
}

std::string ReferenceDigest(const Bytes& data, Widening widening) {
  std::uint32_t state[4] = {0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476};
  const std::vector<std::uint32_t> words = PackMessage(data, widening);
  for (std::size_t i = 0; i < words.size(); i += 16) Transform(state, &words[i]);
  std::string text;
  for (int i = 0; i < 16; ++i) {
    const unsigned byte = state[i / 4] >> 8 * (i % 4) & 0xFF;
    text += "0123456789abcdef"[byte >> 4];
    text += "0123456789abcdef"[byte & 15];
  }
  return text;
}

std::string Standard(const Bytes& data) { return ReferenceDigest(data, Widening::kUnsigned); }

// --- published values -------------------------------------------------------------------------

TEST(Md5, PublishedVectors) {
  constexpr struct {
    const char* data;
    const char* digest;
  } kCases[] = {// RFC 1321, A.5
                {"", "d41d8cd98f00b204e9800998ecf8427e"},
                {"a", "0cc175b9c0f1b6a831c399e269772661"},
                {"abc", "900150983cd24fb0d6963f7d28e17f72"},
                {"message digest", "f96b697d7cb7938d525a2f31aaf161d0"},
                {"abcdefghijklmnopqrstuvwxyz", "c3fcd3d76192e4007dfb496cca67e13b"},
                {"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789",
                 "d174ab98d277d9f5a5611c2c9f419d9f"},
                {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
                 "57edf4a22be3c955ac49da2e2107b67a"}};
  for (const auto& [data, digest] : kCases) {
    EXPECT_EQ(Lower(ToBytes(data)), digest);
    EXPECT_EQ(Standard(ToBytes(data)), digest) << "the reference itself";
  }
}

TEST(Md5, SevenBitTextOfEveryLengthGivesTheStandardDigest) {
  for (unsigned size = 0; size <= 300; ++size) {
    Bytes data = RandomBytes(size, size);
    for (unsigned char& byte : data) byte &= 0x7F;
    EXPECT_EQ(Lower(data), Standard(data)) << size;
  }
}

// --- the packing rule -------------------------------------------------------------------------

TEST(Md5, RandomBytesOfEveryLengthFollowThePackingRule) {
  for (unsigned size = 0; size <= 300; ++size) {
    const Bytes data = RandomBytes(size, 1000 + size);
    EXPECT_EQ(Lower(data), ReferenceDigest(data, Widening::kSigned)) << size;
  }
}

TEST(Md5, OneHighByteAtEveryPlaceFollowsThePackingRule) {
  for (unsigned size = 1; size <= 130; ++size) {
    for (unsigned at = 0; at < size; ++at) {
      Bytes data(size, 'x');
      data[at] = static_cast<unsigned char>(0x80 + at % 128);
      ASSERT_EQ(Lower(data), ReferenceDigest(data, Widening::kSigned)) << size << ' ' << at;
      ASSERT_EQ(Lower(data) == Standard(data), at % 4 == 3) << size << ' ' << at;
    }
  }
}

TEST(Md5, SingleByte80DiffersFromTheStandardDigest) {
  EXPECT_NE(Lower({0x80}), Standard({0x80}));
  EXPECT_EQ(Lower({0x80}), ReferenceDigest({0x80}, Widening::kSigned));
}

TEST(Md5, HighByteInTheLastPlaceOfItsWordGivesTheStandardDigest) {
  EXPECT_EQ(Lower({0, 0, 0, 0x80}), Standard({0, 0, 0, 0x80}));
}

// --- the forms --------------------------------------------------------------------------------

TEST(Md5, DataFormGivesTheStateWords) {
  unsigned words[4];
  QNMD5::qnGetMD5Data("abc", 3, words);
  const unsigned expected[] = {0x98500190, 0xB04FD23C, 0x7D3F96D6, 0x727FE128};
  EXPECT_TRUE(std::equal(words, words + 4, expected));
}

TEST(Md5, TextFormsGiveTheSameDigits) {
  char narrow[34];
  wchar_t wide[34];
  const std::string lower = "900150983cd24fb0d6963f7d28e17f72";
  const std::string upper = "900150983CD24FB0D6963F7D28E17F72";

  const auto expect_narrow = [&](auto function, const std::string& expected) {
    std::fill(std::begin(narrow), std::end(narrow), '#');
    function("abc", 3, narrow);
    EXPECT_EQ(narrow, expected);
    EXPECT_EQ(narrow[33], '#') << "wrote beyond 33 characters";
  };
  const auto expect_wide = [&](auto function, const std::string& expected) {
    std::fill(std::begin(wide), std::end(wide), L'#');
    function("abc", 3, wide);
    EXPECT_EQ(std::string(wide, wide + 32), expected);
    EXPECT_TRUE(wide[32] == L'\0');
    EXPECT_TRUE(wide[33] == L'#') << "wrote beyond 33 characters";
  };
  expect_narrow(QNMD5::qnGetMD5StrLowerA, lower);
  expect_narrow(QNMD5::qnGetMD5StrUpperA, upper);
  expect_wide(QNMD5::qnGetMD5StrLowerW, lower);
  expect_wide(QNMD5::qnGetMD5StrUpperW, upper);
}

TEST(Md5, NullDataCountsAsNoBytes) {
  char text[33];
  QNMD5::qnGetMD5StrLowerA(nullptr, 12, text);
  EXPECT_STREQ(text, "d41d8cd98f00b204e9800998ecf8427e");
}

TEST(Md5, NullResultsAreIgnored) {
  QNMD5::qnGetMD5Data("abc", 3, nullptr);
  QNMD5::qnGetMD5StrLowerA("abc", 3, nullptr);
  QNMD5::qnGetMD5StrUpperW("abc", 3, nullptr);
}

}  // namespace
}  // namespace codec_test
