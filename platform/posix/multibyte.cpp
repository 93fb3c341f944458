// The multibyte run-time functions that walk, search and reverse texts in code page 936. None of
// them takes a trail byte for a character or steps over the terminator behind an incomplete one.
#include <algorithm>
#include <cstring>

#include "platform/posix/multibyte_character.h"
#include "platform/posix/platform.h"

namespace {

using quarnfc::CharacterAt;
using quarnfc::IsLeadByte;
using quarnfc::MultibyteCharacter;

unsigned char* Mutable(const unsigned char* text) { return const_cast<unsigned char*>(text); }

bool IsInSet(unsigned int value, const unsigned char* set) {
  for (MultibyteCharacter member = CharacterAt(set); member.size != 0; member = CharacterAt(set)) {
    if (member.value == value) {
      return true;
    }
    set += member.size;
  }
  return false;
}

// The bytes of the leading run of characters that are in set, or that are not.
std::size_t SpanOf(const unsigned char* text, const unsigned char* set, bool in_set) {
  const unsigned char* position = text;
  for (MultibyteCharacter next = CharacterAt(position);
       next.size != 0 && IsInSet(next.value, set) == in_set; next = CharacterAt(position)) {
    position += next.size;
  }
  return static_cast<std::size_t>(position - text);
}

}  // namespace

int _ismbblead(unsigned int byte) { return IsLeadByte(static_cast<unsigned char>(byte)) ? 1 : 0; }

// A character code is a byte or lead << 8 | trail; other numbers, as those of bytes above 0x7F that
// were sign-extended, are no white space.
int _ismbcspace(unsigned int ch) {
  constexpr unsigned int kIdeographicSpace = 0xA1A1;
  return (ch >= '\t' && ch <= '\r') || ch == ' ' || ch == kIdeographicSpace ? 1 : 0;
}

std::size_t _mbclen(const unsigned char* ch) { return IsLeadByte(ch[0]) && ch[1] != 0 ? 2 : 1; }

unsigned char* _mbsinc(const unsigned char* text) { return Mutable(text) + _mbclen(text); }

unsigned char* _mbschr(const unsigned char* text, unsigned int ch) {
  for (;;) {
    const MultibyteCharacter character = CharacterAt(text);
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
    const MultibyteCharacter character = CharacterAt(text);
    if (character.value == ch) {
      found = text;
    }
    if (character.size == 0) {
      return Mutable(found);
    }
    text += character.size;
  }
}

// The C library finds the bytes; a hit counts where a character begins. Characters are walked once.
unsigned char* _mbsstr(const unsigned char* text, const unsigned char* sub) {
  const unsigned char* hit = text;
  for (;;) {
    hit = reinterpret_cast<const unsigned char*>(
        std::strstr(reinterpret_cast<const char*>(hit), reinterpret_cast<const char*>(sub)));
    if (hit == nullptr) {
      return nullptr;
    }
    while (text < hit) {
      text += CharacterAt(text).size;
    }
    if (text == hit) {
      return Mutable(hit);
    }
    hit = text;
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

// Turns the bytes of every double-byte character round and then the whole text. An incomplete
// character stays at the end, where it can swallow no other.
unsigned char* _mbsrev(unsigned char* text) {
  unsigned char* position = text;
  for (MultibyteCharacter next = CharacterAt(position); next.size != 0 && !next.IsIncomplete();
       next = CharacterAt(position)) {
    std::reverse(position, position + next.size);
    position += next.size;
  }
  std::reverse(text, position);
  return text;
}
