// SPDX-License-Identifier: MIT
// JSON text as UTF-8 written down plainly: the whole text, of code page 936, is made well formed
// and then converted at once.
#ifndef QUARNFC_FUZZ_JSON_UTF8_REFERENCE_H_
#define QUARNFC_FUZZ_JSON_UTF8_REFERENCE_H_

#include <quarnfc/string_utils.h>

#include <cstddef>
#include <string>
#include <vector>

#include "fuzz/reference.h"

namespace fuzz {

inline std::vector<wchar_t> ToWide(const std::string& text) {
  std::vector<wchar_t> units(text.size() + 1);
  QNStringUtils::Ansi2Unicode(text.c_str(), units.data(), static_cast<int>(units.size()));
  return units;
}

// Whether a lead byte takes the ASCII byte behind it with it although both are no character.
inline bool IsHalf(const std::string& character) {
  return character.size() == 2 && static_cast<unsigned char>(character[1]) < 0x80 &&
         ToWide(character)[0] == L'?';
}

inline std::string WithoutHalves(const std::string& text) {
  std::string whole;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool lead = IsLead(text[at]);
    const bool half = lead && IsHalf(text.substr(at, 2));
    whole += half ? '?' : text[at];
    if (lead && !half && at + 1 < text.size()) whole += text[++at];
  }
  return whole;
}

inline std::string JsonTextAsUtf8(const std::string& text) {
  const std::vector<wchar_t> units = ToWide(WithoutHalves(text));
  std::string utf8(3 * units.size(), '\0');
  QNStringUtils::Unicode2UTF8(units.data(), utf8.data(), static_cast<int>(utf8.size()));
  return utf8.c_str();
}

}  // namespace fuzz

#endif  // QUARNFC_FUZZ_JSON_UTF8_REFERENCE_H_
