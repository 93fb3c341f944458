// SPDX-License-Identifier: MIT
// The fast paths of CRC-64 against the plain one.
#include <gtest/gtest.h>

#include "codec/crc64_update.h"
#include "platform/cpu.h"
#include "tests/codec/results.h"

namespace quarnfc::codec {
namespace {

using codec_test::Bytes;

void ExpectLikeThePlainPath(Crc64Update update) {
  const Bytes data = codec_test::RandomBytes(3000);
  for (const std::uint64_t start : {~std::uint64_t{0}, std::uint64_t{0}, std::uint64_t{1} << 63}) {
    for (std::size_t size = 0; size <= 1200; ++size) {
      const std::size_t from = size % 17;  // whatever the alignment
      ASSERT_EQ(update(start, &data[from], size), UpdateCrc64Plain(start, &data[from], size))
          << size;
    }
    ASSERT_EQ(update(start, data.data(), 3000), UpdateCrc64Plain(start, data.data(), 3000));
  }
}

void ExpectEveryBitToCountLikeThePlainPath(Crc64Update update) {
  Bytes data(600);
  for (std::size_t bit = 0; bit < 8 * data.size(); ++bit) {
    data[bit / 8] = static_cast<unsigned char>(1 << bit % 8);
    ASSERT_EQ(update(0, data.data(), data.size()), UpdateCrc64Plain(0, data.data(), data.size()))
        << bit;
    data[bit / 8] = 0;
  }
}

TEST(Crc64Paths, ProductsOfSixteenBytesGiveThePlainRemainder) {
  if (!platform::CpuHasClmul()) GTEST_SKIP() << "the processor has no carry-less products";
  ExpectLikeThePlainPath(UpdateCrc64X86);
  ExpectEveryBitToCountLikeThePlainPath(UpdateCrc64X86);
}

TEST(Crc64Paths, ProductsOfSixtyFourBytesGiveThePlainRemainder) {
  if (!platform::CpuHasWideClmul()) GTEST_SKIP() << "the processor has no wide ones";
  ExpectLikeThePlainPath(UpdateCrc64X86Wide);
  ExpectEveryBitToCountLikeThePlainPath(UpdateCrc64X86Wide);
}

}  // namespace
}  // namespace quarnfc::codec
