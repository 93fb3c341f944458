// SPDX-License-Identifier: MIT
// Texts of strings and buffers as standard strings, so that tests compare and print bytes, and the
// double-byte characters the tests of text share.
#ifndef QUARNFC_TESTS_CORE_TEXT_H_
#define QUARNFC_TESTS_CORE_TEXT_H_

#include <string>

#include "tests/support/caller_buffer.h"
#include "tests/support/string_bytes.h"

namespace text_test {

using quarnfc_test::Bytes;
using quarnfc_test::TakeText;

inline const char* Chars(const CQNString& text) { return text; }

// -1, 0 or 1: of the results of comparisons the sign alone is promised.
inline int Sign(int order) { return (order > 0) - (order < 0); }

// Zero-terminated UTF-16 text.
inline std::u16string Utf16(const wchar_t* text) {
  std::u16string result;
  for (; *text != L'\0'; ++text) result.push_back(static_cast<char16_t>(*text));
  return result;
}

// Characters of code page 936, most of them named after the ASCII character that their second byte
// looks like; those share their first byte.
#define TRAIL_LEAD "\x95"
#define TRAIL_AT "\x95\x40"         // U+65F2
#define TRAIL_UPPER_A "\x95\x41"    // U+65F3
#define TRAIL_OPEN "\x95\x5B"       // U+661C
#define TRAIL_BACKSLASH "\x95\x5C"  // U+661E
#define TRAIL_CLOSE "\x95\x5D"      // U+6621
#define TRAIL_LOWER_A "\x95\x61"    // U+6626
#define TRAIL_BAR "\x95\x7C"        // U+6650
#define TRAIL_TILDE "\x95\x7E"      // U+6658
#define ZHONG "\xD6\xD0"            // U+4E2D
#define WEN "\xCE\xC4"              // U+6587
#define WIDE_BLANK "\xA1\xA1"       // U+3000

}  // namespace text_test

#endif  // QUARNFC_TESTS_CORE_TEXT_H_
