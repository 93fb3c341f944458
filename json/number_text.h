// SPDX-License-Identifier: MIT
// Numbers as text, the same on every target and in every locale. No allocation.
//
// Reading takes what the C library's strtod takes in the "C" locale, without hexadecimal numbers,
// infinities and NaN. Writing is "%.15f" and then the zeros are cut off: never an exponent, so that
// 1e20 has 21 digits and 1e-16 is 0, deliberately. Both round correctly, ties to even.
#ifndef QUARNFC_JSON_NUMBER_TEXT_H_
#define QUARNFC_JSON_NUMBER_TEXT_H_

#include <cstddef>

namespace quarnfc::json {

// The number that the token [first, last) starts with: an optional sign, digits with an optional
// point, an optional exponent. What follows is ignored; a token that starts with no number is 0.
// Correctly rounded; too large a number is infinite, too small a one zero.
double ParseNumber(const char* first, const char* last);

// Room for any number: the largest has 309 digits, a sign, a point and 15 decimal places.
inline constexpr std::size_t kNumberTextCapacity = 328;

// Writes the number as "%.15f" does, without trailing zeros and without a point behind which
// nothing is left, and returns the end of the text (there is no terminator). Numbers that are not
// finite are "inf", "-inf", "nan" and "-nan(ind)". The text has room for kNumberTextCapacity bytes.
char* FormatNumber(double number, char* text);

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_NUMBER_TEXT_H_
