// SPDX-License-Identifier: MIT
// QNTimeUtils: the current time, and times as local date-time text "YYYY-MM-DD hh:mm:ss".
//
// A time is an unsigned 32-bit number of seconds since 1970-01-01 00:00:00 UTC. Local time is that
// of the process's time zone as the C run-time library knows it.
//
// Errors: nothing throws but std::bad_alloc for the texts returned.
// Threads: every function may be called from any thread, as long as none changes the time zone.
//
// Example:
//   const unsigned int time = QNTimeUtils::GetTimeFromStr("2024-1-5 8:30:00");
//   QNTimeUtils::FormatTime(time);                     // == "2024-01-05 08:30:00"
//   QNTimeUtils::GetTimeFromStr("2024-13-01");         // == 0xFFFFFFFFu
#ifndef QUARNFC_TIME_UTILS_H_
#define QUARNFC_TIME_UTILS_H_

#include <quarnfc/export.h>
#include <quarnfc/qn_string.h>

namespace QNTimeUtils {

// The current time of the system's clock in seconds, cut to 32 bits (which lasts to 2106).
QN_API unsigned int GetCurTime();

// A time as local date-time text, such as "2024-01-05 08:30:00". The empty text when the platform
// has no local time for it.
QN_API CQNString FormatTime(unsigned int time);

// The current time as local date-time text: FormatTime(GetCurTime()).
QN_API CQNString GetCurFormatTime();

// The time of a local date-time text, or 0xFFFFFFFF when the text is not accepted (null counts as
// empty).
//
//  - The year is 1990 to 2500, the month 1 to 12, the day 1 to 31. Days beyond the month run into
//    the next one, deliberately: "2023-02-31" is 3 March 2023.
//  - After a blank, hours, minutes and seconds may follow. With fewer than two colons they are
//    ignored altogether, deliberately: "2024-01-05 08:30" is midnight.
//  - Leading zeros may be left out, and white space may stand around a number, but not between the
//    second dash and the day.
//  - Whether daylight-saving time applies is left to the platform, and so is a time that the
//    change to it skips or repeats.
//  - Dates after 7 February 2106 do not fit and come back cut to 32 bits, deliberately.
QN_API unsigned int GetTimeFromStr(const char* text);

}  // namespace QNTimeUtils

#endif  // QUARNFC_TIME_UTILS_H_
