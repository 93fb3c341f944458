// SPDX-License-Identifier: MIT
#include "c/text.h"

#include <quarnfc/ext/utf8_text.h>
#include <quarnfc/string_utils.h>

#include <climits>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "c/guarded.h"

namespace quarnfc::c {
namespace {

bool IsAscii(const char* text) {
  for (; *text != '\0'; ++text) {
    if ((*text & 0x80) != 0) return false;
  }
  return true;
}

Failure NotConvertible() {
  return Failure(QNC_ERROR_INVALID_DATA,
                 "Quarn: the text is not valid or has characters that the code page lacks");
}

std::size_t CheckedCount(int count) {
  if (count <= 0 || count == INT_MAX) throw NotConvertible();
  return static_cast<std::size_t>(count);
}

// The converters may write one element beyond the capacity.

template <class Convert>
OwnedWideText ToWide(const char* text, int& count, Convert convert) {
  const std::size_t needed = CheckedCount(convert(text, nullptr, 0));
  count = static_cast<int>(needed);
  OwnedWideText wide(AllocWideChars(needed + 1));
  if (convert(text, wide.get(), count) != count) throw NotConvertible();
  return wide;
}

template <class Convert>
OwnedText FromWide(const wchar_t* wide, Convert convert) {
  const std::size_t needed = CheckedCount(convert(wide, nullptr, 0));
  const int count = static_cast<int>(needed);
  OwnedText text(AllocChars(needed + 1));
  if (convert(wide, text.get(), count) != count) throw NotConvertible();
  return text;
}

// Whether the text of the code page says what wide says.
bool IsSame(const char* ansi, const wchar_t* wide, int count) {
  int back_count = 0;
  const OwnedWideText back = ToWide(ansi, back_count, QNStringUtils::Ansi2Unicode);
  return back_count == count &&
         std::memcmp(back.get(), wide, static_cast<std::size_t>(count) * sizeof(wchar_t)) == 0;
}

}  // namespace

char* NewUtf8(const char* ansi) {
  if (IsAscii(ansi)) return CopyText(ansi);
  int count = 0;
  const OwnedWideText wide = ToWide(ansi, count, QNStringUtils::Ansi2Unicode);
  return FromWide(wide.get(), QNStringUtils::Unicode2UTF8).release();
}

OwnedText AnsiText(const char* utf8) {
  if (IsAscii(Given(utf8))) return OwnedText(CopyText(utf8));
  int count = 0;
  const OwnedWideText wide = ToWide(utf8, count, QNStringUtils::UTF82Unicode);
  OwnedText ansi = FromWide(wide.get(), QNStringUtils::Unicode2Ansi);
  if (!IsSame(ansi.get(), wide.get(), count)) throw NotConvertible();
  return ansi;
}

}  // namespace quarnfc::c

char* qncUtf8FromAnsi(const char* ansi, CQNObject** error) {
  return quarnfc::c::GuardedNew(error,
                                [=] { return quarnfc::c::NewUtf8(quarnfc::c::Given(ansi)); });
}

char* qncAnsiFromUtf8(const char* utf8, CQNObject** error) {
  return quarnfc::c::GuardedNew(error, [=] { return quarnfc::c::AnsiText(utf8).release(); });
}

int qncIsUtf8(const char* text, size_t size, size_t* offset) {
  const std::string_view bytes =
      text == nullptr ? std::string_view() : std::string_view(text, size);
  const std::size_t invalid = quarnfc::ext::FindInvalidUtf8(bytes);
  if (invalid == bytes.size()) return 1;
  if (offset != nullptr) *offset = invalid;
  return 0;
}
