#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "platform/platform.h"

namespace {

TEST(CriticalSection, OneThreadMayEnterItAgain) {
  CRITICAL_SECTION section;
  InitializeCriticalSection(&section);
  EnterCriticalSection(&section);
  EnterCriticalSection(&section);
  LeaveCriticalSection(&section);
  LeaveCriticalSection(&section);
  DeleteCriticalSection(&section);
}

TEST(CriticalSection, KeepsThreadsApart) {
  constexpr int kThreads = 4;
  constexpr int kRounds = 10'000;
  CRITICAL_SECTION section;
  InitializeCriticalSection(&section);
  int count = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&] {
      for (int round = 0; round < kRounds; ++round) {
        EnterCriticalSection(&section);
        ++count;
        LeaveCriticalSection(&section);
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(kThreads * kRounds, count);
  DeleteCriticalSection(&section);
}

}  // namespace
