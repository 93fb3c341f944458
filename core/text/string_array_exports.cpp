// SPDX-License-Identifier: MIT
// What the functions on vectors stand on where each module has a standard library of its own.
#include <quarnfc/string_utils.h>

#include "core/text/string_array.h"

int QNStringUtils::SplitStrInto(const char* text, char separator, void* pieces,
                                char** (*append)(void* pieces)) {
  return quarnfc::SplitPieces(text, separator, pieces, append);
}

std::size_t QNStringUtils::AdjustStrs(char** pieces, std::size_t count, bool trimBlanks,
                                      bool dropEmpty) {
  return quarnfc::AdjustPieces(pieces, count, trimBlanks, dropEmpty);
}
