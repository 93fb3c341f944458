// SPDX-License-Identifier: MIT
#include "platform/clock.h"

namespace quarnfc::platform {

static_assert(sizeof(std::time_t) == sizeof(std::int64_t));

std::int64_t CurrentTime() { return std::time(nullptr); }

bool ToLocalTime(std::int64_t time, std::tm& local) {
  const std::time_t seconds = time;
  return localtime_r(&seconds, &local) != nullptr;
}

std::int64_t FromLocalTime(std::tm& local) { return std::mktime(&local); }

}  // namespace quarnfc::platform
