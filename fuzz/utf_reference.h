// SPDX-License-Identifier: MIT
// UTF-8 and UTF-16 written down plainly: every well-formed character is what encodes its number.
#ifndef QUARNFC_FUZZ_UTF_REFERENCE_H_
#define QUARNFC_FUZZ_UTF_REFERENCE_H_

#include <cstddef>
#include <string>

namespace fuzz {

// The bytes of a number in so many bytes, whether or not that is its shortest form.
inline std::string Utf8In(std::size_t length, char32_t character) {
  if (length == 1) return std::string(1, static_cast<char>(character));
  std::string bytes;
  for (std::size_t i = 1; i < length; ++i) {
    bytes.insert(0, 1, static_cast<char>(0x80 | (character & 0x3F)));
    character >>= 6;
  }
  const unsigned mark = 0xFF00u >> length & 0xFF;
  return static_cast<char>(mark | character) + bytes;
}

inline bool IsCharacter(char32_t number) {
  return number < 0xD800 || (number > 0xDFFF && number <= 0x10FFFF);
}

inline std::size_t Utf8Length(char32_t character) {
  return character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
}

// The number that bytes would be in a form of so many, regardless of whether it may.
inline char32_t NumberIn(const std::string& bytes, std::size_t length) {
  if (length == 1) return static_cast<unsigned char>(bytes[0]);
  char32_t number = static_cast<unsigned char>(bytes[0]) & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    number = number << 6 | (static_cast<unsigned char>(bytes[i]) & 0x3Fu);
  }
  return number;
}

// The well-formed character that a text begins with; "" when there is none.
inline std::string FirstUtf8(const std::string& text) {
  for (std::size_t length = 1; length <= 4 && length <= text.size(); ++length) {
    const std::string bytes = text.substr(0, length);
    const char32_t number = NumberIn(bytes, length);
    const bool shortest = IsCharacter(number) && Utf8Length(number) == length;
    if (shortest && Utf8In(length, number) == bytes) return bytes;
  }
  return "";
}

// How many bytes, none of them a character, one replacement stands for: a lead byte, with the trail
// bytes that follow it as long as some character begins so; the first of them belongs to it
// whatever its value.
inline std::size_t BrokenLength(const std::string& text) {
  const auto byte = [&](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
  };
  const auto is_trail = [&](std::size_t i) { return (byte(i) & 0xC0) == 0x80; };
  if (byte(0) < 0xC2 || byte(0) > 0xF4 || !is_trail(1)) return 1;
  if (byte(0) < 0xF0 || !is_trail(2)) return 2;
  for (unsigned last = 0x80; last < 0xC0; ++last) {
    const std::string whole = text.substr(0, 3) + static_cast<char>(last);
    if (!FirstUtf8(whole).empty()) return 3;
  }
  return 2;
}

inline std::u16string Utf16Of(char32_t character) {
  if (character < 0x10000) return std::u16string(1, static_cast<char16_t>(character));
  const char32_t rest = character - 0x10000;
  return {static_cast<char16_t>(0xD800 | rest >> 10),
          static_cast<char16_t>(0xDC00 | (rest & 0x3FF))};
}

inline std::u16string Utf16From(std::string text) {
  std::u16string units;
  while (!text.empty()) {
    const std::string character = FirstUtf8(text);
    units += character.empty() ? u"\uFFFD" : Utf16Of(NumberIn(character, character.size()));
    text.erase(0, character.empty() ? BrokenLength(text) : character.size());
  }
  return units;
}

inline std::string Utf8From(const std::u16string& units) {
  std::string text;
  for (std::size_t i = 0; i < units.size(); ++i) {
    char32_t character = units[i];
    const bool pair = units[i] >= 0xD800 && units[i] < 0xDC00 && i + 1 < units.size() &&
                      units[i + 1] >= 0xDC00 && units[i + 1] < 0xE000;
    if (pair) character = 0x10000 + ((character & 0x3FF) << 10) + (units[++i] & 0x3FFu);
    if (!IsCharacter(character)) character = 0xFFFD;
    text += Utf8In(Utf8Length(character), character);
  }
  return text;
}

}  // namespace fuzz

#endif  // QUARNFC_FUZZ_UTF_REFERENCE_H_
