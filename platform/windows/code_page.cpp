// SPDX-License-Identifier: MIT
#include "platform/code_page.h"

#include "platform/windows/platform.h"

#include <mbctype.h>
#include <mbstring.h>

namespace quarnfc::platform {

namespace {

constexpr int kCodePage936 = 936;

UINT CodePageOf(Encoding encoding) { return encoding == Encoding::kAnsi ? CP_ACP : CP_UTF8; }

}  // namespace

int ToUtf16(Encoding from, const char* source, int length, wchar_t* destination, int capacity) {
  return MultiByteToWideChar(CodePageOf(from), 0, source, length, destination, capacity);
}

int FromUtf16(Encoding to, const wchar_t* source, int length, char* destination, int capacity) {
  return WideCharToMultiByte(CodePageOf(to), 0, source, length, destination, capacity, nullptr,
                             nullptr);
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
