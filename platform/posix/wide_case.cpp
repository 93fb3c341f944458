// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <iterator>

#include "platform/code_page.h"

namespace quarnfc::platform {

namespace {

// Lower-case letters that code page 936 holds, by ranges with a constant distance to their upper
// case.
struct LetterRange {
  wchar_t first;
  wchar_t last;
  int distance;
};

constexpr LetterRange kLowerCase[] = {
    {0x0061, 0x007A, 32},  // Latin
    {0x00E0, 0x00F6, 32},  // Latin with accents
    {0x00F8, 0x00FE, 32},  //
    {0x0101, 0x0101, 1},   // Pinyin vowels with tone marks, and n with accents
    {0x0113, 0x0113, 1},   //
    {0x011B, 0x011B, 1},   //
    {0x012B, 0x012B, 1},   //
    {0x0144, 0x0144, 1},   //
    {0x0148, 0x0148, 1},   //
    {0x014D, 0x014D, 1},   //
    {0x016B, 0x016B, 1},   //
    {0x01CE, 0x01CE, 1},   //
    {0x01D0, 0x01D0, 1},   //
    {0x01D2, 0x01D2, 1},   //
    {0x01D4, 0x01D4, 1},   //
    {0x01D6, 0x01D6, 1},   //
    {0x01D8, 0x01D8, 1},   //
    {0x01DA, 0x01DA, 1},   //
    {0x01DC, 0x01DC, 1},   //
    {0x01F9, 0x01F9, 1},   //
    {0x03B1, 0x03C1, 32},  // Greek
    {0x03C3, 0x03C9, 32},  //
    {0x0430, 0x044F, 32},  // Cyrillic
    {0x0451, 0x0451, 80},  //
    {0x2170, 0x217F, 16},  // small Roman numerals
    {0xFF41, 0xFF5A, 32},  // full-width Latin
};

wchar_t UpperCase(wchar_t ch) {
  const auto* range = std::find_if(std::begin(kLowerCase), std::end(kLowerCase),
                                   [ch](const LetterRange& r) { return ch <= r.last; });
  const bool is_lower = range != std::end(kLowerCase) && ch >= range->first;
  return is_lower ? static_cast<wchar_t>(ch - range->distance) : ch;
}

}  // namespace

void ToUpperCase(wchar_t* text, std::size_t length) {
  std::transform(text, text + length, text, UpperCase);
}

}  // namespace quarnfc::platform
