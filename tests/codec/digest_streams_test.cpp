// SPDX-License-Identifier: MIT
// Digests of messages in pieces.
#include <quarnfc/crc64.h>
#include <quarnfc/digest_streams.h>
#include <quarnfc/hmac_sha256.h>
#include <quarnfc/md5.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <type_traits>

#include "tests/codec/results.h"

namespace {

using codec_test::Bytes;
using codec_test::RandomBytes;

std::string Hex(const unsigned char* digest, int size) {
  return static_cast<const char*>(QNDigestUtils::HexText(digest, size, false));
}

template <class Stream>
std::string Digest(const std::string& message) {
  unsigned char digest[Stream::eDigestBytes];
  Stream::Digest(message.data(), message.size(), digest);
  return Hex(digest, Stream::eDigestBytes);
}

// RFC 1321, appendix A.5.
TEST(DigestStreams, Md5VectorsOfTheStandard) {
  EXPECT_EQ(Digest<CQNMD5Stream>(""), "d41d8cd98f00b204e9800998ecf8427e");
  EXPECT_EQ(Digest<CQNMD5Stream>("a"), "0cc175b9c0f1b6a831c399e269772661");
  EXPECT_EQ(Digest<CQNMD5Stream>("message digest"), "f96b697d7cb7938d525a2f31aaf161d0");
  EXPECT_EQ(Digest<CQNMD5Stream>("12345678901234567890123456789012345678901234567890123456789012345"
                                 "678901234567890"),
            "57edf4a22be3c955ac49da2e2107b67a");
}

// Bytes of 0x80 and more, where QNMD5 goes its own way. Expected value: md5sum.
TEST(DigestStreams, StandardMd5TakesBytesUnsigned) {
  EXPECT_EQ(Digest<CQNMD5Stream>("\x80"), "8d39dd7eef115ea6975446ef4082951f");
  EXPECT_NE(Digest<CQNPackedMD5Stream>("\x80"), "8d39dd7eef115ea6975446ef4082951f");
}

// FIPS 180-4's examples.
TEST(DigestStreams, Sha256VectorsOfTheStandard) {
  EXPECT_EQ(Digest<CQNSHA256Stream>(""),
            "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(Digest<CQNSHA256Stream>("abc"),
            "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(Digest<CQNSHA256Stream>("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
            "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
}

// RFC 4231, test case 2.
TEST(DigestStreams, HmacVectorOfTheStandard) {
  unsigned char digest[32];
  CQNHMACSHA256Stream::Digest("Jefe", 4, "what do ya want for nothing?", 28, digest);
  EXPECT_EQ(Hex(digest, 32), "5bdcc146bf60754e6a042426089575c75a003f089d2739839dec58b964ec3843");
}

// Appends message in pieces of the size.
template <class Stream>
void Append(Stream& stream, const Bytes& message, std::size_t piece) {
  for (std::size_t at = 0; at < message.size(); at += piece) {
    stream.Update(message.data() + at, std::min(piece, message.size() - at));
  }
}

template <class Stream>
void ExpectPiecesDoNotMatter(Stream stream) {
  for (const std::size_t size : {0u, 1u, 55u, 56u, 63u, 64u, 65u, 119u, 120u, 128u, 1000u}) {
    const Bytes message = RandomBytes(size, static_cast<unsigned>(size) + 1);
    unsigned char whole[Stream::eDigestBytes];
    stream.Update(message.data(), message.size());
    stream.Finish(whole);
    for (const std::size_t piece : {1u, 3u, 63u, 64u, 65u, 200u}) {
      unsigned char digest[Stream::eDigestBytes];
      Append(stream, message, piece);
      stream.Finish(digest);
      EXPECT_TRUE(std::equal(whole, whole + sizeof(whole), digest)) << size << ' ' << piece;
    }
  }
}

TEST(DigestStreams, PiecesDoNotMatter) {
  ExpectPiecesDoNotMatter(CQNMD5Stream());
  ExpectPiecesDoNotMatter(CQNPackedMD5Stream());
  ExpectPiecesDoNotMatter(CQNSHA256Stream());
  ExpectPiecesDoNotMatter(CQNHMACSHA256Stream("key", 3));
  CQNCRC64Stream crc;
  const Bytes message = RandomBytes(1000);
  for (const std::size_t piece : {1u, 15u, 16u, 17u, 999u}) {
    Append(crc, message, piece);
    EXPECT_EQ(crc.Finish(), CQNCRC64Stream::Digest(message.data(), message.size())) << piece;
  }
}

TEST(DigestStreams, TheStreamsAgreeWithTheFunctionsOfOneCall) {
  for (unsigned size = 0; size < 300; ++size) {
    const Bytes message = RandomBytes(size, size);
    unsigned char digest[32];
    char md5[33];
    QNMD5::qnGetMD5StrLowerA(message.data(), size, md5);
    CQNPackedMD5Stream::Digest(message.data(), size, digest);
    EXPECT_EQ(Hex(digest, 16), md5) << size;

    char hmac[32];
    int length = 32;
    QNHMACSHA::qnHMAC_SHA256("a key", 5, message.data(), static_cast<int>(size), hmac, &length);
    CQNHMACSHA256Stream::Digest("a key", 5, message.data(), size, digest);
    EXPECT_TRUE(std::equal(digest, digest + 32, reinterpret_cast<unsigned char*>(hmac))) << size;

    const std::string text = codec_test::Take(QNCRC64::qnGetCRC64StrA(message.data(), size));
    EXPECT_EQ(std::stoull(text, nullptr, 16), CQNCRC64Stream::Digest(message.data(), size));
  }
}

TEST(DigestStreams, FinishAndInitStartANewMessage) {
  CQNSHA256Stream stream;
  unsigned char digest[32];
  stream.Update("left over", 9);
  stream.Init();
  stream.Update("abc", 3);
  stream.Finish(digest);
  EXPECT_EQ(Hex(digest, 4), "ba7816bf");
  stream.Update("abc", 3);
  stream.Finish(digest);
  EXPECT_EQ(Hex(digest, 4), "ba7816bf");
}

TEST(DigestStreams, AKeyServesSeveralMessagesAndCanBeReplaced) {
  CQNHMACSHA256Stream stream("Jefe", 4);
  unsigned char first[32], second[32], expected[32];
  stream.Update("message", 7);
  stream.Finish(first);
  stream.Update("message", 7);
  stream.Finish(second);
  EXPECT_TRUE(std::equal(first, first + 32, second));
  stream.Init(nullptr, 0);
  stream.Update("message", 7);
  stream.Finish(second);
  CQNHMACSHA256Stream::Digest("", 0, "message", 7, expected);
  EXPECT_TRUE(std::equal(second, second + 32, expected));
  CQNHMACSHA256Stream keyless;
  keyless.Update("message", 7);
  keyless.Finish(second);
  EXPECT_TRUE(std::equal(second, second + 32, expected));
}

TEST(DigestStreams, ACopyGoesOnByItself) {
  CQNMD5Stream stream;
  stream.Update("a", 1);
  CQNMD5Stream copy = stream;
  copy.Update("bc", 2);
  unsigned char digest[16];
  stream.Finish(digest);
  EXPECT_EQ(Hex(digest, 16), Digest<CQNMD5Stream>("a"));
  copy.Finish(digest);
  EXPECT_EQ(Hex(digest, 16), Digest<CQNMD5Stream>("abc"));
  EXPECT_TRUE(std::is_trivially_copyable_v<CQNHMACSHA256Stream>);
}

TEST(DigestStreams, NullsAreNoBytesAndNoDigest) {
  CQNSHA256Stream stream;
  stream.Update("abc", 3);
  stream.Finish(nullptr);
  stream.Update(nullptr, 5);
  unsigned char digest[32];
  stream.Finish(digest);
  EXPECT_EQ(Hex(digest, 32), Digest<CQNSHA256Stream>(""));
  EXPECT_EQ(CQNCRC64Stream::Digest(nullptr, 5), ~std::uint64_t{0});
}

TEST(DigestStreams, HexTextHasTwoDigitsAByte) {
  const unsigned char bytes[] = {0x00, 0x0F, 0xAB};
  EXPECT_STREQ(QNDigestUtils::HexText(bytes, 3, false), "000fab");
  EXPECT_STREQ(QNDigestUtils::HexText(bytes, 3, true), "000FAB");
  EXPECT_STREQ(QNDigestUtils::HexText(bytes, 0, true), "");
  EXPECT_STREQ(QNDigestUtils::HexText(nullptr, 3, true), "");
}

}  // namespace
