// SPDX-License-Identifier: MIT
// The multibyte string functions of the run-time library under names of this library. They are
// written here for every target because run-time libraries disagree about an incomplete character,
// a lead byte in front of the terminator: some read, or write, beyond the terminator behind it, and
// some search bytes instead of characters. None of these does.
//
// Texts are zero-terminated and in the process ANSI code page. A character code is a byte, or
// lead << 8 | trail. An incomplete character is found by no search, ends its text in a comparison
// and is left alone otherwise.
#ifndef QUARNFC_CORE_TEXT_MULTIBYTE_H_
#define QUARNFC_CORE_TEXT_MULTIBYTE_H_

#include <cstddef>

namespace quarnfc {

// Whether a character begins at this place of the text; the text begins with one. A zero byte in
// between is a character like others.
bool IsBoundary(const unsigned char* text, const unsigned char* place);

// Whether the byte is the same character in every code page and leads no other. (It may be the
// second byte of one.)
inline bool IsPlainByte(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code > 0 && code < 0x80;
}

// The first and the last place where the character stands, or null. Code 0 is the terminator.
unsigned char* MbsChr(const unsigned char* text, unsigned int ch);
unsigned char* MbsRChr(const unsigned char* text, unsigned int ch);

// The first place where sub begins with a character of text, or null; an empty sub is found at
// the start.
unsigned char* MbsStr(const unsigned char* text, const unsigned char* sub);

// The first character that is in set, or null.
unsigned char* MbsPBrk(const unsigned char* text, const unsigned char* set);

// The bytes of the leading characters that are in set, and of those that are not.
std::size_t MbsSpn(const unsigned char* text, const unsigned char* set);
std::size_t MbsCSpn(const unsigned char* text, const unsigned char* set);

// -1, 0 or 1 by character codes, as they are and in lower case.
int MbsCmp(const unsigned char* left, const unsigned char* right);
int MbsICmp(const unsigned char* left, const unsigned char* right);

// Change a text in place up to its terminator, which is in its first size bytes or right behind
// them, and keep its length.
void MbsUpr(unsigned char* text, std::size_t size);
void MbsLwr(unsigned char* text, std::size_t size);

// Reverses the text in place and returns it. The bytes of a double-byte character stay in order,
// and an incomplete character stays at the end.
unsigned char* MbsRev(unsigned char* text);

}  // namespace quarnfc

#endif  // QUARNFC_CORE_TEXT_MULTIBYTE_H_
