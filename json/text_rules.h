// SPDX-License-Identifier: MIT
// The rules of the JSON grammar that read no further values: white space, strings, literals,
// numbers. Texts are zero-terminated and are read byte by byte.
#ifndef QUARNFC_JSON_TEXT_RULES_H_
#define QUARNFC_JSON_TEXT_RULES_H_

#include <quarnfc/qn_string.h>

#include <cstddef>
#include <cstdint>

#include "json/records.h"

namespace quarnfc::json {

// The first byte from here that is no blank, TAB, CR or LF.
inline const char* SkipWhitespace(const char* at) {
  constexpr std::uint64_t kWhitespace = 1ull << ' ' | 1ull << '\t' | 1ull << '\r' | 1ull << '\n';
  // Most often there is none.
  while (static_cast<unsigned char>(*at) <= ' ' && (kWhitespace >> *at & 1) != 0) ++at;
  return at;
}

// Behind an item: skips white space and one optional comma.
inline const char* SkipSeparator(const char* at) {
  at = SkipWhitespace(at);
  return *at == ',' ? SkipWhitespace(at + 1) : at;
}

inline bool IsDigit(char byte) { return static_cast<unsigned char>(byte - '0') < 10; }

// What stands between the quotes of a string, escapes not yet decoded.
struct RawString {
  const char* text = "";
  std::size_t length = 0;
  std::size_t escapes = 0;  // one byte each goes when the string is decoded
};

// Reads a string. at stands behind the opening quote and moves behind the closing one; false, with
// at where it was, when the text ends first.
bool ReadString(const char*& at, RawString& raw);

// The decoded text: \t, \r and \n are control characters, any other escaped byte is itself (\u
// escapes are not decoded, deliberately).
SharedText DecodeString(const RawString& raw);

// Reads "true" or "false", whatever follows. False, with at where it was, when neither is there.
bool ReadBool(const char*& at, bool& flag);

// Reads "null", whatever follows.
bool ReadNull(const char*& at);

// Reads the token up to the next white space, ",", "]" or "}" as a number. False, with at where it
// was, when the text ends before one of these.
bool ReadNumber(const char*& at, double& number);

// The first 50 bytes of the text from here, or all of it if it is shorter.
CQNString Snippet(const char* at);

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_TEXT_RULES_H_
