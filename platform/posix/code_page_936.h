// SPDX-License-Identifier: MIT
// Code page 936 as Windows has it: GBK with U+20AC at 0x80, the user-defined characters in the
// private use area, and best-fit characters for text that the code page cannot hold exactly.
#ifndef QUARNFC_PLATFORM_POSIX_CODE_PAGE_936_H_
#define QUARNFC_PLATFORM_POSIX_CODE_PAGE_936_H_

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/ascii_run.h"

namespace quarnfc::platform {

class CodePage936 {
 public:
  // The one instance, built on first use from the C library's converter. Where the C library has
  // none for GBK, every character taken from it converts to a question mark.
  static const CodePage936& Instance();

  static constexpr bool IsLead(unsigned char byte) { return byte >= 0x81 && byte <= 0xFE; }

  // Whether the two bytes, of which the first is a lead byte, are a character.
  bool Has(unsigned char lead, unsigned char trail) const {
    return double_[PairIndex(lead, trail)] != kDefaultUnit;
  }

  // Whether the code page has the character itself, not only one that fits best.
  bool Has(char16_t unit) const {
    const unsigned int code = code_[unit];
    return unit == (code > 0xFF ? double_[PairIndex(code >> 8, code & 0xFF)] : single_[code]);
  }

  // Converts to UTF-16; false when the output is full. A pair without a character is one question
  // mark; so is a lead byte at the end or in front of a zero byte.
  template <typename Output>
  bool Decode(const unsigned char* source, const unsigned char* end, Output& output) const;

  // Converts from UTF-16, unit by unit; false when the output is full. A character that does not
  // fit whole is not begun. A unit without a character in the code page is a question mark.
  template <typename Output>
  bool Encode(const wchar_t* source, const wchar_t* end, Output& output) const;

 private:
  static constexpr char16_t kDefaultUnit = u'?';  // for what is no character
  static constexpr unsigned int kFirstLead = 0x81;
  static constexpr unsigned int kLastLead = 0xFE;

  CodePage936();

  void Add(unsigned int code, char16_t unit);
  void AddFromCLibrary();
  void AddUserDefined();
  void AddBestFit();

  static constexpr std::size_t PairIndex(unsigned int lead, unsigned int trail) {
    return (lead - kFirstLead) * 0x100 + trail;
  }

  std::array<char16_t, 0x100> single_;                                 // byte -> unit
  std::array<char16_t, (kLastLead - kFirstLead + 1) * 0x100> double_;  // PairIndex -> unit
  std::array<std::uint16_t, 0x10000> code_;  // unit -> byte, or lead << 8 | trail
};

template <typename Output>
bool CodePage936::Decode(const unsigned char* source, const unsigned char* end,
                         Output& output) const {
  while (source != end) {
    if (*source < 0x80) {
      const std::size_t run = AsciiRunLength(source, end);
      if (!output.PutRun(source, run)) {
        return false;
      }
      source += run;
      continue;
    }
    const unsigned char byte = *source++;
    const bool is_pair = IsLead(byte) && source != end && *source != 0;
    const char16_t unit = is_pair ? double_[PairIndex(byte, *source++)] : single_[byte];
    if (!output.Put(static_cast<wchar_t>(unit))) {
      return false;
    }
  }
  return true;
}

template <typename Output>
bool CodePage936::Encode(const wchar_t* source, const wchar_t* end, Output& output) const {
  while (source != end) {
    if (*source < 0x80) {
      const std::size_t run = AsciiRunLength(source, end);
      if (!output.PutRun(source, run)) {
        return false;
      }
      source += run;
      continue;
    }
    const unsigned int code = code_[*source++];
    const auto last = static_cast<char>(code);
    if (!(code > 0xFF ? output.PutAll({static_cast<char>(code >> 8), last}) : output.Put(last))) {
      return false;
    }
  }
  return true;
}

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_POSIX_CODE_PAGE_936_H_
