// SPDX-License-Identifier: MIT
// Characters of a text in the process ANSI code page, which is walked by characters and never by
// bytes. A lead byte and the byte after it are one character, whatever the second byte is; a lead
// byte in front of the terminator is incomplete.
#ifndef QUARNFC_CORE_TEXT_CHARACTER_H_
#define QUARNFC_CORE_TEXT_CHARACTER_H_

#include <cstddef>

#include "platform/code_page.h"

namespace quarnfc {

// Text as the functions on multibyte text take it; null reads as the empty text.
inline const unsigned char* Bytes(const char* text) {
  return reinterpret_cast<const unsigned char*>(text == nullptr ? "" : text);
}

inline unsigned char* Bytes(char* text) { return reinterpret_cast<unsigned char*>(text); }

struct MultibyteCharacter {
  unsigned int value;  // lead << 8 | trail, or the byte; 0 at the end of the text
  std::size_t size;    // in bytes; 0 at the terminator

  bool IsIncomplete() const { return value >= 0x10000; }
};

// Whether a character of two bytes stands at text.
inline bool IsPair(const unsigned char* text) {
  return text[0] >= 0x80 && text[1] != 0 && platform::IsLeadByte(text[0]);
}

// The character at text. An incomplete one has a value that no character code equals.
inline MultibyteCharacter CharacterAt(const unsigned char* text) {
  if (IsPair(text)) return {text[0] * 0x100u + text[1], 2};
  if (text[0] == 0) return {0, 0};
  const bool incomplete = text[0] >= 0x80 && platform::IsLeadByte(text[0]);
  return {text[0] + (incomplete ? 0x10000u : 0u), 1};
}

// The width in bytes of the character at p; 1 for an incomplete one and for a zero byte.
inline int CharWidth(const char* p) { return IsPair(Bytes(p)) ? 2 : 1; }

// Takes the character at text for a comparison, in which an incomplete one ends its text.
inline unsigned int TakeForComparison(const unsigned char*& text) {
  const MultibyteCharacter character = CharacterAt(text);
  text += character.size;
  return character.IsIncomplete() ? 0 : character.value;
}

// The other case of a letter, or value itself. In code page 936 letters are Latin, full-width
// Latin, Greek, Cyrillic and the Roman numerals 1 to 10; those the code page has in one case only
// (as the Pinyin vowels) keep it.
unsigned int ToLowerCharacter(unsigned int value);
unsigned int ToUpperCharacter(unsigned int value);

}  // namespace quarnfc

#endif  // QUARNFC_CORE_TEXT_CHARACTER_H_
