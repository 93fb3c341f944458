// SPDX-License-Identifier: MIT
// UTF-8 to and from UTF-16, with U+FFFD for what is not well formed.
#ifndef QUARNFC_PLATFORM_POSIX_UTF8_H_
#define QUARNFC_PLATFORM_POSIX_UTF8_H_

#include <cstddef>

#include "platform/ascii_run.h"

namespace quarnfc::platform {

constexpr char32_t kReplacementCharacter = 0xFFFD;

// False when the bits of a lead byte and the trail byte behind it already belong to no character:
// a longer form than needed, a surrogate, or beyond U+10FFFF.
constexpr bool CanBeginCharacter(int trail_count, char32_t bits) {
  switch (trail_count) {
    case 2:
      return bits >= 0x0800 >> 6 && bits >> 5 != 0xD800 >> 11;
    case 3:
      return bits >= 0x010000 >> 12 && bits <= 0x10FFFF >> 12;
    default:
      return true;
  }
}

// Takes one character off the front of a text that is not empty. What is not well formed is U+FFFD
// and ends before the first byte that cannot continue it; a first trail byte that is wrong only by
// its value belongs to it, as on Windows.
inline char32_t TakeUtf8(const unsigned char*& source, const unsigned char* end) {
  const unsigned char lead = *source++;
  if (lead < 0x80) {
    return lead;
  }
  if (lead < 0xC2 || lead > 0xF4) {
    return kReplacementCharacter;
  }
  const int trail_count = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
  char32_t bits = lead & (0x3Fu >> trail_count);
  for (int i = 0; i < trail_count; ++i) {
    if (source == end || (*source & 0xC0) != 0x80) {
      return kReplacementCharacter;
    }
    bits = bits << 6 | (*source++ & 0x3Fu);
    if (i == 0 && !CanBeginCharacter(trail_count, bits)) {
      return kReplacementCharacter;
    }
  }
  return bits;
}

// Takes one character off the front of a text that is not empty; a surrogate alone is U+FFFD.
inline char32_t TakeUtf16(const wchar_t*& source, const wchar_t* end) {
  const char32_t unit = *source++;
  if (unit < 0xD800 || unit > 0xDFFF) {
    return unit;
  }
  if (unit > 0xDBFF || source == end || *source < 0xDC00 || *source > 0xDFFF) {
    return kReplacementCharacter;
  }
  return 0x10000 + ((unit - 0xD800) << 10) + (static_cast<char32_t>(*source++) - 0xDC00);
}

// Writes one character as UTF-16; false when the output is full.
template <typename Output>
bool PutUtf16(char32_t character, Output& output) {
  if (character < 0x10000) {
    return output.Put(static_cast<wchar_t>(character));
  }
  const char32_t rest = character - 0x10000;
  return output.PutAll(
      {static_cast<wchar_t>(0xD800 + (rest >> 10)), static_cast<wchar_t>(0xDC00 + (rest & 0x3FF))});
}

// Writes one character as UTF-8; false when the output is full.
template <typename Output>
bool PutUtf8(char32_t character, Output& output) {
  const auto trail = [character](int shift) {
    return static_cast<char>(0x80 | (character >> shift & 0x3F));
  };
  if (character < 0x80) {
    return output.Put(static_cast<char>(character));
  }
  if (character < 0x800) {
    return output.PutAll({static_cast<char>(0xC0 | character >> 6), trail(0)});
  }
  if (character < 0x10000) {
    return output.PutAll({static_cast<char>(0xE0 | character >> 12), trail(6), trail(0)});
  }
  return output.PutAll({static_cast<char>(0xF0 | character >> 18), trail(12), trail(6), trail(0)});
}

// Converts UTF-8 to UTF-16; false when the output is full.
template <typename Output>
bool DecodeUtf8(const unsigned char* source, const unsigned char* end, Output& output) {
  while (source != end) {
    if (*source < 0x80) {
      const std::size_t run = AsciiRunLength(source, end);
      if (!output.PutRun(source, run)) {
        return false;
      }
      source += run;
    } else if (!PutUtf16(TakeUtf8(source, end), output)) {
      return false;
    }
  }
  return true;
}

// Converts UTF-16 to UTF-8; false when the output is full. A character that does not fit whole is
// not begun.
template <typename Output>
bool EncodeUtf8(const wchar_t* source, const wchar_t* end, Output& output) {
  while (source != end) {
    if (*source < 0x80) {
      const std::size_t run = AsciiRunLength(source, end);
      if (!output.PutRun(source, run)) {
        return false;
      }
      source += run;
    } else if (!PutUtf8(TakeUtf16(source, end), output)) {
      return false;
    }
  }
  return true;
}

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_POSIX_UTF8_H_
