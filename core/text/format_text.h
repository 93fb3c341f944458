// SPDX-License-Identifier: MIT
// Formatted text: the conversions of the run-time library's printf family as Windows spells them,
// with the same result on every target.
#ifndef QUARNFC_CORE_TEXT_FORMAT_TEXT_H_
#define QUARNFC_CORE_TEXT_FORMAT_TEXT_H_

#include <cstdarg>
#include <cstddef>
#include <memory_resource>
#include <string>

namespace quarnfc {

// Text that grows, with room of its own for what most formats give.
struct FormattedText {
  FormattedText() { text.reserve(sizeof room - 1); }
  FormattedText(const FormattedText&) = delete;
  FormattedText& operator=(const FormattedText&) = delete;

  std::byte room[480];
  std::pmr::monotonic_buffer_resource resource{room, sizeof room};
  std::pmr::string text{&resource};
  int estimate = 0;  // the length CQNString::FormatV asks for before it formats
};

// Formats in one pass into result, which is empty. A null format gives the empty text. Throws
// std::bad_alloc when a width or precision asks for more than fits in memory.
void FormatText(FormattedText& result, const char* format, va_list args);

}  // namespace quarnfc

#endif  // QUARNFC_CORE_TEXT_FORMAT_TEXT_H_
