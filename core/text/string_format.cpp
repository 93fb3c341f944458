// SPDX-License-Identifier: MIT
#include <quarnfc/qn_string.h>

#include <algorithm>
#include <cstdarg>
#include <string_view>

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
  const int estimate = quarnfc::FormatText(result, format, args);
  // The text ends at its first zero byte ("%c" can write one).
  const std::string_view formatted = result.View().substr(0, result.View().find('\0'));
  const int length = quarnfc::CheckedLength(formatted.size());
  char* text = GetBuffer(std::max({estimate, GetLength(), length}));
  quarnfc::FormattedText::Copy(formatted, text);
  quarnfc::SetStringLength(text, length);
}
