// SPDX-License-Identifier: MIT
#include "platform/code_page.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "platform/windows/platform.h"

#include <mbctype.h>
#include <mbstring.h>

namespace quarnfc::platform {

namespace {

constexpr int kCodePage936 = 936;
constexpr std::size_t kLongestAnsi = 4;  // bytes of a character, in code pages with all of Unicode

UINT CodePageOf(Encoding encoding) { return encoding == Encoding::kAnsi ? CP_ACP : CP_UTF8; }

// Whether all bytes belong to characters.
bool IsWholeAnsi(const char* source, std::size_t length) {
  return length == 0 || MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, source,
                                            static_cast<int>(length), nullptr, 0) > 0;
}

// Whether a character goes to UTF-16 and comes back. The strict form of the system's function
// refuses user-defined characters, which do.
bool ComesBack(const char* source, std::size_t length) {
  wchar_t units[kLongestAnsi];
  char bytes[2 * kLongestAnsi];
  const int count = MultiByteToWideChar(CP_ACP, 0, source, static_cast<int>(length), units,
                                        static_cast<int>(std::size(units)));
  const int back = WideCharToMultiByte(CP_ACP, 0, units, count, bytes,
                                       static_cast<int>(std::size(bytes)), nullptr, nullptr);
  return std::string_view(bytes, static_cast<std::size_t>(std::max(back, 0))) ==
         std::string_view(source, length);
}

// The bytes of the character that source begins with; 0 when it begins with none.
std::size_t AnsiCharLength(const char* source, std::size_t length) {
  for (std::size_t count = 1; count <= std::min(length, kLongestAnsi); ++count) {
    const bool cut = count == 1 && IsLeadByte(static_cast<unsigned char>(*source));
    if (!cut && (IsWholeAnsi(source, count) || ComesBack(source, count))) return count;
  }
  return 0;
}

// Whether the ANSI code page has all characters of a text.
bool HasAnsi(const wchar_t* source, std::size_t length) {
  if (length == 0) return true;
  constexpr UINT kGb18030 = 54936;
  const int count = static_cast<int>(length);
  // Where all of Unicode fits in, only half a surrogate pair is lost, and the function takes no
  // other flag.
  if (GetACP() == CP_UTF8 || GetACP() == kGb18030) {
    return WideCharToMultiByte(CP_ACP, WC_ERR_INVALID_CHARS, source, count, nullptr, 0, nullptr,
                               nullptr) > 0;
  }
  BOOL lost = FALSE;
  return WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, source, count, nullptr, 0, nullptr,
                             &lost) > 0 &&
         lost == FALSE;
}

}  // namespace

Encoding PathEncoding() { return Encoding::kAnsi; }

int ToUtf16(Encoding from, const char* source, int length, wchar_t* destination, int capacity) {
  return MultiByteToWideChar(CodePageOf(from), 0, source, length, destination, capacity);
}

int FromUtf16(Encoding to, const wchar_t* source, int length, char* destination, int capacity) {
  return WideCharToMultiByte(CodePageOf(to), 0, source, length, destination, capacity, nullptr,
                             nullptr);
}

std::size_t FindInvalidAnsi(const char* source, std::size_t length) {
  // Pieces of a stream mostly end inside a character.
  std::size_t offset = 0;
  for (std::size_t cut = 0; cut < kLongestAnsi && cut < length && offset == 0; ++cut) {
    if (IsWholeAnsi(source, length - cut)) offset = length - cut;
  }
  while (offset < length) {
    const std::size_t count = AnsiCharLength(source + offset, length - offset);
    if (count == 0) return offset;
    offset += count;
  }
  return length;
}

std::size_t FindLostInAnsi(const wchar_t* source, std::size_t length) {
  if (HasAnsi(source, length)) return length;
  std::size_t offset = 0;
  while (offset < length) {
    const bool pair = offset + 1 < length && IS_SURROGATE_PAIR(source[offset], source[offset + 1]);
    const std::size_t count = pair ? 2 : 1;
    if (!HasAnsi(source + offset, count)) return offset;
    offset += count;
  }
  return length;
}

void ConvertAnsiToOem(char* text) { CharToOemA(text, text); }

void ConvertOemToAnsi(char* text) { OemToCharA(text, text); }

void ToUpperCase(wchar_t* text, std::size_t length) {
  CharUpperBuffW(text, static_cast<DWORD>(length));
}

bool IsLeadByte(unsigned char byte) { return _ismbblead(byte) != 0; }

bool IsCharacter(unsigned char lead, unsigned char trail) {
  const char pair[] = {static_cast<char>(lead), static_cast<char>(trail)};
  wchar_t unit;
  return MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, pair, 2, &unit, 1) == 1;
}

bool IsSpace(unsigned int code) { return _ismbcspace(code) != 0; }

bool AnsiIsCodePage936() { return _getmbcp() == kCodePage936; }

unsigned int ToLowerCase(unsigned int code) { return _mbctolower(code); }

unsigned int ToUpperCase(unsigned int code) { return _mbctoupper(code); }

}  // namespace quarnfc::platform
