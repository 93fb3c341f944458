// SPDX-License-Identifier: MIT
// The fast path of Base64 against the plain one, group by group.
#include "codec/base64_x86.h"

#include <gtest/gtest.h>

#include "codec/alphabets.h"
#include "codec/bit_text.h"
#include "platform/cpu.h"
#include "tests/codec/results.h"

namespace quarnfc::codec {
namespace {

using codec_test::Bytes;

class Base64X86 : public testing::Test {
  void SetUp() override {
    if (!quarnfc::platform::CpuHasSsse3()) GTEST_SKIP() << "the processor has no SSSE3";
  }
};

std::string PlainText(const Bytes& data) {
  std::string text(data.size() / 3 * 4, '\0');
  for (std::size_t i = 0; i < data.size() / 3; ++i) {
    EncodeGroup<Base64Alphabet>(&data[3 * i], &text[4 * i]);
  }
  return text;
}

TEST_F(Base64X86, EncodesTheGroupsOfEveryLengthLikeThePlainPath) {
  for (unsigned size = 0; size <= 300; ++size) {
    const Bytes data = codec_test::RandomBytes(size, size);
    std::string text(size * 4 / 3 + 4, '#');
    const std::uint64_t groups = EncodeBase64X86(data.data(), size, text.data());
    ASSERT_LE(groups * 3, size);
    ASSERT_GE(groups * 3 + 16, size) << "leaves at most a register to the plain path";
    EXPECT_EQ(text.substr(0, groups * 4), PlainText(data).substr(0, groups * 4)) << size;
    EXPECT_EQ(text.find_first_not_of('#', groups * 4), std::string::npos) << "wrote beyond";
  }
}

TEST_F(Base64X86, DecodesTheGroupsOfEveryLengthLikeThePlainPath) {
  for (unsigned size = 0; size <= 300; ++size) {
    const Bytes data = codec_test::RandomBytes(size, size);
    const std::string text = PlainText(data);
    Bytes decoded(text.size() / 4 * 3 + 1);
    const std::uint64_t groups = DecodeBase64X86(text.data(), text.size(), decoded.data());
    ASSERT_LE(groups * 4, text.size());
    EXPECT_TRUE(
        std::equal(decoded.begin(), decoded.begin() + static_cast<int>(groups * 3), data.begin()))
        << size;
  }
}

TEST_F(Base64X86, EveryByteAtEveryPlaceStopsOrDecodesLikeThePlainPath) {
  for (int byte = 0; byte < 256; ++byte) {
    for (std::size_t at = 0; at < 16; ++at) {
      std::string text(40, 'q');
      text[at] = static_cast<char>(byte);
      Bytes decoded(31);
      const std::uint64_t groups = DecodeBase64X86(text.data(), text.size(), decoded.data());
      const unsigned char value = ValueOf<Base64Alphabet>(static_cast<char>(byte));
      ASSERT_EQ(groups == 0, value == kForeign) << byte << ' ' << at;
      if (groups == 0) continue;
      Bytes plain(12);
      for (std::size_t i = 0; i < 4; ++i) DecodeGroup<Base64Alphabet>(&text[4 * i], &plain[3 * i]);
      ASSERT_TRUE(std::equal(plain.begin(), plain.end(), decoded.begin())) << byte << ' ' << at;
    }
  }
}

}  // namespace
}  // namespace quarnfc::codec
