// SPDX-License-Identifier: MIT
#include "core/memory/spin_lock.h"

#include <chrono>
#include <thread>

namespace quarnfc {

void SpinLock::LockHeld(const void* thread) noexcept {
  const void* holder = nullptr;
  for (int round = 0; !holder_.compare_exchange_weak(holder, thread, std::memory_order_acquire,
                                                     std::memory_order_relaxed);
       holder = nullptr) {
    if (holder == thread) {
      ++again_;
      return;
    }
    Wait(round);
  }
}

void SpinLock::Wait(int& round) const noexcept {
  constexpr int kSpins = 200;
  constexpr int kYields = 50;
  while (holder_.load(std::memory_order_relaxed) != nullptr) {
    if (++round < kSpins) continue;
    if (round < kSpins + kYields) {
      std::this_thread::yield();
    } else {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }
}

}  // namespace quarnfc
