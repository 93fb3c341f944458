// SPDX-License-Identifier: MIT
// Bytes first: the C library finds and compares bytes, and the characters of character.h are looked
// at only where that may matter. A hit counts where a character begins, which the bytes in front of
// it tell: whatever a byte is that leads no character, the next byte begins one, so an even number
// of lead bytes in front of a place means that a character begins there. Nothing is allocated and
// nothing recurses.
#include "core/text/multibyte.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "core/text/byte_search.h"
#include "core/text/character.h"

namespace quarnfc {

namespace {

unsigned char* Mutable(const unsigned char* text) { return const_cast<unsigned char*>(text); }

const char* Chars(const unsigned char* text) { return reinterpret_cast<const char*>(text); }

bool IsPlainCode(unsigned int ch) { return ch > 0 && ch < 0x80; }

// The first place of any character, by steps from character to character.
unsigned char* WalkTo(const unsigned char* text, unsigned int ch) {
  for (;;) {
    const MultibyteCharacter character = CharacterAt(text);
    if (character.value == ch) return Mutable(text);
    if (character.size == 0) return nullptr;
    text += character.size;
  }
}

unsigned char* WalkToLast(const unsigned char* text, unsigned int ch) {
  const unsigned char* found = nullptr;
  for (;;) {
    const MultibyteCharacter character = CharacterAt(text);
    if (character.value == ch) found = text;
    if (character.size == 0) return Mutable(found);
    text += character.size;
  }
}

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

// The lower case of a byte below 0x80, which is the same in every code page.
unsigned char ToLowerLatin(unsigned char byte) {
  return static_cast<unsigned char>(byte + (byte >= 'A' && byte <= 'Z' ? 'a' - 'A' : 0));
}

constexpr std::ptrdiff_t kBlockSize = 64;

// Changes the case of the Latin letters from first ('a' or 'A') on in eight bytes below 0x80:
// adding carries into the high bit of a byte exactly where it is at least first, or above the last.
std::uint64_t SwitchCase(std::uint64_t word, unsigned char first) {
  const unsigned char last = static_cast<unsigned char>(first + 25);
  const std::uint64_t from_first = word + (0x80u - first) * kEveryByte;
  const std::uint64_t above_last = word + (0x7Fu - last) * kEveryByte;
  return word ^ ((from_first & ~above_last & kHighBits) >> 2);
}

// Eight bytes in the machine's own order, since they are written back (LoadWord has a fixed one).
std::uint64_t WordAt(const unsigned char* bytes) {
  std::uint64_t word;
  std::memcpy(&word, bytes, sizeof(word));
  return word;
}

// Whether eight bytes of each text are plain and equal in lower case.
bool AreEqualWords(const unsigned char* left, const unsigned char* right) {
  const std::uint64_t a = WordAt(left);
  const std::uint64_t b = WordAt(right);
  return ((a | b) & kHighBits) == 0 && SwitchCase(a, 'A') == SwitchCase(b, 'A');
}

// How many bytes two texts begin with that are plain and equal in lower case, rounded down to a
// multiple of eight. Where a text ends is asked for piece by piece: what lies behind a difference
// costs nothing.
std::size_t EqualWords(const unsigned char* left, const unsigned char* right) {
  std::size_t equal = 0;
  for (;;) {
    const std::size_t size =
        strnlen(Chars(right + equal), strnlen(Chars(left + equal), kBlockSize));
    const std::size_t stop = equal + size;
    while (stop - equal >= 8 && AreEqualWords(left + equal, right + equal)) equal += 8;
    if (equal < stop || size < kBlockSize) return equal;
  }
}

// The high bits of the bytes that are zero or at least 0x80 in eight bytes, and perhaps more of
// them above such a byte.
std::uint64_t NotPlain(std::uint64_t word) { return (word | (word - kEveryByte)) & kHighBits; }

// Changes the case of sixty-four bytes if all are plain and none is the terminator. Compilers make
// wide steps of the loops; the bytes are not taken into an array first, since wide loads wait for
// narrow stores in front of them.
bool SwitchCaseOfPlainBlock(unsigned char* block, unsigned char first) {
  unsigned char most = 0;
  for (std::ptrdiff_t i = 0; i < kBlockSize; ++i) {
    most = std::max(most, static_cast<unsigned char>(block[i] - 1));  // the terminator becomes 0xFF
  }
  if (most >= 0x7F) return false;
  for (std::ptrdiff_t i = 0; i < kBlockSize; ++i) {
    const bool is_letter = static_cast<unsigned char>(block[i] - first) < 26;
    block[i] = static_cast<unsigned char>(block[i] ^ (is_letter ? 0x20 : 0));
  }
  return true;
}

// Changes the case of the characters that begin in front of stop; end is that of the buffer. Eight
// plain bytes are changed at a time. Returns what follows; end at the terminator or an incomplete
// character.
template <typename Mapping>
unsigned char* MapUpTo(unsigned char* position, const unsigned char* stop, unsigned char* end,
                       unsigned char first, Mapping mapping) {
  while (position < stop) {
    if (end - position >= 8 && NotPlain(WordAt(position)) == 0) {
      const std::uint64_t word = SwitchCase(WordAt(position), first);
      std::memcpy(position, &word, sizeof(word));
      position += 8;
      continue;
    }
    const MultibyteCharacter character = CharacterAt(position);
    if (character.size == 0 || character.IsIncomplete()) return end;
    const unsigned int mapped = mapping(character.value);
    if (character.size == 2) *position++ = static_cast<unsigned char>(mapped >> 8);
    *position++ = static_cast<unsigned char>(mapped);
  }
  return position;
}

// Changes the case of a text whose twenty-six letters from first on map to the other case; a
// mapping keeps the size of a character.
template <typename Mapping>
void MapCharacters(unsigned char* text, std::size_t size, unsigned char first, Mapping mapping) {
  unsigned char* position = text;
  unsigned char* const end = text + size;
  while (position < end) {
    const bool is_block = end - position >= kBlockSize;
    if (is_block && SwitchCaseOfPlainBlock(position, first)) {
      position += kBlockSize;
    } else {
      position = MapUpTo(position, is_block ? position + kBlockSize : end, end, first, mapping);
    }
  }
}

}  // namespace

bool IsBoundary(const unsigned char* text, const unsigned char* place) {
  const unsigned char* at = place;
  while (at != text && at[-1] >= 0x80 && platform::IsLeadByte(at[-1])) --at;
  return (place - at) % 2 == 0;
}

unsigned char* MbsChr(const unsigned char* text, unsigned int ch) {
  if (!IsPlainCode(ch)) return WalkTo(text, ch);
  for (const char* hit = Chars(text); (hit = std::strchr(hit, static_cast<int>(ch))) != nullptr;
       ++hit) {
    if (IsBoundary(text, Bytes(hit))) return Mutable(Bytes(hit));
  }
  return nullptr;
}

unsigned char* MbsRChr(const unsigned char* text, unsigned int ch) {
  if (!IsPlainCode(ch)) return WalkToLast(text, ch);
  const char* hit = std::strrchr(Chars(text), static_cast<int>(ch));
  if (hit == nullptr) return nullptr;
  for (const unsigned char* at = Bytes(hit) + 1; at-- != text;) {
    if (*at == ch && IsBoundary(text, at)) return Mutable(at);
  }
  return nullptr;
}

unsigned char* MbsStr(const unsigned char* text, const unsigned char* sub) {
  for (const char* hit = Chars(text); (hit = std::strstr(hit, Chars(sub))) != nullptr; ++hit) {
    if (IsBoundary(text, Bytes(hit))) return Mutable(Bytes(hit));
  }
  return nullptr;
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
  if (std::strcmp(Chars(left), Chars(right)) == 0) return 0;
  std::size_t equal = 0;
  while (left[equal] == right[equal]) ++equal;
  if (!IsBoundary(left, left + equal)) --equal;  // to the lead byte that both have
  return Compare(left + equal, right + equal, [](unsigned int value) { return value; });
}

int MbsICmp(const unsigned char* left, const unsigned char* right) {
  if (ToLowerLatin(*left) == ToLowerLatin(*right)) {
    const std::size_t equal = EqualWords(left, right);
    left += equal;
    right += equal;
  }
  for (; *left < 0x80 && *right < 0x80; ++left, ++right) {
    const unsigned char left_byte = ToLowerLatin(*left);
    const unsigned char right_byte = ToLowerLatin(*right);
    if (left_byte != right_byte) return left_byte > right_byte ? 1 : -1;
    if (left_byte == 0) return 0;
  }
  return Compare(left, right, ToLowerCharacter);
}

void MbsUpr(unsigned char* text, std::size_t size) {
  MapCharacters(text, size, 'a', ToUpperCharacter);
}

void MbsLwr(unsigned char* text, std::size_t size) {
  MapCharacters(text, size, 'A', ToLowerCharacter);
}

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
