// SPDX-License-Identifier: MIT
// Codecs and digests through the flat C interface, with published vectors.
#include <gtest/gtest.h>

#include <quarnfc/c/codec.h>

#include <climits>
#include <string>

#include "tests/c/results.h"

namespace {

using c_results::Error;
using c_results::Taken;

std::string Bytes(unsigned char* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  qnFreeMem(data);
  return bytes;
}

}  // namespace

TEST(CInterfaceCodec, EncodesAndDecodes) {
  // RFC 4648, section 10.
  const char* const vectors[][2] = {{"", ""},
                                    {"f", "Zg=="},
                                    {"fo", "Zm8="},
                                    {"foo", "Zm9v"},
                                    {"foob", "Zm9vYg=="},
                                    {"fooba", "Zm9vYmE="},
                                    {"foobar", "Zm9vYmFy"}};
  for (const auto& vector : vectors) {
    const std::string plain = vector[0];
    EXPECT_EQ(Taken(qncBase64Encode(plain.data(), plain.size(), nullptr)), vector[1]);
    std::size_t size = 99;
    unsigned char* data = qncBase64Decode(vector[1], &size, nullptr);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(Bytes(data, size), plain);

    const std::string base32 = Taken(qncBase32Encode(plain.data(), plain.size(), nullptr));
    data = qncBase32Decode(base32.c_str(), &size, nullptr);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(Bytes(data, size), plain);
  }
}

TEST(CInterfaceCodec, RefusesWhatIsNotInTheAlphabet) {
  Error error;
  std::size_t size = 99;
  EXPECT_EQ(qncBase64Decode("Zm 9v", &size, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "5: Quarn: the text has a character outside the alphabet");
  EXPECT_EQ(size, 0u);
  EXPECT_EQ(qncBase32Decode("A", &size, error.Out()), nullptr);
  EXPECT_EQ(qncBase64Decode(nullptr, &size, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(qncBase64Decode("Zg==", nullptr, nullptr), nullptr);
}

TEST(CInterfaceCodec, GivesDigests) {
  EXPECT_EQ(Taken(qncMd5("abc", 3, nullptr)), "900150983cd24fb0d6963f7d28e17f72");  // RFC 1321
  EXPECT_EQ(Taken(qncMd5(nullptr, 0, nullptr)), "d41d8cd98f00b204e9800998ecf8427e");
  EXPECT_EQ(Taken(qncCrc64("123456789", 9, nullptr)), "66A2364420E6C605");
}

TEST(CInterfaceCodec, GivesTheHmac) {
  unsigned char digest[32] = {};  // RFC 4231, test case 2
  ASSERT_EQ(qncHmacSha256("Jefe", 4, "what do ya want for nothing?", 28, digest, nullptr), 1);
  EXPECT_EQ(Taken(qncBase64Encode(digest, sizeof(digest), nullptr)),
            "W9zBRr9gdU5qBCQmCJV1x1oAPwidJzmDnexYuWTsOEM=");
  EXPECT_EQ(qncHmacSha256("Jefe", 4, "", 0, nullptr, nullptr), 0);
}

TEST(CInterfaceCodec, RefusesMoreThanTheSizesItStates) {
  Error error;
  char byte = 0;
  const std::size_t too_much = std::size_t{UINT_MAX} + 1;
  EXPECT_EQ(qncBase64Encode(&byte, too_much, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: the data is too long");
  EXPECT_EQ(qncBase32Encode(&byte, too_much, nullptr), nullptr);
  EXPECT_EQ(qncMd5(&byte, too_much, nullptr), nullptr);
  EXPECT_EQ(qncCrc64(&byte, too_much, nullptr), nullptr);
  unsigned char digest[32];
  EXPECT_EQ(qncHmacSha256(&byte, std::size_t{INT_MAX} + 1, &byte, 1, digest, nullptr), 0);
}
