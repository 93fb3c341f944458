// SPDX-License-Identifier: MIT
// String utilities: code-page conversion, splitting (string_arrays.h), wildcard matching, path
// joining, and length-prefixed string records in binary files.
//
// 8-bit text is in the process ANSI code page unless a name says UTF8; wide text is UTF-16.
// Errors: std::bad_alloc where something is allocated.
// Threads: every function may be called from any thread; what it is given is the caller's.
//
// Implemented in core/text: wildcard.cpp, code_page.cpp, string_record.cpp and path_join.cpp.
//
// Example:
//   QNStringUtils::StrIsMatching("*.TXT", "a.txt", false); // == true
//   char* path = qnUnionPath("C:/data/maps", "..\\x.json");
//   path;                                                  // == "C:\\data\\x.json"
//   qnFreeMem(path);
#ifndef QUARNFC_STRING_UTILS_H_
#define QUARNFC_STRING_UTILS_H_

#include <quarnfc/export.h>
#include <quarnfc/plain.h>
#include <quarnfc/qn_string.h>
#include <quarnfc/string_arrays.h>

#include <cstdio>

namespace QNStringUtils {

// Whether text matches pattern, where "*" stands for any run of characters, the empty one
// included, and "?" for any one character (a double-byte one is one). There is no escape for the
// two. Case is that of all letters of UTF-16. Null matches nothing. The time is at most
// proportional to the product of the two lengths, whatever the pattern.
QN_API bool StrIsMatching(const char* pattern, const char* text, bool caseSensitive);

// Conversions of zero-terminated text, all with one convention. capacity counts elements of the
// destination.
//  - A null destination with capacity 0 asks for the needed count, terminator included.
//  - A destination with capacity 0 gives 0 and converts nothing.
//  - Otherwise the text is converted and the count written, terminator included, is returned.
//  - When the text cannot be converted, for example because capacity is too small, the result is
//    capacity + 1 and a terminator is written at index capacity: one element BEYOND the stated
//    capacity. This is deliberate: reserve one element more than the capacity you pass.
// A null source, a negative capacity, or a null destination with another capacity gives 0.
//
// Example:
//   const int count = QNStringUtils::UTF82Unicode("\xE6\xB9\x98", nullptr, 0);
//   count;            // == 2
//   std::vector<wchar_t> wide(static_cast<std::size_t>(count) + 1);    // one element more
//   QNStringUtils::UTF82Unicode("\xE6\xB9\x98", wide.data(), count);    // == 2
//   wide[0];          // == L'\x6E58'

// From the process ANSI code page to UTF-16.
QN_API int Ansi2Unicode(const char* source, wchar_t* destination, int capacity);

// From UTF-16 to the process ANSI code page; characters it lacks become its default character.
QN_API int Unicode2Ansi(const wchar_t* source, char* destination, int capacity);

// From UTF-8 to UTF-16; bytes that are no UTF-8 become the replacement character U+FFFD.
QN_API int UTF82Unicode(const char* source, wchar_t* destination, int capacity);

// From UTF-16 to UTF-8; a half of a surrogate pair becomes the replacement character.
QN_API int Unicode2UTF8(const wchar_t* source, char* destination, int capacity);

// Appends a string record to a binary file: the count of bytes with the terminator as 32 bits,
// little-endian, then the text up to its first zero byte and a terminator. Nothing is reported, a
// full disk neither; a null file is ignored. A text of more than 10239 bytes is written but
// ReadString refuses it. file is open for binary writing and stays the caller's.
QN_API void WriteString(FILE* file, const CQNString& text);

// Reads a string record from a file open for binary reading. False, with text unchanged, when file
// is null or ends early or the count lies outside 1 to 10240. The position is left after what was
// read in every case. The text ends at its first zero byte.
QN_API bool ReadString(FILE* file, CQNString& text);

}  // namespace QNStringUtils

// Joins a base folder and a path. Slashes become backslashes; leading ".\" and "..\" parts of the
// path are resolved against the base. A path that starts with two backslashes, or holds a ":"
// after its first character, is absolute and stays as it is. On true, path is the joined path. On
// false (a climb above the base's last backslash, or a start such as "..name") path keeps what was
// not yet consumed. base is never changed. Nothing looks at the file system, and dots behind the
// first name stay: the result of a path from outside can lie anywhere.
QN_PLAIN_API bool qnUnionPathEx(CQNString& base, CQNString& path);

// qnUnionPath, the same for plain text, is declared in plain.h, for C hosts as well.

#endif  // QUARNFC_STRING_UTILS_H_
