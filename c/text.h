// SPDX-License-Identifier: MIT
// Text between UTF-8, which the flat C interface speaks, and the process ANSI code page, which the
// library keeps.
#ifndef QUARNFC_C_TEXT_H_
#define QUARNFC_C_TEXT_H_

#include <string_view>

#include "core/memory/memory.h"

namespace quarnfc::c {

// A copy of a text in a new buffer of the caller's, with a terminator.
inline char* NewText(std::string_view text) { return CopyText(text.data(), text.size()); }

// A text of the code page in a new buffer of the caller's, as UTF-8.
char* NewUtf8(const char* ansi);

// UTF-8 as text of the code page, character for character. Throws Failure when it is null, is not
// UTF-8 or has a character that the code page lacks.
OwnedText AnsiText(const char* utf8);

}  // namespace quarnfc::c

#endif  // QUARNFC_C_TEXT_H_
