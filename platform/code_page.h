// SPDX-License-Identifier: MIT
// The process ANSI code page and UTF-8: conversion to and from UTF-16, and what single characters
// of the code page are. Off Windows the ANSI and the OEM code page are 936.
//
// Every function may be called by several threads at once; none throws.
#ifndef QUARNFC_PLATFORM_CODE_PAGE_H_
#define QUARNFC_PLATFORM_CODE_PAGE_H_

#include <cstddef>

namespace quarnfc::platform {

// --- whole texts --------------------------------------------------------------------------------

enum class Encoding {
  kAnsi,  // the process ANSI code page
  kUtf8,
};

// The encoding of text in the paths that the host's file functions take: kAnsi on Windows, kUtf8
// elsewhere.
Encoding PathEncoding();

// As a length: the text up to its terminator, which is converted too.
inline constexpr int kTerminated = -1;

// Converts length bytes of source and returns the number of units written to destination; with
// capacity 0 nothing is written, and the result is the number the whole text takes. What is no
// character becomes a question mark (kAnsi) or U+FFFD (kUtf8).
//
// 0 is failure: source null or the destination itself, length 0, capacity negative or without a
// destination, a result that does not fit into capacity units or that no int counts. Nothing is
// written beyond the capacity then.
int ToUtf16(Encoding from, const char* source, int length, wchar_t* destination, int capacity);

// The other way, under the same rules. A unit that the code page lacks becomes its best fit or a
// question mark (kAnsi), half a surrogate pair U+FFFD (kUtf8).
int FromUtf16(Encoding to, const wchar_t* source, int length, char* destination, int capacity);

// The offset of the first byte that begins no character of the ANSI code page; length when every
// byte belongs to one. length is at most INT_MAX.
std::size_t FindInvalidAnsi(const char* source, std::size_t length);

// The index of the first unit whose character the ANSI code page lacks, a best fit counting as
// lacking; length when it has all. length is at most INT_MAX.
std::size_t FindLostInAnsi(const wchar_t* source, std::size_t length);

// Convert zero-terminated text between the ANSI and the OEM code page in place; the length stays.
void ConvertAnsiToOem(char* text);
void ConvertOemToAnsi(char* text);

// Converts length units to upper case in place, each by itself.
void ToUpperCase(wchar_t* text, std::size_t length);

// --- characters of the ANSI code page -----------------------------------------------------------
//
// A character code is a byte, or lead << 8 | trail.

// Whether the byte begins a character of two bytes.
bool IsLeadByte(unsigned char byte);

// Whether a lead byte and the byte behind it are a character that the code page has.
bool IsCharacter(unsigned char lead, unsigned char trail);

// Whether the character is white space. Numbers that are no character code, such as bytes above
// 0x7F that were sign-extended, are none in code page 936.
bool IsSpace(unsigned int code);

// Whether the code page is 936, whose letters the library knows by itself.
bool AnsiIsCodePage936();

// The other case of a letter, or code itself, in a code page other than 936.
unsigned int ToLowerCase(unsigned int code);
unsigned int ToUpperCase(unsigned int code);

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_CODE_PAGE_H_
