// SPDX-License-Identifier: MIT
#include "core/text/string_array.h"

#include <cstring>

#include "core/memory/memory.h"
#include "core/text/byte_search.h"

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
  const char* const end = text + std::strlen(text);
  for (;;) {
    const char* const stop = FindByte(begin, end, separator);
    StoreCopy(append(pieces), begin, static_cast<std::size_t>(stop - begin));
    ++count;
    if (stop == end) return count;  // behind a separator at the end there is an empty piece
    begin = stop + 1;
  }
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
