// SPDX-License-Identifier: MIT
// Dates of HTTP headers and of cookies (RFC 6265, 5.1.1):
//
//   date  = { delimiter } { token delimiter { delimiter } }
//   token = hour ":" minute ":" second | day | month | year, each taken once, in any order
//
// where a delimiter is a blank, a TAB, "," ";" or "-", a month is known by its first three letters,
// and two digits of a year are 1970 to 2069. One pass; a token at a time is held.
#ifndef QUARNFC_PLATFORM_POSIX_INTERNET_HTTP_DATE_H_
#define QUARNFC_PLATFORM_POSIX_INTERNET_HTTP_DATE_H_

#include <ctime>
#include <string_view>

namespace quarnfc::internet {

// "Mon, 15 Nov 1999 16:09:35 GMT", the two older forms of HTTP and what cookies make of them: day,
// month, year and time of day are found wherever they stand (RFC 6265, 5.1.1). False when one is
// missing or out of range.
bool ParseHttpDate(std::string_view text, std::time_t& seconds);

}  // namespace quarnfc::internet

#endif  // QUARNFC_PLATFORM_POSIX_INTERNET_HTTP_DATE_H_
