// Characters of a text in the process ANSI code page. A lead byte and the byte after it are one
// character, whatever the second byte is; a lead byte in front of the terminator is incomplete.
#ifndef QUARNFC_PLATFORM_MULTIBYTE_CHARACTER_H_
#define QUARNFC_PLATFORM_MULTIBYTE_CHARACTER_H_

#include <cstddef>

#include "platform/platform.h"

namespace quarnfc {

struct MultibyteCharacter {
  unsigned int value;  // lead << 8 | trail, or the byte; 0 at the end of the text
  std::size_t size;    // in bytes; 0 at the terminator

  bool IsIncomplete() const { return value >= 0x10000; }
};

// The character at text. An incomplete one has a value that no character code equals.
inline MultibyteCharacter CharacterAt(const unsigned char* text) {
  if (text[0] < 0x80 || _ismbblead(text[0]) == 0) {
    return {text[0], text[0] != 0 ? 1u : 0u};
  }
  if (text[1] == 0) {
    return {0x10000u + text[0], 1};
  }
  return {text[0] * 0x100u + text[1], 2};
}

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

#endif  // QUARNFC_PLATFORM_MULTIBYTE_CHARACTER_H_
