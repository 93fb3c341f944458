#include "geo/wkt_text.h"

#include <quarnfc/string_utils.h>

#include <cstddef>

namespace quarnfc::geo {

// The converters count the terminator and may write one element beyond what they were given.

OwnedWideText AnsiToWide(const char* text) {
  if (text == nullptr) return nullptr;
  const int count = QNStringUtils::Ansi2Unicode(text, nullptr, 0);
  OwnedWideText wide(AllocWideChars(static_cast<std::size_t>(count) + 1));
  wide.get()[0] = L'\0';
  QNStringUtils::Ansi2Unicode(text, wide.get(), count);
  return wide;
}

OwnedText WideToAnsi(const wchar_t* text) {
  if (text == nullptr) return nullptr;
  const int count = QNStringUtils::Unicode2Ansi(text, nullptr, 0);
  OwnedText ansi(AllocChars(static_cast<std::size_t>(count) + 1));
  ansi.get()[0] = '\0';
  QNStringUtils::Unicode2Ansi(text, ansi.get(), count);
  return ansi;
}

}  // namespace quarnfc::geo
