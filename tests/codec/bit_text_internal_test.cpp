// SPDX-License-Identifier: MIT
// The sizes that the codecs allocate, up to the largest count a caller can give. They are computed
// in 64 bits, so that nothing wraps around near 4 GiB.
#include "codec/bit_text.h"

#include <gtest/gtest.h>

#include "codec/alphabets.h"

namespace quarnfc::codec {
namespace {

constexpr std::uint64_t kLargest = 0xFFFFFFFF;

template <class Alphabet>
std::uint64_t TextLength(std::uint64_t size) {
  const std::uint64_t groups = (size + Alphabet::kGroupBytes - 1) / Alphabet::kGroupBytes;
  return groups * Alphabet::kGroupChars;
}

template <class Alphabet>
void ExpectRoomForTheTextAndItsTerminator(std::uint64_t size) {
  EXPECT_GT(EncodedCapacity<Alphabet>(size), TextLength<Alphabet>(size)) << size;
}

template <class Alphabet>
void ExpectRoomForTheBytesAndTheLeftOverBits(std::uint64_t length) {
  EXPECT_EQ(DecodedCapacity<Alphabet>(length), length * Alphabet::kBits / 8 + 1) << length;
}

TEST(BitText, CapacityHoldsTheWholeText) {
  for (const std::uint64_t start : {std::uint64_t{0}, kLargest - 64}) {
    for (std::uint64_t size = start; size <= start + 64; ++size) {
      ExpectRoomForTheTextAndItsTerminator<Base64Alphabet>(size);
      ExpectRoomForTheTextAndItsTerminator<Base32Alphabet>(size);
    }
  }
}

TEST(BitText, CapacityGrowsBeyondThirtyTwoBits) {
  EXPECT_EQ(EncodedCapacity<Base64Alphabet>(kLargest), 5726623064u);
  EXPECT_EQ(EncodedCapacity<Base32Alphabet>(kLargest), 6871947680u);
  EXPECT_EQ(DecodedCapacity<Base64Alphabet>(kLargest), 3221225472u);
  EXPECT_EQ(DecodedCapacity<Base32Alphabet>(kLargest), 2684354560u);
}

TEST(BitText, DecodedCapacityHoldsTheBytesAndTheLeftOverBits) {
  for (const std::uint64_t start : {std::uint64_t{0}, kLargest - 64}) {
    for (std::uint64_t length = start; length <= start + 64; ++length) {
      ExpectRoomForTheBytesAndTheLeftOverBits<Base64Alphabet>(length);
      ExpectRoomForTheBytesAndTheLeftOverBits<Base32Alphabet>(length);
    }
  }
}

TEST(BitText, ResultThatCannotBeHadIsNull) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "the sanitizer ends the process instead";
#endif
  EXPECT_EQ(TryAllocResult<char>(std::uint64_t{1} << 62), nullptr);
}

}  // namespace
}  // namespace quarnfc::codec
