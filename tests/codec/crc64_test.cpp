// SPDX-License-Identifier: MIT
#include <quarnfc/crc64.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <thread>

#include "tests/codec/results.h"

namespace codec_test {
namespace {

std::string NarrowCrc(const Bytes& data) {
  return Take(QNCRC64::qnGetCRC64StrA(data.data(), static_cast<unsigned>(data.size())));
}

std::string WideCrc(const Bytes& data) {
  return Take(QNCRC64::qnGetCRC64StrW(data.data(), static_cast<unsigned>(data.size())));
}

// Bit by bit, the most significant bit of the polynomial first: no table and no reflection tricks
// in common with the library.
std::uint64_t BitwiseCrc(const Bytes& data) {
  constexpr std::uint64_t kPolynomial = 0x42F0E1EBA9EA3693;  // ECMA-182 as published
  std::uint64_t remainder = ~std::uint64_t{0};
  for (const unsigned char byte : data) {
    for (int bit = 0; bit < 8; ++bit) {
      const bool out = (remainder >> 63 & 1) != static_cast<std::uint64_t>(byte >> bit & 1);
      remainder = remainder << 1 ^ (out ? kPolynomial : 0);
    }
  }
  std::uint64_t reflected = 0;
  for (int bit = 0; bit < 64; ++bit) reflected |= (remainder >> bit & 1) << (63 - bit);
  return reflected;
}

std::string Hex(std::uint64_t value) {
  char text[17];
  std::snprintf(text, sizeof(text), "%08X%08X", static_cast<unsigned>(value >> 32),
                static_cast<unsigned>(value));
  return text;
}

TEST(Crc64, CheckValueIsTheComplementOfTheCatalogues) {
  constexpr std::uint64_t kXzCheck = 0x995DC9BBDF1939FA;  // CRC-64/XZ of "123456789"
  EXPECT_EQ(NarrowCrc(ToBytes("123456789")), "66A2364420E6C605");
  EXPECT_EQ(NarrowCrc(ToBytes("123456789")), Hex(~kXzCheck));
  EXPECT_EQ(WideCrc(ToBytes("123456789")), "66A2364420E6C605");
}

TEST(Crc64, NoBytesGiveAllOnes) {
  EXPECT_EQ(NarrowCrc({}), "FFFFFFFFFFFFFFFF");
  EXPECT_EQ(WideCrc({}), "FFFFFFFFFFFFFFFF");
  EXPECT_EQ(Take(QNCRC64::qnGetCRC64StrA(nullptr, 9)), "FFFFFFFFFFFFFFFF");
}

TEST(Crc64, EveryLengthEqualsTheBitwiseRemainder) {
  for (unsigned size = 0; size <= 300; ++size) {
    const Bytes data = RandomBytes(size, size);
    EXPECT_EQ(NarrowCrc(data), Hex(BitwiseCrc(data))) << size;
    EXPECT_EQ(WideCrc(data), Hex(BitwiseCrc(data))) << size;
  }
}

TEST(Crc64, UnalignedDataEqualsTheBitwiseRemainder) {
  const Bytes data = RandomBytes(100);
  for (std::size_t skip = 0; skip < 17; ++skip) {
    const Bytes part(data.begin() + static_cast<std::ptrdiff_t>(skip), data.end());
    EXPECT_EQ(Take(QNCRC64::qnGetCRC64StrA(data.data() + skip,
                                           static_cast<unsigned>(data.size() - skip))),
              Hex(BitwiseCrc(part)));
  }
}

TEST(Crc64, FirstCallsOnSeveralThreadsAgree) {
  std::vector<std::string> results(4);
  std::vector<std::thread> threads;
  threads.reserve(results.size());
  for (std::string& result : results) {
    threads.emplace_back([&result] { result = NarrowCrc(ToBytes("123456789")); });
  }
  for (std::thread& thread : threads) thread.join();
  for (const std::string& result : results) EXPECT_EQ(result, "66A2364420E6C605");
}

}  // namespace
}  // namespace codec_test
