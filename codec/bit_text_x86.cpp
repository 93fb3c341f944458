// SPDX-License-Identifier: MIT
// The method for Base64 is Wojciech Mula's and Daniel Lemire's ("Faster Base64 Encoding and
// Decoding using AVX2 Instructions", 2018); Base32 is done likewise. A step makes thirty-two
// characters, or takes as many: one byte each in a register. Each half of the register stands for
// one run of bytes, which are loaded and stored apart.
//
// This file is compiled for AVX2. It calls no inline function of the standard library, which the
// linker could take into use for everyone.
#include "codec/bit_text_x86.h"

#include <immintrin.h>

#include <cstdint>

#include "platform/compiler.h"

namespace quarnfc::codec {
namespace {

constexpr std::uint64_t kTextStep = 32;

// The characters left in front of a decoding step: whole registers are stored for half as many
// bytes, so the text must stand for some more.
constexpr std::uint64_t kTextNeeded = 40;

// The smallest page of any processor this is compiled for.
constexpr std::uintptr_t kPageBytes = 4096;

// --- characters ---------------------------------------------------------------------------------

// Whether a step's characters at text lie in one page, so that loading them all faults only where
// loading the first one does: the count may be larger than the text.
template <class Char>
bool IsWithinPage(const Char* text) {
  return reinterpret_cast<std::uintptr_t>(text) % kPageBytes <=
         kPageBytes - kTextStep * sizeof(Char);
}

// What stands behind the first pad or foreign character is loaded with it and never looked at.
QN_NO_ADDRESS_CHECK __m256i LoadText(const char* text) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(text));
}

// Units above 0xFF become 0 or 0xFF, which are foreign like them.
QN_NO_ADDRESS_CHECK __m256i LoadText(const wchar_t* text) {
  const auto* const units = reinterpret_cast<const __m256i*>(text);
  const __m256i packed =
      _mm256_packus_epi16(_mm256_loadu_si256(units), _mm256_loadu_si256(units + 1));
  return _mm256_permute4x64_epi64(packed, 0xD8);
}

void StoreText(char* text, __m256i characters) {
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(text), characters);
}

void StoreText(wchar_t* text, __m256i characters) {
  auto* const units = reinterpret_cast<__m256i*>(text);
  _mm256_storeu_si256(units, _mm256_cvtepu8_epi16(_mm256_castsi256_si128(characters)));
  _mm256_storeu_si256(units + 1, _mm256_cvtepu8_epi16(_mm256_extracti128_si256(characters, 1)));
}

// --- bytes --------------------------------------------------------------------------------------

constexpr std::uint64_t kHalfBytes = 16;  // of a register

__m128i LoadHalf(const unsigned char* from) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}

// The bytes for the lower half of a step, and those for the upper one, distance behind them.
__m256i LoadHalves(const unsigned char* data, std::uint64_t distance) {
  return _mm256_inserti128_si256(_mm256_castsi128_si256(LoadHalf(data)), LoadHalf(data + distance),
                                 1);
}

void StoreHalves(unsigned char* data, std::uint64_t distance, __m256i bytes) {
  _mm_storeu_si128(reinterpret_cast<__m128i*>(data), _mm256_castsi256_si128(bytes));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(data + distance), _mm256_extracti128_si256(bytes, 1));
}

// The same sixteen bytes in both halves.
__m256i Twice(__m128i half) { return _mm256_broadcastsi128_si256(half); }

bool AllSet(__m256i flags) { return _mm256_movemask_epi8(flags) == -1; }

// --- Base64 -------------------------------------------------------------------------------------

struct Base64Steps {
  static constexpr std::uint64_t kGroups = 8;     // of a step
  static constexpr std::uint64_t kHalfStep = 12;  // bytes of half a step

  // The 6-bit values of a step's bytes.
  static __m256i Spread(const unsigned char* data) {
    const __m256i order = Twice(_mm_setr_epi8(1, 0, 2, 1, 4, 3, 5, 4, 7, 6, 8, 7, 10, 9, 11, 10));
    const __m256i groups = _mm256_shuffle_epi8(LoadHalves(data, kHalfStep), order);
    const __m256i odd = _mm256_and_si256(groups, _mm256_set1_epi32(0x0FC0FC00));
    const __m256i even = _mm256_and_si256(groups, _mm256_set1_epi32(0x003F03F0));
    return _mm256_or_si256(_mm256_mulhi_epu16(odd, _mm256_set1_epi32(0x04000040)),
                           _mm256_mullo_epi16(even, _mm256_set1_epi32(0x01000010)));
  }

