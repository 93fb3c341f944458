// SPDX-License-Identifier: MIT
#include "platform/lock.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

using quarnfc::platform::Lock;
using quarnfc::platform::LockGuard;

TEST(Lock, OneThreadMayAcquireItAgainAndReleasesItAsOften) {
  Lock lock;
  int others = 0;
  std::thread other;
  lock.Acquire();
  lock.Acquire();
  lock.Release();
  other = std::thread([&] {
    const LockGuard guard(lock);
    ++others;
  });
  EXPECT_EQ(0, others);  // still held once
  lock.Release();
  other.join();
  EXPECT_EQ(1, others);
}

TEST(Lock, KeepsThreadsApart) {
  constexpr int kThreads = 4;
  constexpr int kRounds = 10'000;
  Lock lock;
  int count = 0;
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&] {
      for (int round = 0; round < kRounds; ++round) {
        const LockGuard guard(lock);
        ++count;
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(kThreads * kRounds, count);
}

}  // namespace
