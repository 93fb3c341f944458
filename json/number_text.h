// Numbers as text, the same on every target and in every locale.
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
// finite are "inf", "-inf", "nan" and "-nan(ind)".
char* FormatNumber(double number, char (&text)[kNumberTextCapacity]);

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_NUMBER_TEXT_H_
