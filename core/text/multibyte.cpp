// Characters are cut from the left, one at a time, by the rule of character.h: whether a
// byte is a lead byte depends on the bytes in front of it, so nothing here starts in the middle of
// a text or reads backwards. Searches compare at every character (time at most the product of the
// lengths); nothing is allocated and nothing recurses.
#include "core/text/multibyte.h"

#include <algorithm>
#include <cstring>

#include "core/text/character.h"

namespace quarnfc {

namespace {

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

template <typename Mapping>
int Compare(const unsigned char* left, const unsigned char* right, Mapping mapping) {
  for (;;) {
    const unsigned int left_value = mapping(TakeForComparison(left));
    const unsigned int right_value = mapping(TakeForComparison(right));
    if (left_value != right_value) {
      return left_value > right_value ? 1 : -1;
    }
    if (left_value == 0) {
      return 0;
    }
  }
}

// Writes mapped characters back over the text; a mapping keeps the size of a character.
template <typename Mapping>
unsigned char* MapCharacters(unsigned char* text, Mapping mapping) {
  for (unsigned char* position = text; *position != 0;) {
    const MultibyteCharacter character = CharacterAt(position);
    if (character.IsIncomplete()) {
      break;
    }
    const unsigned int mapped = mapping(character.value);
    if (character.size == 2) {
      *position++ = static_cast<unsigned char>(mapped >> 8);
    }
    *position++ = static_cast<unsigned char>(mapped);
  }
  return text;
}

}  // namespace

unsigned char* MbsChr(const unsigned char* text, unsigned int ch) {
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

unsigned char* MbsRChr(const unsigned char* text, unsigned int ch) {
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
unsigned char* MbsStr(const unsigned char* text, const unsigned char* sub) {
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

unsigned char* MbsPBrk(const unsigned char* text, const unsigned char* set) {
  const unsigned char* found = text + MbsCSpn(text, set);
  return *found != 0 ? Mutable(found) : nullptr;
}

std::size_t MbsSpn(const unsigned char* text, const unsigned char* set) {
  return SpanOf(text, set, true);
}

std::size_t MbsCSpn(const unsigned char* text, const unsigned char* set) {
  return SpanOf(text, set, false);
}

int MbsCmp(const unsigned char* left, const unsigned char* right) {
  return Compare(left, right, [](unsigned int value) { return value; });
}

int MbsICmp(const unsigned char* left, const unsigned char* right) {
  return Compare(left, right, ToLowerCharacter);
}

unsigned char* MbsUpr(unsigned char* text) { return MapCharacters(text, ToUpperCharacter); }

unsigned char* MbsLwr(unsigned char* text) { return MapCharacters(text, ToLowerCharacter); }

// Turns the bytes of every double-byte character round and then the whole text. In front, an
// incomplete character would swallow another.
unsigned char* MbsRev(unsigned char* text) {
  unsigned char* position = text;
  for (MultibyteCharacter next = CharacterAt(position); next.size != 0 && !next.IsIncomplete();
       next = CharacterAt(position)) {
    std::reverse(position, position + next.size);
    position += next.size;
  }
  std::reverse(text, position);
  return text;
}

}  // namespace quarnfc
