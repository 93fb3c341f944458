// SPDX-License-Identifier: MIT
#include "platform/debug_output.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include "platform/posix/debug_output_observer.h"

namespace {

using namespace quarnfc::platform;

std::string* g_seen = nullptr;

void Observe(const char* text) {
  *g_seen += text;
  errno = EIO;
}

TEST(DebugOutput, GoesToTheObserverWhileThereIsOne) {
  std::string seen;
  g_seen = &seen;
  EXPECT_EQ(nullptr, SetDebugOutputObserver(Observe));
  WriteDebugOutput("one,");
  WriteDebugOutput(nullptr);
  WriteDebugOutput("two");
  EXPECT_EQ(Observe, SetDebugOutputObserver(nullptr));
  WriteDebugOutput("");
  EXPECT_EQ("one,two", seen);
}

TEST(DebugOutput, LeavesErrnoAlone) {
  errno = ENOENT;
  WriteDebugOutput("");
  EXPECT_EQ(ENOENT, errno);
}

}  // namespace
