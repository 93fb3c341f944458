// SPDX-License-Identifier: MIT
// UTF-8 looked at byte by byte: is it well formed, how many characters, where is a place in it.
//
// Well formed means RFC 3629: shortest form only, no surrogates, nothing above U+10FFFF. Header
// only; needs nothing but the standard library. Every function may be called from any thread.
//
// Example:
//   quarnfc::ext::IsUtf8("\xE4\xB8\xAD");               // == true
//   quarnfc::ext::FindInvalidUtf8("ab\xFF");            // == 2u
#ifndef QUARNFC_EXT_UTF8_TEXT_H_
#define QUARNFC_EXT_UTF8_TEXT_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace quarnfc::ext {

namespace detail {
// Whether the second byte makes a character of three or four bytes neither a long form nor a
// surrogate nor greater than U+10FFFF.
inline bool IsUtf8Second(unsigned lead, unsigned second) {
  switch (lead) {
    case 0xE0:
      return second >= 0xA0;
    case 0xED:
      return second < 0xA0;
    case 0xF0:
      return second >= 0x90;
    case 0xF4:
      return second < 0x90;
    default:
      return true;
  }
}
}  // namespace detail

// The length in bytes, 1 to 4, of the well-formed character at an offset; 0 when there is none.
inline std::size_t Utf8CharLength(std::string_view text, std::size_t offset) {
  const auto byte = [&](std::size_t i) -> unsigned {
    return offset + i < text.size() ? static_cast<unsigned char>(text[offset + i]) : 0U;
  };
  const auto follows = [&](std::size_t i) { return (byte(i) & 0xC0U) == 0x80U; };
  const unsigned lead = byte(0);
  if (offset >= text.size()) return 0;
  if (lead < 0x80) return 1;
  if (lead < 0xC2) return 0;
  if (lead < 0xE0) return follows(1) ? 2 : 0;
  if (lead > 0xF4 || !detail::IsUtf8Second(lead, byte(1)) || !follows(1) || !follows(2)) return 0;
  if (lead < 0xF0) return 3;
  return follows(3) ? 4 : 0;
}

// The code point of the well-formed character at an offset; U+FFFD when there is none.
inline char32_t Utf8CharAt(std::string_view text, std::size_t offset) {
  const std::size_t length = Utf8CharLength(text, offset);
  if (length == 0) return 0xFFFD;
  const auto lead = static_cast<unsigned char>(text[offset]);
  char32_t ch = length == 1 ? lead : lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i)
    ch = (ch << 6) | (static_cast<unsigned char>(text[offset + i]) & 0x3FU);
  return ch;
}

// The offset of the first byte that starts no well-formed character; text.size() when all do.
inline std::size_t FindInvalidUtf8(std::string_view text) {
  std::size_t offset = 0;
  while (offset < text.size()) {
    const std::size_t length = Utf8CharLength(text, offset);
    if (length == 0) return offset;
    offset += length;
  }
  return offset;
}

// Whether every byte belongs to a well-formed character; an empty text is UTF-8.
inline bool IsUtf8(std::string_view text) { return FindInvalidUtf8(text) == text.size(); }

// Appends a character. Code points that UTF-8 has no place for, surrogates and what lies above
// U+10FFFF, append U+FFFD.
inline void AppendUtf8(std::string& text, char32_t ch) {
  if ((ch >= 0xD800 && ch < 0xE000) || ch > 0x10FFFF) ch = 0xFFFD;
  const auto tail = [&](unsigned shift) {
    text += static_cast<char>(0x80U | ((static_cast<unsigned>(ch) >> shift) & 0x3FU));
  };
  if (ch < 0x80) {
    text += static_cast<char>(ch);
  } else if (ch < 0x800) {
    text += static_cast<char>(0xC0U | (ch >> 6));
    tail(0);
  } else if (ch < 0x10000) {
    text += static_cast<char>(0xE0U | (ch >> 12));
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0U | (ch >> 18));
    tail(12);
    tail(6);
    tail(0);
  }
}

// The number of characters; a byte that starts no well-formed one counts as one.
inline std::size_t CountUtf8Chars(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t offset = 0; offset < text.size(); ++count) {
    const std::size_t length = Utf8CharLength(text, offset);
    offset += length == 0 ? 1 : length;
  }
  return count;
}

// A place as people name it: line and column count from 1, columns in characters. Lines end with
// LF.
struct TextPlace {
  std::size_t line = 1;
  std::size_t column = 1;
};

// The place of an offset in bytes; one behind the end is the place of the end. Time is proportional
// to the text in front of it.
inline TextPlace PlaceInText(std::string_view text, std::size_t offset) {
  TextPlace place;
  const std::string_view before = text.substr(0, offset);
  for (const char ch : before) place.line += ch == '\n' ? 1 : 0;
  const std::size_t start = before.rfind('\n');
  place.column +=
      CountUtf8Chars(start == std::string_view::npos ? before : before.substr(start + 1));
  return place;
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_UTF8_TEXT_H_
