#include "wide_text.h"

#include <quarnfc/string_utils.h>

#include <algorithm>

namespace qn {
namespace {

template <class Conversion>
WideText Widen(Conversion convert, const char* text) {
  const int count = std::max(convert(text, nullptr, 0), 0);
  // The conversion may write its terminator one element beyond the count.
  WideText wide(static_cast<std::size_t>(count) + 1);
  convert(text, wide.data(), count);
  wide.resize(static_cast<std::size_t>(std::max(count - 1, 0)));
  return wide;
}

}  // namespace

WideText WideFromAnsi(const char* ansi) { return Widen(QNStringUtils::Ansi2Unicode, ansi); }

WideText WideFromUtf8(const char* utf8) { return Widen(QNStringUtils::UTF82Unicode, utf8); }

std::string AnsiFromWide(const WideText& wide) {
  const CQNString text(wide.data(), static_cast<int>(wide.size()));
  return {static_cast<const char*>(text), static_cast<std::size_t>(text.GetLength())};
}

}  // namespace qn
