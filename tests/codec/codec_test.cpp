// SPDX-License-Identifier: MIT
// What holds for both codecs. The decoders are held against the plain rule of codec_reference.h.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/codec/codec_reference.h"
#include "tests/support/page_end.h"

namespace codec_test {
namespace {

template <class T>
class Codecs : public testing::Test {};
struct CodecNames {
  template <class T>
  static std::string GetName(int) {
    return T::kBits == 6 ? "Base64" : "Base32";
  }
};
using CodecTypes = testing::Types<Base64, Base32>;
TYPED_TEST_SUITE(Codecs, CodecTypes, CodecNames);

TYPED_TEST(Codecs, EveryLengthDecodesToWhatWasEncoded) {
  for (unsigned size = 0; size <= 300; ++size) {
    const Bytes data = RandomBytes(size, size);
    const std::string text = EncodeA<TypeParam>(data);
    EXPECT_EQ(EncodeW<TypeParam>(data), text);
    if (size == 0) continue;
    for (Decoded decoded : {DecodeA<TypeParam>(text), DecodeW<TypeParam>(text)}) {
      ASSERT_EQ(decoded.count, static_cast<int>(size));
      decoded.buffer.resize(size);
      EXPECT_EQ(decoded.buffer, data);
    }
  }
}

// The text is made of the alphabet in the order of the bits: group values 0, 1, 2 ... spell it.
TYPED_TEST(Codecs, AlphabetIsExact) {
  constexpr int kValues = 1 << TypeParam::kBits;
  Bytes data(kValues * TypeParam::kBits / 8);
  for (int i = 0; i < kValues * TypeParam::kBits; ++i) {
    const int value = i / TypeParam::kBits;
    const int bit = TypeParam::kBits - 1 - i % TypeParam::kBits;
    if ((value >> bit & 1) != 0) data[i / 8] |= 0x80 >> i % 8;
  }
  EXPECT_EQ(EncodeA<TypeParam>(data), TypeParam::kAlphabet);
  EXPECT_EQ(EncodeW<TypeParam>(data), TypeParam::kAlphabet);
}

TYPED_TEST(Codecs, NoLineBreaksAreInserted) {
  const std::string text = EncodeA<TypeParam>(RandomBytes(10000));
  EXPECT_EQ(text.find_first_of("\r\n"), std::string::npos);
}

TYPED_TEST(Codecs, EncodingNothingGivesTheEmptyText) {
  EXPECT_EQ(EncodeA<TypeParam>({}), "");
  EXPECT_EQ(EncodeW<TypeParam>({}), "");
}

TYPED_TEST(Codecs, EncodingNullGivesTheEmptyText) {
  EXPECT_EQ(Take(TypeParam::EncodeA(nullptr, 5)), "");
  EXPECT_EQ(Take(TypeParam::EncodeW(nullptr, 5)), "");
}

TYPED_TEST(Codecs, DecodingNothingGivesOneZeroByte) {
  const Decoded nothing{0, false, {0}};
  EXPECT_EQ(DecodeA<TypeParam>(""), nothing);
  EXPECT_EQ(DecodeW<TypeParam>(""), nothing);
}

TYPED_TEST(Codecs, DecodingNullTextGivesOneZeroByte) {
  for (const unsigned length : {0u, 4u}) {
    unsigned char* data = nullptr;
    EXPECT_EQ(TypeParam::DecodeA(nullptr, length, &data), 0);
    EXPECT_EQ(TakeDecoded<TypeParam>(0, data, 0), (Decoded{0, false, {0}}));
  }
}

TYPED_TEST(Codecs, DecodingWithoutAnOutParameterGivesZero) {
  EXPECT_EQ(TypeParam::DecodeA("aaaa", 0, nullptr), 0);
  EXPECT_EQ(TypeParam::DecodeW(L"aaaa", 0, nullptr), 0);
}

TYPED_TEST(Codecs, CountZeroReadsToTheTerminator) {
  unsigned char* data = nullptr;
  const int count = TypeParam::DecodeA("aaaaaaaaaaaaaaaa", 0, &data);
  EXPECT_EQ(count, 16 * TypeParam::kBits / 8);
  qnFreeMem(data);
  EXPECT_EQ(TypeParam::DecodeW(L"aaaaaaaaaaaaaaaa", 0, &data), count);
  qnFreeMem(data);
}

TYPED_TEST(Codecs, PadEndsDecodingWhereverItStands) {
  const std::string text = "abcdefabcdefabcdef";
  for (std::size_t at = 0; at < text.size(); ++at) {
    std::string cut = text;
    cut[at] = '=';
    cut.back() = '!';  // not looked at behind a pad
    if (at == text.size() - 1) cut.back() = '=';
    EXPECT_EQ(DecodeA<TypeParam>(cut), ReferenceDecode<TypeParam>(cut)) << cut;
    EXPECT_EQ(DecodeW<TypeParam>(cut), ReferenceDecode<TypeParam>(cut)) << cut;
    EXPECT_EQ(DecodeA<TypeParam>(cut).count, static_cast<int>(at * TypeParam::kBits / 8));
  }
}

TYPED_TEST(Codecs, EveryByteAtEveryPlaceDecodesByThePlainRule) {
  for (int byte = 0; byte < 256; ++byte) {
    for (std::size_t length = 1; length <= 20; ++length) {
      std::string text(length, 'b');
      text[(byte + length) % length] = static_cast<char>(byte);
      ASSERT_EQ(DecodeA<TypeParam>(text), ReferenceDecode<TypeParam>(text)) << byte;
    }
  }
}

TYPED_TEST(Codecs, EveryWideUnitDecodesByThePlainRule) {
  const std::string alphabet = TypeParam::kAlphabet;
  for (unsigned unit = 1; unit <= 0xFFFF; ++unit) {
    const wchar_t text[] = {L'a', static_cast<wchar_t>(unit)};
    unsigned char* data = nullptr;
    const int count = TypeParam::DecodeW(text, 2, &data);
    const bool known = unit < 0x80 && alphabet.find(static_cast<char>(unit)) != std::string::npos;
    ASSERT_EQ(count, known ? 1 : 0) << unit;
    ASSERT_EQ(data != nullptr, known || unit == '=') << unit;
    qnFreeMem(data);
  }
}

TYPED_TEST(Codecs, ForeignCharactersStoreNull) {
  for (const char* foreign : {" ", "\r\n", "\t", "-", "_", "\x80", "\xFF", ".", "!"}) {
    for (const char* before : {"", "a", "aaaaaaaa", "aaaaaaaaaaaaa"}) {
      const std::string text = std::string(before) + foreign + "aaaa";
      EXPECT_EQ(DecodeA<TypeParam>(text), (Decoded{0, true, {}})) << text;
    }
  }
}

TYPED_TEST(Codecs, ZeroWithinTheCountIsForeign) {
  EXPECT_TRUE(DecodeA<TypeParam>(std::string("aaa\0aaaa", 8)).refused);
}

// The text ends at the end of a page, and the page behind it cannot be read.
TYPED_TEST(Codecs, NothingIsReadBehindTheFirstCharacterThatIsNotDecoded) {
  for (const char* end : {"=", "!", "\x80"}) {
    for (std::size_t length = 0; length <= 70; ++length) {
      const std::string text = std::string(length, 'b') + end;
      const quarnfc_test::PageEnd page(text.data(), text.size());
      const Decoded expected = DecodeA<TypeParam>(text);
      for (const unsigned more : {1u, 7u, 16u, 100u, 4096u}) {
        const auto count = static_cast<unsigned>(text.size()) + more;
        unsigned char* data = nullptr;
        const int bytes = TypeParam::DecodeA(page.As<char>(), count, &data);
        const Owned<unsigned char> owned(data);
        EXPECT_EQ(bytes, expected.count) << text;
        EXPECT_EQ(data == nullptr, expected.refused) << text;
      }
    }
  }
}

TYPED_TEST(Codecs, NothingIsReadBehindTheTerminatorWhateverTheCount) {
  for (std::size_t length = 0; length <= 70; ++length) {
    const std::string text(length, 'b');
    const quarnfc_test::PageEnd page(text.c_str(), length + 1);
    const std::vector<wchar_t> wide = Widen(text);
    const quarnfc_test::PageEnd wide_page(wide.data(), wide.size() * sizeof(wchar_t));
    for (const unsigned more : {1u, 2u, 16u, 100u}) {
      unsigned char* data = nullptr;
      const auto count = static_cast<unsigned>(length) + more;
      EXPECT_EQ(TypeParam::DecodeA(page.As<char>(), count, &data), 0);
      EXPECT_EQ(data, nullptr) << "a zero within the count is foreign";
      EXPECT_EQ(TypeParam::DecodeW(wide_page.As<wchar_t>(), count, &data), 0);
      EXPECT_EQ(data, nullptr);
    }
  }
}

// Longer than a page, so that the fast path meets its end and goes on behind it.
TYPED_TEST(Codecs, TextsOfSeveralPagesDecodeFromEveryAddress) {
  const Bytes data = RandomBytes(9000);
  const std::string text = EncodeA<TypeParam>(data);
  for (std::size_t shift = 0; shift < 40; ++shift) {
    const std::string moved = std::string(shift, ' ') + text;
    unsigned char* decoded = nullptr;
    const int count = TypeParam::DecodeA(moved.c_str() + shift, 0, &decoded);
    const Owned<unsigned char> owned(decoded);
    ASSERT_EQ(count, 9000);
    EXPECT_TRUE(std::equal(data.begin(), data.end(), decoded));
  }
}

TYPED_TEST(Codecs, IncompleteGroupsKeepTheirLeftOverBitsBehindTheCountedBytes) {
  const std::string text = "bcdefabcdefghijk";
  for (std::size_t length = 0; length <= text.size(); ++length) {
    const std::string part = text.substr(0, length);
    EXPECT_EQ(DecodeA<TypeParam>(part), ReferenceDecode<TypeParam>(part)) << part;
    EXPECT_EQ(DecodeW<TypeParam>(part), ReferenceDecode<TypeParam>(part)) << part;
  }
}

TYPED_TEST(Codecs, RandomTextDecodesByThePlainRule) {
  const std::string characters = std::string(TypeParam::kAlphabet) + TypeParam::kAlphabet + "= ";
  for (unsigned round = 0; round < 3000; ++round) {
    std::string text;
    for (const unsigned char byte : RandomBytes(round % 60, round)) {
      text.push_back(characters[byte % characters.size()]);
    }
    ASSERT_EQ(DecodeA<TypeParam>(text), ReferenceDecode<TypeParam>(text)) << text;
    ASSERT_EQ(DecodeW<TypeParam>(text), ReferenceDecode<TypeParam>(text)) << text;
  }
}

}  // namespace
}  // namespace codec_test
