// SPDX-License-Identifier: MIT
// Arrays of texts without saying what kind of array: the caller's own container grows through a
// function of the caller.
#ifndef QUARNFC_CORE_TEXT_STRING_ARRAY_H_
#define QUARNFC_CORE_TEXT_STRING_ARRAY_H_

#include <cstddef>

namespace quarnfc {

// Appends a null to the array and returns where it stands.
using AppendPiece = char** (*)(void* pieces);

// QNStringUtils::SplitStr for an array that is empty.
int SplitPieces(const char* text, char separator, void* pieces, AppendPiece append);

// QNStringUtils::AdjustStrArr; returns how many of the elements are left, at the front.
std::size_t AdjustPieces(char** pieces, std::size_t count, bool trim_blanks, bool drop_empty);

}  // namespace quarnfc

#endif  // QUARNFC_CORE_TEXT_STRING_ARRAY_H_
