#include <quarnfc/string_utils.h>

#include <cstddef>
#include <cstring>

#include "core/memory/memory.h"

namespace {

void Append(std::vector<char*>& pieces, const char* text, std::size_t length) {
  pieces.push_back(nullptr);
  pieces.back() = quarnfc::CopyText(text, length);
}

void TrimBlanks(char* text) {
  char* end = text + std::strlen(text);
  const char* begin = text;
  while (*begin == ' ') ++begin;
  std::memmove(text, begin, static_cast<std::size_t>(end - begin) + 1);
  end -= begin - text;
  while (end > text && end[-1] == ' ') *--end = '\0';
}

}  // namespace

int QNStringUtils::SplitStr(const char* text, char separator, std::vector<char*>& pieces) {
  pieces.clear();
  if (text == nullptr || *text == '\0') return 0;
  const char* begin = text;
  for (const char* p = text; *p != '\0'; ++p) {
    if (*p != separator) continue;
    Append(pieces, begin, static_cast<std::size_t>(p - begin));
    begin = p + 1;
  }
  // What follows the last separator, which is empty when the text ends with one.
  Append(pieces, begin, std::strlen(begin));
  return static_cast<int>(pieces.size());
}

int qnSplitStr(const char* text, char separator, std::vector<char*>& pieces) {
  return QNStringUtils::SplitStr(text, separator, pieces);
}

void QNStringUtils::FreeStrArr(std::vector<char*>& pieces) {
  for (char* piece : pieces) quarnfc::FreeBuffer(piece);
  pieces.clear();
}

void qnFreeStrArr(std::vector<char*>& pieces) { QNStringUtils::FreeStrArr(pieces); }

void QNStringUtils::AdjustStrArr(std::vector<char*>& pieces, bool trimBlanks, bool dropEmpty) {
  std::size_t kept = 0;
  for (char* piece : pieces) {
    if (trimBlanks && piece != nullptr) TrimBlanks(piece);
    if (dropEmpty && (piece == nullptr || *piece == '\0')) {
      quarnfc::FreeBuffer(piece);
    } else {
      pieces[kept++] = piece;
    }
  }
  pieces.resize(kept);
}
