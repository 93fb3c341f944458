// SPDX-License-Identifier: MIT
// Numbers as they are read from WKT.
#ifndef QUARNFC_GEO_WKT_NUMBER_H_
#define QUARNFC_GEO_WKT_NUMBER_H_

#include <string_view>

namespace quarnfc::geo {

// Whether an unquoted text is a number: made only of digits, points and signs. There is no
// exponent notation: "1e5" is a word, deliberately.
bool IsWktNumber(std::string_view text);

// The value of such a text, as the C library's atof gives it: what follows the longest number at
// the start is ignored ("1.5-2" is 1.5), no number at the start is 0.
double ReadWktNumber(std::string_view text);

}  // namespace quarnfc::geo

#endif  // QUARNFC_GEO_WKT_NUMBER_H_
