// SPDX-License-Identifier: MIT
// Upper and lower case of characters: by a table for code page 936, where run-time libraries
// disagree, and by the platform for others.
#include "core/text/character.h"

namespace quarnfc {

namespace {

// Letters that follow each other and the distance from an upper-case one to its lower-case one.
struct LetterRange {
  unsigned int first_upper;
  unsigned int last_upper;
  unsigned int to_lower;  // modulo 2^32: the lower-case numerals stand in front
};

constexpr LetterRange kDoubleByteLetters[] = {
    {0xA2F1, 0xA2FA, 0xA2A1u - 0xA2F1u},  // Roman numerals
    {0xA3C1, 0xA3DA, 0xA3E1u - 0xA3C1u},  // full-width Latin
    {0xA6A1, 0xA6B8, 0xA6C1u - 0xA6A1u},  // Greek
    {0xA7A1, 0xA7C1, 0xA7D1u - 0xA7A1u},  // Cyrillic
};

unsigned int ToLowerIn936(unsigned int value) {
  if (value <= 0xFF) {
    return value >= 'A' && value <= 'Z' ? value + ('a' - 'A') : value;
  }
  for (const LetterRange& range : kDoubleByteLetters) {
    if (value >= range.first_upper && value <= range.last_upper) {
      return value + range.to_lower;
    }
  }
  return value;
}

unsigned int ToUpperIn936(unsigned int value) {
  if (value <= 0xFF) {
    return value >= 'a' && value <= 'z' ? value - ('a' - 'A') : value;
  }
  for (const LetterRange& range : kDoubleByteLetters) {
    const unsigned int upper = value - range.to_lower;
    if (upper >= range.first_upper && upper <= range.last_upper) {
      return upper;
    }
  }
  return value;
}

}  // namespace

unsigned int ToLowerCharacter(unsigned int value) {
  return platform::AnsiIsCodePage936() ? ToLowerIn936(value) : platform::ToLowerCase(value);
}

unsigned int ToUpperCharacter(unsigned int value) {
  return platform::AnsiIsCodePage936() ? ToUpperIn936(value) : platform::ToUpperCase(value);
}

}  // namespace quarnfc
