// SPDX-License-Identifier: MIT
// The system's clock and time zone. Times are seconds since 1 January 1970, 00:00 UTC.
#ifndef QUARNFC_PLATFORM_CLOCK_H_
#define QUARNFC_PLATFORM_CLOCK_H_

#include <cstdint>
#include <ctime>

namespace quarnfc::platform {

std::int64_t CurrentTime();

// Fills in the local time of the host's time zone. False, with local unspecified, when the time has
// none: on Windows below 0 and above the year 3000.
bool ToLocalTime(std::int64_t time, std::tm& local);

// The time of a local time, whose members may be out of range (32 January is 1 February) and are
// put right; with tm_isdst -1 the system decides about daylight saving. -1 when it cannot be
// represented.
std::int64_t FromLocalTime(std::tm& local);

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_CLOCK_H_
