// SPDX-License-Identifier: MIT
// What CreateWKT of geographic and projected systems share: numbers as they are written, and the
// buffer that the caller receives.
#ifndef QUARNFC_GEO_CREATE_WKT_H_
#define QUARNFC_GEO_CREATE_WKT_H_

#include <quarnfc/qn_string.h>

#include "core/memory/memory.h"

namespace quarnfc::geo {

// A number with this count of decimals as CQNString::Format writes it, stripped of trailing zeros
// and then of the point: 500000.000000 is "500000", 0.999600 is "0.9996".
CQNString WriteWktNumber(double value, int decimals);

// A string as an argument of CQNString::Format.
inline const char* Chars(const CQNString& text) { return text; }

// A new buffer of size bytes with as much of the text as fits in front of a terminator.
OwnedText CutToBuffer(const CQNString& text, int size);

}  // namespace quarnfc::geo

#endif  // QUARNFC_GEO_CREATE_WKT_H_
