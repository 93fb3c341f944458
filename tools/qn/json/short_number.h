// SPDX-License-Identifier: MIT
// Numbers of JSON in fewer characters.
#ifndef QN_JSON_SHORT_NUMBER_H_
#define QN_JSON_SHORT_NUMBER_H_

#include <string>
#include <string_view>

namespace qn {

// A number of JSON without what says nothing, "1.50" as "1.5", "1.0" as "1", "1e2" as "100": the
// same value to the last digit, and never more characters than it is spelled with. Without exponent
// where that is no longer.
std::string ShortNumber(std::string_view spelled);

}  // namespace qn

#endif  // QN_JSON_SHORT_NUMBER_H_
