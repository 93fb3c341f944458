// SPDX-License-Identifier: MIT
#include <quarnfc/qn_string.h>

#include <algorithm>
#include <cstdarg>
#include <cstring>

#include "core/text/format_text.h"
#include "core/text/string_buffer.h"

void CQNString::Format(const char* format, ...) {
  va_list args;
  va_start(args, format);
  FormatV(format, args);
  va_end(args);
}

void CQNString::FormatV(const char* format, va_list args) {
  // Formatted aside: the arguments may be this string's own text, and the text may be longer than
  // the estimate.
  quarnfc::FormattedText result;
  quarnfc::FormatText(result, format, args);
  // The text ends at its first zero byte ("%c" can write one).
  const int length = quarnfc::CheckedLength(std::strlen(result.text.c_str()));
  char* text = GetBuffer(std::max({result.estimate, GetLength(), length}));
  if (length > 0) std::memcpy(text, result.text.data(), static_cast<std::size_t>(length));
  quarnfc::SetStringLength(text, length);
}
