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

// Eight bytes, the first in the lowest place.
template <class Char>
std::uint64_t LoadWord(const Char* bytes) {
  std::uint64_t word = 0;
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(&word, bytes, 8);
  } else {
    for (int i = 0; i < 8; ++i)
      word |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << 8 * i;
  }
  return word;
}

// The high bit of the first of eight bytes that is the one looked for, and maybe those of bytes
// behind it; 0 when none is.
template <class Char>
std::uint64_t MarkByte(const Char* bytes, char byte) {
  const std::uint64_t word = LoadWord(bytes) ^ kEveryByte * static_cast<unsigned char>(byte);
  return (word - kEveryByte) & ~word & kHighBits;
}

// The first place of the byte, or end.
template <class Char>
Char* FindByte(Char* from, Char* end, char byte) {
  for (; end - from >= 8; from += 8) {
    const std::uint64_t mark = MarkByte(from, byte);
    if (mark != 0) return from + std::countr_zero(mark) / 8;
  }
  return std::find(from, end, byte);
}

// The first place of a byte that is there. Up to seven bytes behind it are read.
template <class Char>
Char* FindPresentByte(Char* from, char byte) {
  std::uint64_t mark = MarkByte(from, byte);
  for (; mark == 0; mark = MarkByte(from, byte)) from += 8;
  return from + std::countr_zero(mark) / 8;
}

}  // namespace quarnfc

#endif  // QUARNFC_CORE_TEXT_BYTE_SEARCH_H_
