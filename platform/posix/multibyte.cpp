// The multibyte run-time functions for code page 936. Texts are read by characters: a lead byte
// and the byte after it are one character, whatever the second byte is. A lead byte in front of
// the terminator is incomplete; no function steps over the terminator behind it.
#include <algorithm>
#include <cstring>

#include "platform/posix/platform.h"

namespace {

constexpr bool IsLead(unsigned char byte) { return byte >= 0x81 && byte <= 0xFE; }

// One character of a text.
struct Character {
  unsigned int value;  // lead << 8 | trail, or the byte; 0 at the end of the text
  std::size_t size;    // in bytes; 0 at the terminator
};

// An incomplete character has this added to its lead byte, so that no search finds it.
constexpr unsigned int kIncomplete = 0x10000;

Character CharacterAt(const unsigned char* text) {
  if (!IsLead(text[0])) {
    return {text[0], text[0] != 0 ? 1u : 0u};
  }
  if (text[1] == 0) {
    return {kIncomplete + text[0], 1};
  }
  return {text[0] * 256u + text[1], 2};
}

// Letters in two cases: the double-byte ranges of the code page and the distance between them.
struct CaseRange {
  unsigned int upper_first;
  unsigned int upper_last;
  int to_lower;
};

constexpr CaseRange kCaseRanges[] = {
    {'A', 'Z', 'a' - 'A'},
    {0xA2F1, 0xA2FA, 0xA2A1 - 0xA2F1},  // Roman numerals 1 to 10
    {0xA3C1, 0xA3DA, 0xA3E1 - 0xA3C1},  // full-width Latin
    {0xA6A1, 0xA6B8, 0xA6C1 - 0xA6A1},  // Greek
    {0xA7A1, 0xA7C1, 0xA7D1 - 0xA7A1},  // Cyrillic
};

unsigned int ToLower(unsigned int value) {
  for (const CaseRange& range : kCaseRanges) {
    if (value >= range.upper_first && value <= range.upper_last) {
      return value + static_cast<unsigned int>(range.to_lower);
    }
  }
  return value;
}

unsigned int ToUpper(unsigned int value) {
  for (const CaseRange& range : kCaseRanges) {
    const unsigned int upper = value - static_cast<unsigned int>(range.to_lower);
    if (upper >= range.upper_first && upper <= range.upper_last) {
      return upper;
    }
  }
  return value;
}

unsigned int Unchanged(unsigned int value) { return value; }

template <typename Mapping>
unsigned char* MapCharacters(unsigned char* text, Mapping mapping) {
  for (unsigned char* position = text; *position != 0;) {
    const Character character = CharacterAt(position);
    const unsigned int mapped = mapping(character.value);
    if (character.size == 2) {
      *position++ = static_cast<unsigned char>(mapped >> 8);
    }
    *position++ = static_cast<unsigned char>(mapped);
  }
  return text;
}

// Compares by characters; an incomplete one ends its text.
template <typename Mapping>
int CompareCharacters(const unsigned char* left, const unsigned char* right, Mapping mapping) {
  const auto next = [&mapping](const unsigned char*& text) {
    const Character character = CharacterAt(text);
    text += character.size;
    return character.value >= kIncomplete ? 0u : mapping(character.value);
  };
  for (;;) {
    const unsigned int left_value = next(left);
    const unsigned int right_value = next(right);
    if (left_value != right_value) {
      return left_value > right_value ? 1 : -1;
    }
    if (left_value == 0) {
      return 0;
    }
  }
}

bool IsInSet(Character character, const unsigned char* set) {
  for (Character member = CharacterAt(set); member.size != 0; member = CharacterAt(set)) {
    if (member.value == character.value) {
      return true;
    }
    set += member.size;
  }
  return false;
}

// The bytes of the leading run of characters whose membership in set is as given.
std::size_t SpanOf(const unsigned char* text, const unsigned char* set, bool membership) {
  const unsigned char* position = text;
  for (Character next = CharacterAt(position); next.size != 0; next = CharacterAt(position)) {
    if (IsInSet(next, set) != membership) {
      break;
    }
    position += next.size;
  }
  return static_cast<std::size_t>(position - text);
}

unsigned char* Mutable(const unsigned char* text) { return const_cast<unsigned char*>(text); }

}  // namespace

int _ismbblead(unsigned int byte) { return IsLead(static_cast<unsigned char>(byte)) ? 1 : 0; }

int _ismbcspace(unsigned int ch) {
  constexpr unsigned int kIdeographicSpace = 0xA1A1;
  return (ch >= 0x09 && ch <= 0x0D) || ch == ' ' || ch == kIdeographicSpace ? 1 : 0;
}

std::size_t _mbclen(const unsigned char* ch) { return IsLead(*ch) ? 2 : 1; }

unsigned char* _mbsinc(const unsigned char* text) {
  return Mutable(text) + (IsLead(text[0]) && text[1] != 0 ? 2 : 1);
}

unsigned char* _mbschr(const unsigned char* text, unsigned int ch) {
  for (;;) {
    const Character character = CharacterAt(text);
    if (character.value == ch) {
      return Mutable(text);
    }
    if (character.size == 0) {
      return nullptr;
    }
    text += character.size;
  }
}

unsigned char* _mbsrchr(const unsigned char* text, unsigned int ch) {
  const unsigned char* found = nullptr;
  for (;;) {
    const Character character = CharacterAt(text);
    if (character.value == ch) {
      found = text;
    }
    if (character.size == 0) {
      return Mutable(found);
    }
    text += character.size;
  }
}

unsigned char* _mbsstr(const unsigned char* text, const unsigned char* sub) {
  const std::size_t length = std::strlen(reinterpret_cast<const char*>(sub));
  for (;;) {
    if (std::strncmp(reinterpret_cast<const char*>(text), reinterpret_cast<const char*>(sub),
                     length) == 0) {
      return Mutable(text);
    }
    const Character character = CharacterAt(text);
    if (character.size == 0) {
      return nullptr;
    }
    text += character.size;
  }
}

unsigned char* _mbspbrk(const unsigned char* text, const unsigned char* set) {
  const unsigned char* found = text + _mbscspn(text, set);
  return *found != 0 ? Mutable(found) : nullptr;
}

std::size_t _mbsspn(const unsigned char* text, const unsigned char* set) {
  return SpanOf(text, set, true);
}

std::size_t _mbscspn(const unsigned char* text, const unsigned char* set) {
  return SpanOf(text, set, false);
}

int _mbscmp(const unsigned char* left, const unsigned char* right) {
  return CompareCharacters(left, right, Unchanged);
}

int _mbsicmp(const unsigned char* left, const unsigned char* right) {
  return CompareCharacters(left, right, ToLower);
}

int _mbscoll(const unsigned char* left, const unsigned char* right) {
  return CompareCharacters(left, right, Unchanged);
}

int _mbsicoll(const unsigned char* left, const unsigned char* right) {
  return CompareCharacters(left, right, ToLower);
}

unsigned char* _mbsupr(unsigned char* text) { return MapCharacters(text, ToUpper); }

unsigned char* _mbslwr(unsigned char* text) { return MapCharacters(text, ToLower); }

// Turns the bytes of every double-byte character round and then the whole text.
unsigned char* _mbsrev(unsigned char* text) {
  unsigned char* position = text;
  for (Character next = CharacterAt(position); next.size != 0; next = CharacterAt(position)) {
    std::reverse(position, position + next.size);
    position += next.size;
  }
  std::reverse(text, position);
  return text;
}
