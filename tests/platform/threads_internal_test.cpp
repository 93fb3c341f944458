// SPDX-License-Identifier: MIT
#include "platform/threads.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using quarnfc::platform::HasOneThread;

TEST(Threads, NeitherOfTwoThreadsIsTheOnlyOne) {
  bool in_thread = true;
  std::thread other([&] { in_thread = HasOneThread(); });
  EXPECT_FALSE(HasOneThread());
  other.join();
  EXPECT_FALSE(in_thread);
}

}  // namespace
