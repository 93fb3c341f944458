// SPDX-License-Identifier: MIT
#include "codec/sha256.h"

#include <gtest/gtest.h>

#include <string>

#include "codec/sha256_compress.h"
#include "platform/cpu.h"
#include "tests/codec/results.h"
#include "tests/support/hex.h"

namespace {

using quarnfc::codec::Sha256;

std::string Hex(const Sha256::Digest& digest) {
  return quarnfc_test::Hex(digest.data(), digest.size());
}

std::string Sha(const std::string& data) {
  Sha256 hash;
  hash.Update(data.data(), data.size());
  return Hex(hash.Finish());
}

TEST(Sha256, PublishedVectors) {  // FIPS 180, the examples of SHA-256
  EXPECT_EQ(Sha(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(Sha("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(Sha("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
            "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
  EXPECT_EQ(Sha(std::string(1000000, 'a')),
            "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256, PiecesOfAnySizeGiveTheDigestOfTheWhole) {
  const codec_test::Bytes bytes = codec_test::RandomBytes(1000);
  const std::string data(bytes.begin(), bytes.end());
  const std::string whole = Sha(data);
  for (std::size_t piece = 1; piece <= 200; ++piece) {
    Sha256 hash;
    for (std::size_t at = 0; at < data.size(); at += piece) {
      hash.Update(data.data() + at, std::min(piece, data.size() - at));
    }
    EXPECT_EQ(Hex(hash.Finish()), whole) << piece;
  }
}

TEST(Sha256, PlainCodeAndShaExtensionsAgree) {
  if (!quarnfc::platform::CpuHasSha()) GTEST_SKIP() << "the processor has no SHA extensions";
  for (unsigned blocks = 0; blocks <= 20; ++blocks) {
    const codec_test::Bytes data = codec_test::RandomBytes(blocks * Sha256::kBlockBytes, blocks);
    Sha256::State plain = {1, 2, 3, 4, 5, 6, 7, 0xFFFFFFFF};
    Sha256::State extended = plain;
    quarnfc::codec::Sha256CompressPlain(plain.data(), data.data(), blocks);
    quarnfc::codec::Sha256CompressX86(extended.data(), data.data(), blocks);
    EXPECT_EQ(extended, plain) << blocks;
  }
}

}  // namespace
