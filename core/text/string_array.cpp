// SPDX-License-Identifier: MIT
#include "core/text/string_array.h"

#include <cstring>

#include "core/memory/memory.h"

namespace quarnfc {
namespace {

void TrimBlanks(char* text) {
  char* end = text + std::strlen(text);
  const char* begin = text;
  while (*begin == ' ') ++begin;
  std::memmove(text, begin, static_cast<std::size_t>(end - begin) + 1);
  end -= begin - text;
  while (end > text && end[-1] == ' ') *--end = '\0';
}

// Into an element that exists: nothing is lost when memory is exhausted.
void StoreCopy(char** piece, const char* text, std::size_t length) {
  *piece = CopyText(text, length);
}

}  // namespace

int SplitPieces(const char* text, char separator, void* pieces, AppendPiece append) {
  if (text == nullptr || *text == '\0') return 0;
  int count = 0;
  const char* begin = text;
  for (const char* p = text; *p != '\0'; ++p) {
    if (*p != separator) continue;
    StoreCopy(append(pieces), begin, static_cast<std::size_t>(p - begin));
    ++count;
    begin = p + 1;
  }
  // What follows the last separator, which is empty when the text ends with one.
  StoreCopy(append(pieces), begin, std::strlen(begin));
  return count + 1;
}

std::size_t AdjustPieces(char** pieces, std::size_t count, bool trim_blanks, bool drop_empty) {
  std::size_t kept = 0;
  for (std::size_t i = 0; i < count; ++i) {
    char* piece = pieces[i];
    if (trim_blanks && piece != nullptr) TrimBlanks(piece);
    if (drop_empty && (piece == nullptr || *piece == '\0')) {
      FreeBuffer(piece);
    } else {
      pieces[kept++] = piece;
    }
  }
  return kept;
}

}  // namespace quarnfc
