// SPDX-License-Identifier: MIT
// Finding a byte in short stretches, where a call of memchr costs more than what it saves.
#ifndef QUARNFC_CORE_TEXT_BYTE_SEARCH_H_
#define QUARNFC_CORE_TEXT_BYTE_SEARCH_H_

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace quarnfc {

// Eight bytes as a word.
inline constexpr std::uint64_t kEveryByte = 0x0101010101010101;
inline constexpr std::uint64_t kHighBits = 0x80 * kEveryByte;

// The offset of the first of eight bytes that is the one looked for; 8 when none is.
template <class Char>
int FindInWord(const Char* bytes, char byte) {
  if constexpr (std::endian::native != std::endian::little) {
    return static_cast<int>(std::find(bytes, bytes + 8, byte) - bytes);
  }
  std::uint64_t word;
  std::memcpy(&word, bytes, 8);
  word ^= kEveryByte * static_cast<unsigned char>(byte);
  // The high bit of each byte that is 0 now; above the first of them others may be set, too.
  const std::uint64_t found = (word - kEveryByte) & ~word & kHighBits;
  return std::countr_zero(found) / 8;
}

// The first place of the byte, or end.
template <class Char>
Char* FindByte(Char* from, Char* end, char byte) {
  for (; end - from >= 8; from += 8) {
    const int offset = FindInWord(from, byte);
    if (offset < 8) return from + offset;
  }
  return std::find(from, end, byte);
}

// The first place of a byte that is there. Up to seven bytes behind it are read.
template <class Char>
Char* FindPresentByte(Char* from, char byte) {
  for (;; from += 8) {
    const int offset = FindInWord(from, byte);
    if (offset < 8) return from + offset;
  }
}

}  // namespace quarnfc

#endif  // QUARNFC_CORE_TEXT_BYTE_SEARCH_H_
