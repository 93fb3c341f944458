// SPDX-License-Identifier: MIT
#include "core/memory/spin_lock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

namespace {

using quarnfc::SpinLock;

TEST(SpinLockThreads, OneThreadAtATimeIsInside) {
  SpinLock lock;
  int count = 0;
  std::vector<std::thread> threads;
  threads.reserve(4);
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int round = 0; round < 5000; ++round) {
        const std::lock_guard guard(lock);
        ++count;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(count, 20000);
}

TEST(SpinLockThreads, TheHolderMayTakeItAgainAndOthersWaitForTheLastRelease) {
  SpinLock lock;
  lock.lock();
  lock.lock();
  std::atomic<bool> is_inside = false;
  std::thread other([&] {
    const std::lock_guard guard(lock);
    is_inside = true;
  });
  lock.unlock();
  std::this_thread::sleep_for(std::chrono::milliseconds(30));
  EXPECT_FALSE(is_inside);
  lock.unlock();
  other.join();
  EXPECT_TRUE(is_inside);
}

}  // namespace