  // Each range of the alphabet has a number, 13 for the upper-case letters, 0 for the lower-case
  // ones, 1 to 10 for the digits, 11 and 12 for the last two, which picks what to add to a value.
  static __m256i ToCharacters(__m256i values) {
    const __m256i offsets =
        Twice(_mm_setr_epi8('a' - 26, '0' - 52, '0' - 52, '0' - 52, '0' - 52, '0' - 52, '0' - 52,
                            '0' - 52, '0' - 52, '0' - 52, '0' - 52, '+' - 62, '/' - 63, 'A', 0, 0));
    const __m256i is_upper = _mm256_cmpgt_epi8(_mm256_set1_epi8(26), values);
    const __m256i range = _mm256_or_si256(_mm256_subs_epu8(values, _mm256_set1_epi8(51)),
                                          _mm256_and_si256(is_upper, _mm256_set1_epi8(13)));
    return _mm256_add_epi8(values, _mm256_shuffle_epi8(offsets, range));
  }

  // Turns characters into their values; false when one has none. The two halves of a character
  // each pick a set of flags, which have one in common exactly for foreign characters.
  static bool ToValues(__m256i& text) {
    const __m256i flags_of_low =
        Twice(_mm_setr_epi8(0x15, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x13, 0x1A,
                            0x1B, 0x1B, 0x1B, 0x1A));
    const __m256i flags_of_high =
        Twice(_mm_setr_epi8(0x10, 0x10, 0x01, 0x02, 0x04, 0x08, 0x04, 0x08, 0x10, 0x10, 0x10, 0x10,
                            0x10, 0x10, 0x10, 0x10));
    const __m256i offsets =
        Twice(_mm_setr_epi8(0, 16, 19, 4, -65, -65, -71, -71, 0, 0, 0, 0, 0, 0, 0, 0));
    const __m256i half = _mm256_set1_epi8(0x0F);

    const __m256i high = _mm256_and_si256(_mm256_srli_epi32(text, 4), half);
    const __m256i low = _mm256_and_si256(text, half);
    const __m256i foreign = _mm256_and_si256(_mm256_shuffle_epi8(flags_of_low, low),
                                             _mm256_shuffle_epi8(flags_of_high, high));
    if (!AllSet(_mm256_cmpeq_epi8(foreign, _mm256_setzero_si256()))) return false;

    const __m256i is_slash = _mm256_cmpeq_epi8(text, _mm256_set1_epi8('/'));  // -1 where it is
    text = _mm256_add_epi8(text, _mm256_shuffle_epi8(offsets, _mm256_add_epi8(high, is_slash)));
    return true;
  }

  // Packs the values of each half into its first bytes, zeros behind them.
  static __m256i Pack(__m256i values) {
    const __m256i pairs = _mm256_maddubs_epi16(values, _mm256_set1_epi16(0x0140));  // 6 + 6 bits
    const __m256i groups = _mm256_madd_epi16(pairs, _mm256_set1_epi32(0x00011000));
    return _mm256_shuffle_epi8(
        groups, Twice(_mm_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1)));
  }
};

// --- Base32 -------------------------------------------------------------------------------------

struct Base32Steps {
  static constexpr std::uint64_t kGroups = 4;
  static constexpr std::uint64_t kHalfStep = 10;

  // The values of two groups of five bytes, 16 bits each. A value is cut from the two bytes that
  // hold its bits: the upper half of a product with a power of two is a shift to the right.
  static __m256i SpreadTwoGroups(const unsigned char* data) {
    const __m256i order = _mm256_setr_epi8(              //
        1, 0, 1, 0, 2, 1, 2, 1, 3, 2, 4, 3, 4, 3, 5, 4,  //
        6, 5, 6, 5, 7, 6, 7, 6, 8, 7, 9, 8, 9, 8, 10, 9);
    const __m256i shifts =
        Twice(_mm_setr_epi16(1 << 5, 1 << 10, 1 << 7, 1 << 12, 1 << 9, 1 << 6, 1 << 11, 1 << 8));
    const __m256i pairs = _mm256_shuffle_epi8(Twice(LoadHalf(data)), order);
    return _mm256_and_si256(_mm256_mulhi_epu16(pairs, shifts), _mm256_set1_epi16(0x1F));
  }

  static __m256i Spread(const unsigned char* data) {
    const __m256i packed =
        _mm256_packus_epi16(SpreadTwoGroups(data), SpreadTwoGroups(data + kHalfStep));
    return _mm256_permute4x64_epi64(packed, 0xD8);
  }

