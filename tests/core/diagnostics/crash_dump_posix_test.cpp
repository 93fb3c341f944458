// SPDX-License-Identifier: MIT
#include <cstdio>
#include <string>

#include <gtest/gtest.h>

#include "tests/core/diagnostics/crash_dump_test_support.h"

namespace {

TEST(CrashDumpOffWindows, IsATextRecordOfProcessThreadAndCallStack) {
  const Crash& crash = HostCrash();
  const std::string& record = crash.dump;

  const auto holds = [&record](const std::string& part) {
    return record.find(part) != std::string::npos;
  };
  EXPECT_TRUE(holds("process: ")) << record;
  EXPECT_TRUE(holds("\nthread: " + std::to_string(crash.thread) + "\n")) << record;
  char info[32];
  std::snprintf(info, sizeof info, "\ninfo: 0x%llx\n", crash.info);
  EXPECT_TRUE(holds(info)) << record;
  EXPECT_TRUE(holds("\ncall stack:\n")) << record;
  EXPECT_TRUE(holds("crash_host")) << record;  // a frame of the program that crashed
}

}  // namespace
