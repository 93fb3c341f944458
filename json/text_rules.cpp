// SPDX-License-Identifier: MIT
#include "json/text_rules.h"

#include <array>
#include <cstring>
#include <string_view>

#include "json/decimal.h"
#include "json/number_text.h"

namespace quarnfc::json {
namespace {

using ByteSet = std::array<bool, 256>;

constexpr ByteSet SetOf(std::string_view bytes) {
  ByteSet set{};
  for (const char byte : bytes) set[static_cast<unsigned char>(byte)] = true;
  return set;
}

// Each set holds the terminator as well.
constexpr ByteSet kStringStops = SetOf({"\"\\\0", 3});
constexpr ByteSet kNumberStops = SetOf({", \t\r\n]}\0", 8});

const char* FindStop(const char* at, const ByteSet& stops) {
  while (!stops[static_cast<unsigned char>(*at)]) ++at;
  return at;
}

bool ReadWord(const char*& at, std::string_view word) {
  if (*at != word.front() || std::strncmp(at, word.data(), word.size()) != 0) return false;
  at += word.size();
  return true;
}

char DecodeEscaped(char byte) {
  switch (byte) {
    case 't':
      return '\t';
    case 'r':
      return '\r';
    case 'n':
      return '\n';
    default:
      return byte;
  }
}

// Copies raw to target without its escapes.
void Decode(const RawString& raw, char* target) {
  const char* at = raw.text;
  const char* const end = raw.text + raw.length;
  while (const void* found = std::memchr(at, '\\', static_cast<std::size_t>(end - at))) {
    const char* escape = static_cast<const char*>(found);
    const auto plain = static_cast<std::size_t>(escape - at);
    std::memcpy(target, at, plain);
    target += plain;
    *target++ = DecodeEscaped(escape[1]);
    at = escape + 2;
  }
  const auto plain = static_cast<std::size_t>(end - at);
  std::memcpy(target, at, plain);
}

}  // namespace

bool ReadString(const char*& at, RawString& raw) {
  std::size_t escapes = 0;
  for (const char* stop = at;; stop += 2, ++escapes) {
    stop = FindStop(stop, kStringStops);
    if (*stop == '"') {
      raw = {at, static_cast<std::size_t>(stop - at), escapes};
      at = stop + 1;
      return true;
    }
    if (*stop == '\0' || stop[1] == '\0') return false;
  }
}

SharedText DecodeString(const RawString& raw) {
  if (raw.escapes == 0) return SharedText(std::string_view(raw.text, raw.length));
  SharedText text(raw.length - raw.escapes);
  Decode(raw, text.Writable());
  return text;
}

bool ReadBool(const char*& at, bool& flag) {
  const bool is_true = ReadWord(at, "true");
  const bool read = is_true || ReadWord(at, "false");
  if (read) flag = is_true;
  return read;
}

bool ReadNull(const char*& at) { return ReadWord(at, "null"); }

bool ReadNumber(const char*& at, double& number) {
  const char* end = ReadDecimal(at, number);
  if (end != nullptr && *end != '\0' && kNumberStops[static_cast<unsigned char>(*end)]) {
    at = end;
    return true;
  }
  end = FindStop(at, kNumberStops);
  if (*end == '\0') return false;
  number = ParseNumber(at, end);
  at = end;
  return true;
}

CQNString Snippet(const char* at) {
  constexpr int kLongest = 50;
  int length = 0;
  while (length < kLongest && at[length] != '\0') ++length;
  return CQNString(at, length);
}

}  // namespace quarnfc::json
