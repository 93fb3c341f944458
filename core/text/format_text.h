// SPDX-License-Identifier: MIT
// Formatted text: the conversions of the run-time library's printf family as Windows spells them,
// with the same result on every target.
#ifndef QUARNFC_CORE_TEXT_FORMAT_TEXT_H_
#define QUARNFC_CORE_TEXT_FORMAT_TEXT_H_

#include <cstdarg>

#include "core/text/formatted_text.h"

namespace quarnfc {

// Formats in one pass into result, which is empty, and returns the length CQNString::FormatV asks
// for before it formats. A null format gives the empty text. Throws std::bad_alloc when a width or
// precision asks for more than fits in memory.
int FormatText(FormattedText& result, const char* format, va_list args);

}  // namespace quarnfc

#endif  // QUARNFC_CORE_TEXT_FORMAT_TEXT_H_
