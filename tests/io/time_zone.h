// SPDX-License-Identifier: MIT
// Runs a test in a time zone and puts the zone of before back.
#ifndef QUARNFC_TESTS_IO_TIME_ZONE_H_
#define QUARNFC_TESTS_IO_TIME_ZONE_H_

#include <stdlib.h>
#include <time.h>

#include <string>

namespace io_test {

// A zone in the form both run-time libraries know: name, hours west of Greenwich, name in summer
// (with the rules of the United States).
class TimeZone {
 public:
  explicit TimeZone(const std::string& zone) : before_(Current()) { Set(zone); }
  ~TimeZone() { Set(before_); }

  TimeZone(const TimeZone&) = delete;
  TimeZone& operator=(const TimeZone&) = delete;

 private:
  static std::string Current() {
    const char* const zone = getenv("TZ");
    return zone == nullptr ? "" : zone;
  }

  // An empty zone means the one of the system.
  static void Set(const std::string& zone) {
#if defined(_WIN32)
    // A zone from the environment leaves the summer-time offset of the zone before, which is 0
    // where that had no summer time.
    _dstbias = -3600;
    _putenv(("TZ=" + zone).c_str());
    _tzset();
#else
    if (zone.empty()) {
      unsetenv("TZ");
    } else {
      setenv("TZ", zone.c_str(), 1);
    }
    tzset();
#endif
  }

  const std::string before_;
};

}  // namespace io_test

#endif  // QUARNFC_TESTS_IO_TIME_ZONE_H_
