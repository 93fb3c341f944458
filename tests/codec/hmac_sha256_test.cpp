// SPDX-License-Identifier: MIT
#include <quarnfc/digest_streams.h>
#include <quarnfc/hmac_sha256.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <utility>

#include "tests/codec/results.h"
#include "tests/support/hex.h"

namespace codec_test {
namespace {

using quarnfc_test::Hex;

std::string Hmac(const std::string& key, const std::string& data, int length = 32) {
  unsigned char digest[32];
  QNHMACSHA::qnHMAC_SHA256(key.data(), static_cast<int>(key.size()), data.data(),
                           static_cast<int>(data.size()), reinterpret_cast<char*>(digest), &length);
  return Hex(digest, length > 0 ? static_cast<std::size_t>(length) : 0);
}

TEST(HmacSha256, PublishedVectors) {
  const struct {
    std::string key;
    std::string data;
    std::string digest;
  } kCases[] = {
      // RFC 4231, section 4
      {std::string(20, '\x0b'), "Hi There",
       "b0344c61d8db38535ca8afceaf0bf12b881dc200c9833da726e9376c2e32cff7"},
      {"Jefe", "what do ya want for nothing?",
       "5bdcc146bf60754e6a042426089575c75a003f089d2739839dec58b964ec3843"},
      {std::string(20, '\xaa'), std::string(50, '\xdd'),
       "773ea91e36800e46854db8ebd09181a72959098b3ef8c122d9635514ced565fe"},
      {"\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0a\x0b\x0c\x0d\x0e\x0f\x10\x11\x12\x13\x14\x15\x16"
       "\x17\x18\x19",
       std::string(50, '\xcd'), "82558a389a443c0ea4cc819899f2083a85f0faa3e578f8077a2e3ff46729665b"},
      {std::string(131, '\xaa'), "Test Using Larger Than Block-Size Key - Hash Key First",
       "60e431591ee0b67f0d8a26aacbf5b77f8e0bc6213728c5140546040f0ee37f54"},
      {std::string(131, '\xaa'),
       "This is a test using a larger than block-size key and a larger than block-size data. The "
       "key needs to be hashed before being used by the HMAC algorithm.",
       "9b09ffa71b942fcb27635fbcd5b0e944bfdc63644f0713938a7f51535c3a35e2"}};
  for (const auto& [key, data, digest] : kCases) EXPECT_EQ(Hmac(key, data), digest);
}

TEST(HmacSha256, PublishedTruncatedVector) {  // RFC 4231, test case 5
  EXPECT_EQ(Hmac(std::string(20, '\x0c'), "Test With Truncation", 16),
            "a3b6167473100ee06e0c796c2955552b");
}

TEST(HmacSha256, LengthIsLoweredToTheDigest) {
  for (const int given : {32, 33, 64, INT_MAX}) {
    char digest[64];
    std::fill(std::begin(digest), std::end(digest), '#');
    int length = given;
    QNHMACSHA::qnHMAC_SHA256("key", 3, "data", 4, digest, &length);
    EXPECT_EQ(length, 32);
    EXPECT_EQ(std::count(digest + 32, digest + 64, '#'), 32) << "wrote beyond the digest";
  }
}

TEST(HmacSha256, ShortLengthGivesTheFirstBytes) {
  const std::string whole = Hmac("key", "data");
  for (int length = 1; length <= 32; ++length) {
    EXPECT_EQ(Hmac("key", "data", length), whole.substr(0, 2 * length));
  }
}

TEST(HmacSha256, LengthOfZeroOrBelowCopiesNothingAndStays) {
  for (const int given : {0, -1, INT_MIN}) {
    char digest[32];
    std::fill(std::begin(digest), std::end(digest), '#');
    int length = given;
    QNHMACSHA::qnHMAC_SHA256("key", 3, "data", 4, digest, &length);
    EXPECT_EQ(length, given);
    EXPECT_EQ(std::count(std::begin(digest), std::end(digest), '#'), 32);
  }
}

TEST(HmacSha256, KeyAboveOneBlockIsReplacedByItsDigest) {
  // SHA-256 of 65 letters "a".
  const std::string digest_of_key =
      "\x63\x53\x61\xc4\x8b\xb9\xea\xb1\x41\x98\xe7\x6e\xa8\xab\x7f\x1a\x41\x68\x5d\x6a\xd6\x2a\xa9"
      "\x14\x6d\x30\x1d\x4f\x17\xeb\x0a\xe0";
  EXPECT_EQ(Hmac(std::string(65, 'a'), "data"), Hmac(digest_of_key, "data"));
}

// Around one block, by Python's hmac.
TEST(HmacSha256, KeysUpToOneBlockAreUsedAsTheyStand) {
  const std::pair<std::size_t, const char*> kCases[] = {
      {63, "3616b24344760912e2a604012316373fc2d414d8d21f9ed2fe0d0db74c6f6dc5"},
      {64, "d18cebfa78b60c299f8365c9661dd2f93ef713e32749eba4c31a49cbf1396e16"},
      {65, "22cf81bd37264f18849aa62d4d7db13dabe9a8877c0c58cf2a5ffbb75ef60a9b"}};
  for (const auto& [size, digest] : kCases) {
    const std::string key(size, 'a');
    EXPECT_EQ(Hmac(key, "data"), digest) << size;
    unsigned char bytes[CQNHMACSHA256Stream::eDigestBytes];
    CQNHMACSHA256Stream::Digest(key.data(), key.size(), "data", 4, bytes);
    EXPECT_EQ(Hex(bytes, sizeof(bytes)), digest) << size;
  }
}

TEST(HmacSha256, ShortKeyEqualsItselfFilledUpWithZeros) {
  EXPECT_EQ(Hmac("key", "data"), Hmac(std::string("key") + std::string(61, '\0'), "data"));
}

TEST(HmacSha256, NoKeyAndNoDataAreAccepted) {
  const char* const kEmpty = "b613679a0814d9ec772f95d778c35fc5ff1697c493715653c6c712144292c5ad";
  EXPECT_EQ(Hmac("", ""), kEmpty);
  char digest[32];
  int length = 32;
  QNHMACSHA::qnHMAC_SHA256(nullptr, 5, nullptr, 5, digest, &length);
  EXPECT_EQ(Hex(digest, 32), kEmpty);
  QNHMACSHA::qnHMAC_SHA256("key", -1, "", 0, digest, &length);
  EXPECT_EQ(Hex(digest, 32), kEmpty);
}

TEST(HmacSha256, NullResultsAreIgnored) {
  char digest[32];
  int length = 32;
  QNHMACSHA::qnHMAC_SHA256("key", 3, "data", 4, nullptr, &length);
  QNHMACSHA::qnHMAC_SHA256("key", 3, "data", 4, digest, nullptr);
  EXPECT_EQ(length, 32);
}

TEST(HmacSha256, ResultMayReplaceTheKey) {
  char key_and_digest[32] = "key";
  int length = 32;
  QNHMACSHA::qnHMAC_SHA256(key_and_digest, 3, "data", 4, key_and_digest, &length);
  EXPECT_EQ(Hex(key_and_digest, 32), Hmac("key", "data"));
}

}  // namespace
}  // namespace codec_test
