// SPDX-License-Identifier: MIT
// What debugger output promises off Windows alone.
#include <gtest/gtest.h>

#include <cerrno>

#include "platform/debug_output.h"
#include "platform/posix/debug_output_observer.h"

namespace quarnfc::platform {
namespace {

void SpoilErrno(const char* /*text*/) { errno = EIO; }

TEST(DebugOutput, LeavesErrnoAlone) {
  errno = ENOENT;
  WriteDebugOutput("");
  EXPECT_EQ(ENOENT, errno);
}

TEST(DebugOutput, LeavesErrnoAloneWhateverTheObserverDoes) {
  EXPECT_EQ(nullptr, SetDebugOutputObserver(SpoilErrno));
  errno = ENOENT;
  WriteDebugOutput("text");
  EXPECT_EQ(ENOENT, errno);
  EXPECT_EQ(SpoilErrno, SetDebugOutputObserver(nullptr));
}

}  // namespace
}  // namespace quarnfc::platform
