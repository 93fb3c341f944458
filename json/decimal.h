// SPDX-License-Identifier: MIT
// Decimal numbers of up to 19 digits as doubles, correctly rounded.
//
// Method: D. Lemire, "Number Parsing at a Gigabyte per Second", Software: Practice and Experience
// 51 (2021), with the powers of ten from 1e-27 to 1e55, for which the product is always long enough
// to round (N. Mushtak and D. Lemire, "Fast Number Parsing Without Fallback", 2023).
#ifndef QUARNFC_JSON_DECIMAL_H_
#define QUARNFC_JSON_DECIMAL_H_

namespace quarnfc::json {

// Reads a number of the form -12.34e-5 (sign, fraction and exponent may be missing) and returns
// its end, or null without touching number: there is another form, or there are more digits or a
// larger exponent than this method takes.
const char* ReadDecimal(const char* at, double& number);

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_DECIMAL_H_
