// SPDX-License-Identifier: MIT
// The functions on vectors, where host and library share the standard library.
#include <quarnfc/string_utils.h>

#include "core/memory/memory.h"
#include "core/text/string_array.h"

namespace {

char** AppendNull(void* pieces) {
  return &static_cast<std::vector<char*>*>(pieces)->emplace_back(nullptr);
}

}  // namespace

int QNStringUtils::SplitStr(const char* text, char separator, std::vector<char*>& pieces) {
  pieces.clear();
  return quarnfc::SplitPieces(text, separator, &pieces, AppendNull);
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
  pieces.resize(quarnfc::AdjustPieces(pieces.data(), pieces.size(), trimBlanks, dropEmpty));
}
