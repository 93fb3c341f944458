// SPDX-License-Identifier: MIT
// The fast paths of Base64 and Base32 against the plain ones, group by group.
#include "codec/bit_text_x86.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "codec/alphabets.h"
#include "codec/bit_text_fast.h"
#include "platform/cpu.h"
#include "tests/codec/results.h"

namespace quarnfc::codec {
namespace {

using codec_test::Bytes;

template <class TheAlphabet, class TheChar>
struct Form {
  using Alphabet = TheAlphabet;
  using Char = TheChar;
};
using Forms = testing::Types<Form<Base64Alphabet, char>, Form<Base64Alphabet, wchar_t>,
                             Form<Base32Alphabet, char>, Form<Base32Alphabet, wchar_t>>;

template <class TheForm>
class BitTextX86 : public testing::Test {
 protected:
  using Alphabet = typename TheForm::Alphabet;
  using Char = typename TheForm::Char;
  using Text = std::vector<Char>;
  using Fast = FastPath<Alphabet, Char>;

  static constexpr std::size_t kGroupBytes = Alphabet::kGroupBytes;
  static constexpr std::size_t kGroupChars = Alphabet::kGroupChars;
  // Bytes that a step of encoding may leave to the plain path, and characters one of decoding.
  static constexpr std::size_t kLargestRest = 28;
  static constexpr std::size_t kLargestTextRest = 40;

  void SetUp() override {
    if (!platform::CpuHasAvx2()) GTEST_SKIP() << "the processor has no AVX2";
  }

  static Text PlainText(const Bytes& data) {
    Text text(data.size() / kGroupBytes * kGroupChars);
    for (std::size_t i = 0; i < data.size() / kGroupBytes; ++i) {
      EncodeGroup<Alphabet>(&data[kGroupBytes * i], &text[kGroupChars * i]);
    }
    return text;
  }
};
TYPED_TEST_SUITE(BitTextX86, Forms);

TYPED_TEST(BitTextX86, EncodesTheGroupsOfEveryLengthLikeThePlainPath) {
  using Fixture = BitTextX86<TypeParam>;
  constexpr auto kUntouched = static_cast<typename Fixture::Char>('#');
  for (unsigned size = 0; size <= 400; ++size) {
    const Bytes data = codec_test::RandomBytes(size, size);
    typename Fixture::Text text(EncodedCapacity<typename Fixture::Alphabet>(size), kUntouched);
    const std::uint64_t groups = Fixture::Fast::Encode(data.data(), size, text.data());
    ASSERT_LE(groups * Fixture::kGroupBytes, size);
    ASSERT_GT(groups * Fixture::kGroupBytes + Fixture::kLargestRest, size)
        << "left to the plain path";
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(groups * Fixture::kGroupChars);
    const auto plain = Fixture::PlainText(data);
    EXPECT_TRUE(std::equal(text.begin(), end, plain.begin())) << size;
    EXPECT_EQ(std::count(end, text.end(), kUntouched), text.end() - end) << "wrote beyond";
  }
}

TYPED_TEST(BitTextX86, DecodesTheGroupsOfEveryLengthLikeThePlainPath) {
  using Fixture = BitTextX86<TypeParam>;
  for (unsigned size = 0; size <= 400; ++size) {
    const Bytes data = codec_test::RandomBytes(size, size);
    // On a page boundary, so that no step is left out for a page's end.
    typename Fixture::Text plain = Fixture::PlainText(data);
    alignas(4096) typename Fixture::Char text[2048];
    std::copy(plain.begin(), plain.end(), text);
    Bytes decoded(DecodedCapacity<typename Fixture::Alphabet>(plain.size()));
    const std::uint64_t groups = Fixture::Fast::Decode(text, plain.size(), decoded.data());
    ASSERT_LE(groups * Fixture::kGroupChars, plain.size());
    ASSERT_GT(groups * Fixture::kGroupChars + Fixture::kLargestTextRest, plain.size());
    EXPECT_TRUE(std::equal(
        data.begin(), data.begin() + static_cast<std::ptrdiff_t>(groups * Fixture::kGroupBytes),
        decoded.begin()))
        << size;
  }
}

TYPED_TEST(BitTextX86, EveryUnitAtEveryPlaceStopsOrDecodesLikeThePlainPath) {
  using Fixture = BitTextX86<TypeParam>;
  using Unit = typename Fixture::Char;
  constexpr std::size_t kLength = 40;
  constexpr int kUnits = sizeof(Unit) == 1 ? 0x100 : 0x10000;
  for (int unit = 0; unit < kUnits; ++unit) {
    // Every place for the units that matter, a single one for the many above.
    for (std::size_t at = 0; at < (unit < 0x200 ? 32u : 1u); ++at) {
      alignas(128) Unit text[kLength];
      std::fill(text, text + kLength, static_cast<Unit>('q'));
      text[at] = static_cast<Unit>(unit);
      Bytes decoded(DecodedCapacity<typename Fixture::Alphabet>(kLength));
      const std::uint64_t groups = Fixture::Fast::Decode(text, kLength, decoded.data());
      const unsigned char value = ValueOf<typename Fixture::Alphabet>(static_cast<Unit>(unit));
      ASSERT_EQ(groups == 0, value == kForeign) << unit << ' ' << at;
      Bytes plain(Fixture::kGroupBytes);
      for (std::size_t i = 0; i < groups; ++i) {
        DecodeGroup<typename Fixture::Alphabet>(text + Fixture::kGroupChars * i, plain.data());
        ASSERT_TRUE(std::equal(plain.begin(), plain.end(), &decoded[Fixture::kGroupBytes * i]))
            << unit << ' ' << at;
      }
    }
  }
}

}  // namespace
}  // namespace quarnfc::codec
