// SPDX-License-Identifier: MIT
// Text that spells bytes with an alphabet of 2^n characters, n bits a character, the most
// significant bits first: what Base64 (n = 6) and Base32 (n = 5) have in common (RFC 4648, sections
// 4 and 6, for the order of bits and the padding).
//
// Encoding takes whole groups of bytes and fills the last one up with zero bits. Decoding takes
// whole groups of characters as long as none is "=" or foreign, then single characters to the end,
// the first "=" or a foreign one. One pass over the data and one allocation; no stack beyond a few
// words. Deviations from the RFC, all deliberate: decoding stops at the first "=" wherever it
// stands and asks for no padding; left-over bits need not be zero; blanks and line breaks are
// foreign.
//
// An alphabet is a type with
//   kBits         bits per character
//   kGroupBytes   bytes of a group, the smallest run of bytes that fills whole characters
//   kGroupChars   characters of a group
//   kCharacters   the 2^kBits characters in the order of their values
//   kPadded       whether an incomplete last group is filled up with the pad character
#ifndef QUARNFC_CODEC_BIT_TEXT_H_
#define QUARNFC_CODEC_BIT_TEXT_H_

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>
#include <utility>

#include "codec/result_buffer.h"

namespace quarnfc::codec {

constexpr char kPad = '=';

// The value of a character that is not in the alphabet. No value has its top bit set.
constexpr unsigned char kForeign = 0x80;

template <class Alphabet>
constexpr std::array<unsigned char, 256> MakeValueTable() {
  std::array<unsigned char, 256> table{};
  table.fill(kForeign);
  for (unsigned value = 0; value < (1u << Alphabet::kBits); ++value) {
    table[static_cast<unsigned char>(Alphabet::kCharacters[value])] =
        static_cast<unsigned char>(value);
  }
  return table;
}

template <class Alphabet>
inline constexpr std::array<unsigned char, 256> kValues = MakeValueTable<Alphabet>();

template <class Alphabet>
unsigned char ValueOf(char ch) {
  return kValues<Alphabet>[static_cast<unsigned char>(ch)];
}

template <class Alphabet>
unsigned char ValueOf(wchar_t ch) {
  return ch < 0x100 ? kValues<Alphabet>[ch & 0xFF] : kForeign;
}

// Characters allocated for the text of size bytes, the terminator included.
template <class Alphabet>
constexpr std::uint64_t EncodedCapacity(std::uint64_t size) {
  return size * 8 / Alphabet::kBits + Alphabet::kGroupChars;
}

// Bytes allocated for length characters of text.
template <class Alphabet>
constexpr std::uint64_t DecodedCapacity(std::uint64_t length) {
  return (length * Alphabet::kBits >> 3) + 1;
}

// Calls action with 0 to Count - 1 as compile-time constants: a loop that is always unrolled.
template <int Count, class Action>
void ForEach(const Action& action) {
  [&]<int... I>(std::integer_sequence<int, I...>) {
    (action(std::integral_constant<int, I>{}), ...);
  }
  (std::make_integer_sequence<int, Count>{});
}

// A faster way for the start of the data or text. Each function returns how many whole groups it
// has done, which may be none; the plain loop goes on from there and, for texts, comes back after
// the next group. Specialised where there is one.
template <class Alphabet, class Char>
struct FastPath {
  static std::uint64_t Encode(const unsigned char*, std::uint64_t, Char*) { return 0; }
  static std::uint64_t Decode(const Char*, std::uint64_t, unsigned char*) { return 0; }
};

// --- encoding ---------------------------------------------------------------------------------

// Writes the characters of one whole group.
template <class Alphabet, class Char>
void EncodeGroup(const unsigned char* data, Char* text) {
  std::uint64_t group = 0;
  ForEach<Alphabet::kGroupBytes>([&](auto i) { group = group << 8 | data[i]; });
  ForEach<Alphabet::kGroupChars>([&](auto k) {
    constexpr int kShift = Alphabet::kBits * (Alphabet::kGroupChars - 1 - k);
    const auto value = group >> kShift & ((1u << Alphabet::kBits) - 1);
    text[k] = static_cast<Char>(Alphabet::kCharacters[value]);
  });
}

// Writes the characters of an incomplete last group of size bytes, missing bits as zeros; returns
// the end of the text.
template <class Alphabet, class Char>
Char* EncodeRemainder(const unsigned char* data, unsigned size, Char* text) {
  if (size == 0) return text;
  unsigned char filled[Alphabet::kGroupBytes] = {};
  std::copy(data, data + size, filled);
  EncodeGroup<Alphabet>(filled, text);
  Char* end = text + (size * 8 + Alphabet::kBits - 1) / Alphabet::kBits;
  if constexpr (Alphabet::kPadded) {
    for (; end < text + Alphabet::kGroupChars; ++end) *end = static_cast<Char>(kPad);
  }
  return end;
}

// A new zero-terminated text for size bytes; null when memory is exhausted.
template <class Alphabet, class Char>
Char* EncodeBits(const unsigned char* data, unsigned int size) noexcept {
  if (data == nullptr) size = 0;
  const std::uint64_t capacity = EncodedCapacity<Alphabet>(size);
  Char* const text = TryAllocResult<Char>(capacity);
  if (text == nullptr) return nullptr;

  const std::uint64_t done = FastPath<Alphabet, Char>::Encode(data, size, text);
  Char* end = text + done * Alphabet::kGroupChars;
  const unsigned char* const groups_end = data + (size - size % Alphabet::kGroupBytes);
  data += done * Alphabet::kGroupBytes;
  for (; data != groups_end; data += Alphabet::kGroupBytes, end += Alphabet::kGroupChars) {
    EncodeGroup<Alphabet>(data, end);
  }
  end = EncodeRemainder<Alphabet>(data, size % Alphabet::kGroupBytes, end);
  std::fill(end, text + capacity, Char{});
  return text;
}

// --- decoding ---------------------------------------------------------------------------------

inline std::uint64_t LengthOf(const char* text) { return std::strlen(text); }
inline std::uint64_t LengthOf(const wchar_t* text) { return WideLength(text); }

// The count of characters to decode: 0 asks for all up to the terminator.
template <class Char>
std::uint64_t CountToDecode(const Char* text, unsigned int length) {
  if (text == nullptr) return 0;
  return length != 0 ? length : LengthOf(text);
}

// Decodes one group; false, with nothing stored, when it holds a pad or foreign character. Reads
// nothing behind the first of them: the count may be larger than the text.
template <class Alphabet, class Char>
bool DecodeGroup(const Char* text, unsigned char* data) {
  std::uint64_t group = 0;
  for (int k = 0; k < Alphabet::kGroupChars; ++k) {
    const unsigned value = ValueOf<Alphabet>(text[k]);
    if ((value & kForeign) != 0) return false;
    group = group << Alphabet::kBits | value;
  }
  ForEach<Alphabet::kGroupBytes>([&](auto i) {
    data[i] = static_cast<unsigned char>(group >> 8 * (Alphabet::kGroupBytes - 1 - i));
  });
  return true;
}

// Decodes whole groups up to the first that holds a pad or foreign character; returns the number
// of groups.
template <class Alphabet, class Char>
std::uint64_t DecodeGroups(const Char* text, std::uint64_t length, unsigned char* data) {
  const std::uint64_t groups = length / Alphabet::kGroupChars;
  for (std::uint64_t done = 0; done < groups; ++done) {
    const Char* rest = text + done * Alphabet::kGroupChars;
    const std::uint64_t rest_length = length - done * Alphabet::kGroupChars;
    const std::uint64_t fast =
        FastPath<Alphabet, Char>::Decode(rest, rest_length, data + done * Alphabet::kGroupBytes);
    done += fast;
    if (done == groups) break;
    if (!DecodeGroup<Alphabet>(rest + fast * Alphabet::kGroupChars,
                               data + done * Alphabet::kGroupBytes)) {
      return done;
    }
  }
  return groups;
}

// Decodes what is left in front of the pad character or the end of the text, less than a group.
// The bits of a byte not completed are stored too, but not counted. Returns the number of bytes,
// or -1 when there is a foreign character.
template <class Alphabet, class Char>
int DecodeRemainder(const Char* text, std::uint64_t length, unsigned char* data) {
  std::uint64_t gathered = 0;
  int bits = 0;
  int count = 0;
  for (std::uint64_t i = 0; i < length && text[i] != static_cast<Char>(kPad); ++i) {
    const unsigned value = ValueOf<Alphabet>(text[i]);
    if (value == kForeign) return -1;
    gathered = gathered << Alphabet::kBits | value;
    bits += Alphabet::kBits;
    if (bits < 8) continue;
    bits -= 8;
    data[count++] = static_cast<unsigned char>(gathered >> bits);
  }
  if (bits > 0) data[count] = static_cast<unsigned char>(gathered << (8 - bits));
  return count;
}

// Decodes into data, capacity bytes, and fills up with zeros; returns the number of bytes, or -1
// when the text is refused.
template <class Alphabet, class Char>
int DecodeInto(unsigned char* data, std::uint64_t capacity, const Char* text,
               std::uint64_t length) {
  const std::uint64_t groups = DecodeGroups<Alphabet>(text, length, data);
  const std::uint64_t decoded = groups * Alphabet::kGroupBytes;
  const std::uint64_t consumed = groups * Alphabet::kGroupChars;
  std::fill(data + decoded, data + capacity, static_cast<unsigned char>(0));
  const int rest = DecodeRemainder<Alphabet>(text + consumed, length - consumed, data + decoded);
  if (rest < 0 || decoded + static_cast<unsigned>(rest) > std::numeric_limits<int>::max())
    return -1;
  return static_cast<int>(decoded) + rest;
}

// Decodes text into a new buffer stored in *data; see the public decoders.
template <class Alphabet, class Char>
int DecodeBits(const Char* text, unsigned int length, unsigned char** data) noexcept {
  if (data == nullptr) return 0;
  *data = nullptr;
  const std::uint64_t characters = CountToDecode(text, length);
  const std::uint64_t capacity = DecodedCapacity<Alphabet>(characters);
  auto* const buffer = TryAllocResult<unsigned char>(capacity);
  if (buffer == nullptr) return 0;

  const int count = DecodeInto<Alphabet>(buffer, capacity, text, characters);
  if (count < 0) {
    FreeBuffer(buffer);
    return 0;
  }
  *data = buffer;
  return count;
}

}  // namespace quarnfc::codec

#endif  // QUARNFC_CODEC_BIT_TEXT_H_
