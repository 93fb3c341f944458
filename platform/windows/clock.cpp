// SPDX-License-Identifier: MIT
#include "platform/clock.h"

#include <time.h>

namespace quarnfc::platform {

std::int64_t CurrentTime() { return _time64(nullptr); }

bool ToLocalTime(std::int64_t time, std::tm& local) {
  const __time64_t seconds = time;
  return _localtime64_s(&local, &seconds) == 0;
}

std::int64_t FromLocalTime(std::tm& local) { return _mktime64(&local); }

}  // namespace quarnfc::platform
