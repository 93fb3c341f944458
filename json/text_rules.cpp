#include "json/text_rules.h"

#include <array>
#include <cstring>
#include <limits>
#include <new>
#include <string_view>

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

// Copies raw to target without its escapes and returns the end of what it wrote.
char* Decode(const RawString& raw, char* target) {
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
  return target + plain;
}

}  // namespace

bool ReadString(const char*& at, RawString& raw) {
  for (const char* stop = at;; stop += 2) {
    stop = FindStop(stop, kStringStops);
    if (*stop == '"') {
      raw = {at, static_cast<std::size_t>(stop - at)};
      at = stop + 1;
      return true;
    }
    if (*stop == '\0' || stop[1] == '\0') return false;
  }
}

void DecodeString(const RawString& raw, LazyString& string) {
  if (raw.length > 0 || string.Length() > 0) DecodeString(raw, string.Make());
}

void DecodeString(const RawString& raw, CQNString& string) {
  if (raw.length > static_cast<std::size_t>(std::numeric_limits<int>::max()))
    throw std::bad_alloc();
  if (raw.length == 0) return string.Empty();
  char* buffer = string.GetBuffer(static_cast<int>(raw.length));
  string.ReleaseBuffer(static_cast<int>(Decode(raw, buffer) - buffer));
}

bool ReadBool(const char*& at, bool& flag) {
  const bool is_true = ReadWord(at, "true");
  const bool read = is_true || ReadWord(at, "false");
  if (read) flag = is_true;
  return read;
}

bool ReadNull(const char*& at) { return ReadWord(at, "null"); }

bool ReadNumber(const char*& at, double& number) {
  const char* end = FindStop(at, kNumberStops);
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