  // Letters rise with their values, digits fall.
  static __m256i ToCharacters(__m256i values) {
    const __m256i is_digit = _mm256_cmpgt_epi8(values, _mm256_set1_epi8(25));
    return _mm256_blendv_epi8(_mm256_add_epi8(values, _mm256_set1_epi8('a')),
                              _mm256_sub_epi8(_mm256_set1_epi8('6' + 26), values), is_digit);
  }

  // Which characters lie between first and last. (Those above 0x7F are negative numbers here.)
  static __m256i IsWithin(__m256i text, char first, char last) {
    return _mm256_and_si256(_mm256_cmpgt_epi8(text, _mm256_set1_epi8(first - 1)),
                            _mm256_cmpgt_epi8(_mm256_set1_epi8(last + 1), text));
  }

  static bool ToValues(__m256i& text) {
    const __m256i is_letter = IsWithin(text, 'a', 'z');
    if (!AllSet(_mm256_or_si256(is_letter, IsWithin(text, '1', '6')))) return false;
    text = _mm256_blendv_epi8(_mm256_sub_epi8(_mm256_set1_epi8('6' + 26), text),
                              _mm256_sub_epi8(text, _mm256_set1_epi8('a')), is_letter);
    return true;
  }

  static __m256i Pack(__m256i values) {
    const __m256i pairs = _mm256_maddubs_epi16(values, _mm256_set1_epi16(0x0120));  // 5 + 5 bits
    const __m256i fours = _mm256_madd_epi16(pairs, _mm256_set1_epi32(0x00010400));
    const __m256i groups =
        _mm256_or_si256(_mm256_slli_epi64(fours, 20), _mm256_srli_epi64(fours, 32));
    return _mm256_shuffle_epi8(
        groups, Twice(_mm_setr_epi8(4, 3, 2, 1, 0, 12, 11, 10, 9, 8, -1, -1, -1, -1, -1, -1)));
  }
};

// --- whole texts --------------------------------------------------------------------------------

template <class Steps, class Char>
std::uint64_t Encode(const unsigned char* data, std::uint64_t size, Char* text) {
  constexpr std::uint64_t kDataRead = Steps::kHalfStep + kHalfBytes;
  constexpr std::uint64_t kDataStep = 2 * Steps::kHalfStep;
  std::uint64_t groups = 0;
  for (; size >= kDataRead; size -= kDataStep, groups += Steps::kGroups) {
    StoreText(text, Steps::ToCharacters(Steps::Spread(data)));
    data += kDataStep;
    text += kTextStep;
  }
  return groups;
}

template <class Steps, class Char>
std::uint64_t Decode(const Char* text, std::uint64_t length, unsigned char* data) {
  std::uint64_t groups = 0;
  for (; length >= kTextNeeded && IsWithinPage(text);
       length -= kTextStep, groups += Steps::kGroups) {
    __m256i values = LoadText(text);
    if (!Steps::ToValues(values)) break;
    StoreHalves(data, Steps::kHalfStep, Steps::Pack(values));
    text += kTextStep;
    data += 2 * Steps::kHalfStep;
  }
  return groups;
}

}  // namespace

std::uint64_t EncodeBase64X86(const unsigned char* data, std::uint64_t size, char* text) {
  return Encode<Base64Steps>(data, size, text);
}

std::uint64_t EncodeBase64X86(const unsigned char* data, std::uint64_t size, wchar_t* text) {
  return Encode<Base64Steps>(data, size, text);
}

std::uint64_t EncodeBase32X86(const unsigned char* data, std::uint64_t size, char* text) {
  return Encode<Base32Steps>(data, size, text);
}

std::uint64_t EncodeBase32X86(const unsigned char* data, std::uint64_t size, wchar_t* text) {
  return Encode<Base32Steps>(data, size, text);
}

std::uint64_t DecodeBase64X86(const char* text, std::uint64_t length, unsigned char* data) {
  return Decode<Base64Steps>(text, length, data);
}

std::uint64_t DecodeBase64X86(const wchar_t* text, std::uint64_t length, unsigned char* data) {
  return Decode<Base64Steps>(text, length, data);
}

std::uint64_t DecodeBase32X86(const char* text, std::uint64_t length, unsigned char* data) {
  return Decode<Base32Steps>(text, length, data);
}

std::uint64_t DecodeBase32X86(const wchar_t* text, std::uint64_t length, unsigned char* data) {
  return Decode<Base32Steps>(text, length, data);
}

}  // namespace quarnfc::codec
