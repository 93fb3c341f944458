// SPDX-License-Identifier: MIT
// The length of the ASCII text at the front of a text, found eight bytes at a time: most texts are
// ASCII for long stretches, and those need no table. It stands in the lowest room because the code
// pages off Windows use it as well as what is above.
#ifndef QUARNFC_PLATFORM_ASCII_RUN_H_
#define QUARNFC_PLATFORM_ASCII_RUN_H_

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace quarnfc::platform {

// Unit is the type of one code unit, 8 or 16 bits wide.
template <typename Unit>
std::size_t AsciiRunLength(const Unit* begin, const Unit* end) {
  constexpr std::size_t kStep = sizeof(std::uint64_t) / sizeof(Unit);
  constexpr std::uint64_t kNotAscii = sizeof(Unit) == 1 ? 0x8080808080808080u : 0xFF80FF80FF80FF80u;
  const Unit* position = begin;
  while (static_cast<std::size_t>(end - position) >= kStep) {
    std::uint64_t units;
    std::memcpy(&units, position, sizeof(units));
    if ((units & kNotAscii) != 0) {
      break;
    }
    position += kStep;
  }
  while (position != end && (*position & ~0x7F) == 0) {
    ++position;
  }
  return static_cast<std::size_t>(position - begin);
}

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_ASCII_RUN_H_
