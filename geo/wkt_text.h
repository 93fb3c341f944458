// WKT texts and messages between the ANSI code page, in which WKT is read, and UTF-16.
#ifndef QUARNFC_GEO_WKT_TEXT_H_
#define QUARNFC_GEO_WKT_TEXT_H_

#include "core/memory/memory.h"

namespace quarnfc::geo {

// New buffers with the converted text; null for null.
OwnedWideText AnsiToWide(const char* text);
OwnedText WideToAnsi(const wchar_t* text);

}  // namespace quarnfc::geo

#endif  // QUARNFC_GEO_WKT_TEXT_H_
