// SPDX-License-Identifier: MIT
// Text with a length between the process ANSI code page, UTF-8 and UTF-16, and what such a
// conversion would lose. A zero byte or unit is a character as any other, and no terminator is read
// or written.
//
// <quarnfc/ext/text_conversion.h> has the same in one call, with standard strings. The converters
// of string_utils.h take zero-terminated text and have a convention of their own.
//
// Errors: std::bad_alloc for a text, or a result, of more than 2,147,483,647 bytes or units.
// Threads: every function may be called from any thread; what it is given is the caller's.
//
// Implemented in core/text/text_encoding.cpp.
//
// Example:
//   const char* utf8 = "\xE6\xB9\x98\xF0\x9F\x99\x82";                       // and a smiling face
//   wchar_t units[8];
//   QNTextUtils::Decode(QNTextUtils::eUtf8, utf8, 7, units, 8);              // == 3u
//   QNTextUtils::FindLostInAnsi(units, 3);                                   // == 1u
#ifndef QUARNFC_TEXT_ENCODING_H_
#define QUARNFC_TEXT_ENCODING_H_

#include <quarnfc/export.h>
#include <quarnfc/platform_types.h>

#include <cstddef>

namespace QNTextUtils {

enum EEncoding : int {
  eAnsi = 0,  // the process ANSI code page; 936 off Windows
  eUtf8 = 1,
};

// Converts length bytes to UTF-16 and returns the number of units that the whole text takes. They
// are written when units is not null and capacity, in units, is enough; otherwise nothing is. What
// is no character becomes a question mark (eAnsi) or U+FFFD (eUtf8). 0 for null bytes.
QN_API std::size_t Decode(EEncoding from, const char* bytes, std::size_t length, wchar_t* units,
                          std::size_t capacity);

// The way back: length units of UTF-16 to bytes, under the same rules with capacity in bytes. A
// character that the code page lacks becomes its best fit or the default character (eAnsi), half a
// surrogate pair U+FFFD (eUtf8).
QN_API std::size_t Encode(EEncoding to, const wchar_t* units, std::size_t length, char* bytes,
                          std::size_t capacity);

// The offset of the first byte that begins no character of the ANSI code page; length when every
// byte belongs to one, or bytes is null.
QN_API std::size_t FindInvalidAnsi(const char* bytes, std::size_t length);

// The index of the first unit whose character the ANSI code page lacks, even where it has a best
// fit for it; length when it has them all, or units is null.
QN_API std::size_t FindLostInAnsi(const wchar_t* units, std::size_t length);

}  // namespace QNTextUtils

#endif  // QUARNFC_TEXT_ENCODING_H_
