// SPDX-License-Identifier: MIT
// The rules of texts written down plainly and slowly, to compare the library with: characters of
// code page 936 as a list, one step after the other.
#ifndef QUARNFC_FUZZ_REFERENCE_H_
#define QUARNFC_FUZZ_REFERENCE_H_

#include <quarnfc/qn_string.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

using Characters = std::vector<std::string>;

inline bool IsLead(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code >= 0x81 && code <= 0xFE;
}

// A lead byte and the byte behind it are one character, every other byte is one by itself.
inline Characters CharactersOf(std::string_view text) {
  Characters characters;
  for (std::size_t i = 0; i < text.size(); i += characters.back().size()) {
    characters.emplace_back(text.substr(i, IsLead(text[i]) ? 2 : 1));
  }
  return characters;
}

// Whether the text ends in the first half of a character.
inline bool IsCutOff(std::string_view text) {
  const Characters characters = CharactersOf(text);
  return !characters.empty() && characters.back().size() == 1 && IsLead(characters.back()[0]);
}

inline std::string Joined(const Characters& characters) {
  std::string text;
  for (const std::string& character : characters) text += character;
  return text;
}

inline bool Contains(const Characters& set, const std::string& character) {
  return std::find(set.begin(), set.end(), character) != set.end();
}

inline std::string BytesOf(const CQNString& text) {
  return {static_cast<const char*>(text), static_cast<std::size_t>(text.GetLength())};
}

// Removes the leading characters, or the trailing ones, that a predicate holds for.
template <class Predicate>
std::string TrimLeft(std::string_view text, Predicate goes) {
  Characters characters = CharactersOf(text);
  while (!characters.empty() && goes(characters.front())) characters.erase(characters.begin());
  return Joined(characters);
}

template <class Predicate>
std::string TrimRight(std::string_view text, Predicate goes) {
  Characters characters = CharactersOf(text);
  while (!characters.empty() && goes(characters.back())) characters.pop_back();
  return Joined(characters);
}

inline bool IsBlank(const std::string& character) {
  return character.size() == 1 &&
         std::string_view(" \t\n\v\f\r").find(character[0]) != std::string_view::npos;
}

// Byte index of the first place from start where sub stands and a character begins; -1 without.
inline int Find(std::string_view text, std::string_view sub, std::size_t start) {
  for (std::size_t at = start; at <= text.size();) {
    if (text.substr(at, sub.size()) == sub) return static_cast<int>(at);
    if (at == text.size()) break;
    at += IsLead(text[at]) ? 2 : 1;
  }
  return -1;
}

}  // namespace fuzz

#endif  // QUARNFC_FUZZ_REFERENCE_H_
