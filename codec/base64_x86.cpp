// SPDX-License-Identifier: MIT
// The method is Wojciech Mula's and Daniel Lemire's ("Faster Base64 Encoding and Decoding using
// AVX2 Instructions", 2018), here with 128-bit registers. This file is compiled for SSSE3.
#include "codec/base64_x86.h"

#include <tmmintrin.h>

#include <cstdint>

#include "platform/compiler.h"

namespace quarnfc::codec {
namespace {

constexpr std::uint64_t kDataStep = 12;
constexpr std::uint64_t kTextStep = 16;
constexpr std::uint64_t kGroupsStep = 4;
constexpr std::uint64_t kRegisterBytes = 16;

// The smallest page of any processor this is compiled for.
constexpr std::uintptr_t kPageBytes = 4096;

// Whether the register's bytes at text lie in one page, so that loading them all faults only where
// loading the first one does: the count may be larger than the text.
bool IsWithinPage(const char* text) {
  return reinterpret_cast<std::uintptr_t>(text) % kPageBytes <= kPageBytes - kRegisterBytes;
}

__m128i Load(const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); }

// What stands behind the first pad or foreign character is loaded with it and never looked at.
QN_NO_ADDRESS_CHECK __m128i LoadText(const char* text) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
}

void Store(void* to, __m128i value) { _mm_storeu_si128(static_cast<__m128i*>(to), value); }

// The sixteen 6-bit values of the first twelve bytes, one in each byte.
__m128i SpreadBits(__m128i data) {
  const __m128i order = _mm_set_epi8(10, 11, 9, 10, 7, 8, 6, 7, 4, 5, 3, 4, 1, 2, 0, 1);
  const __m128i groups = _mm_shuffle_epi8(data, order);
  const __m128i odd = _mm_and_si128(groups, _mm_set1_epi32(0x0FC0FC00));
  const __m128i even = _mm_and_si128(groups, _mm_set1_epi32(0x003F03F0));
  return _mm_or_si128(_mm_mulhi_epu16(odd, _mm_set1_epi32(0x04000040)),
                      _mm_mullo_epi16(even, _mm_set1_epi32(0x01000010)));
}

// The characters of sixteen values. Each range of the alphabet has a number, 13 for the upper-case
// letters, 0 for the lower-case ones, 1 to 10 for the digits, 11 and 12 for the last two, which
// picks what to add to a value.
__m128i ToCharacters(__m128i values) {
  const __m128i offsets =
      _mm_setr_epi8('a' - 26, '0' - 52, '0' - 52, '0' - 52, '0' - 52, '0' - 52, '0' - 52, '0' - 52,
                    '0' - 52, '0' - 52, '0' - 52, '+' - 62, '/' - 63, 'A', 0, 0);
  const __m128i is_upper = _mm_cmpgt_epi8(_mm_set1_epi8(26), values);
  const __m128i range = _mm_or_si128(_mm_subs_epu8(values, _mm_set1_epi8(51)),
                                     _mm_and_si128(is_upper, _mm_set1_epi8(13)));
  return _mm_add_epi8(values, _mm_shuffle_epi8(offsets, range));
}

// Turns sixteen characters into their values; false when one has none. The two halves of a
// character each pick a set of flags, which have one in common exactly for foreign characters.
bool ToValues(__m128i& text) {
  const __m128i flags_of_low = _mm_setr_epi8(0x15, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11,
                                             0x11, 0x13, 0x1A, 0x1B, 0x1B, 0x1B, 0x1A);
  const __m128i flags_of_high = _mm_setr_epi8(0x10, 0x10, 0x01, 0x02, 0x04, 0x08, 0x04, 0x08, 0x10,
                                              0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10);
  const __m128i offsets = _mm_setr_epi8(0, 16, 19, 4, -65, -65, -71, -71, 0, 0, 0, 0, 0, 0, 0, 0);
  const __m128i half = _mm_set1_epi8(0x0F);

  const __m128i high = _mm_and_si128(_mm_srli_epi32(text, 4), half);
  const __m128i low = _mm_and_si128(text, half);
  const __m128i foreign =
      _mm_and_si128(_mm_shuffle_epi8(flags_of_low, low), _mm_shuffle_epi8(flags_of_high, high));
  const __m128i is_known = _mm_cmpeq_epi8(foreign, _mm_setzero_si128());
  if (_mm_movemask_epi8(is_known) != 0xFFFF) return false;

  const __m128i is_slash = _mm_cmpeq_epi8(text, _mm_set1_epi8('/'));  // -1 where it is
  text = _mm_add_epi8(text, _mm_shuffle_epi8(offsets, _mm_add_epi8(high, is_slash)));
  return true;
}

// Packs sixteen values into the first twelve bytes, zeros behind them.
__m128i PackBits(__m128i values) {
  const __m128i pairs = _mm_maddubs_epi16(values, _mm_set1_epi32(0x01400140));
  const __m128i groups = _mm_madd_epi16(pairs, _mm_set1_epi32(0x00011000));
  return _mm_shuffle_epi8(groups,
                          _mm_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1));
}

}  // namespace

std::uint64_t EncodeBase64X86(const unsigned char* data, std::uint64_t size, char* text) {
  std::uint64_t groups = 0;
  for (; size >= kRegisterBytes; size -= kDataStep, groups += kGroupsStep) {
    Store(text, ToCharacters(SpreadBits(Load(data))));
    data += kDataStep;
    text += kTextStep;
  }
  return groups;
}

std::uint64_t DecodeBase64X86(const char* text, std::uint64_t length, unsigned char* data) {
  // A whole register is stored for twelve bytes: the text left must stand for as many.
  constexpr std::uint64_t kTextForRegister = 24;
  std::uint64_t groups = 0;
  for (; length >= kTextForRegister && IsWithinPage(text);
       length -= kTextStep, groups += kGroupsStep) {
    __m128i values = LoadText(text);
    if (!ToValues(values)) break;
    Store(data, PackBits(values));
    text += kTextStep;
    data += kDataStep;
  }
  return groups;
}

}  // namespace quarnfc::codec
