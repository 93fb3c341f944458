// SPDX-License-Identifier: MIT
// A lock for a few instructions of work, ready before any static initialiser runs. A thread that
// finds it taken spins, then lets others run, then sleeps, so that a holder of lower priority gets
// its turn.
#ifndef QUARNFC_CORE_MEMORY_SPIN_LOCK_H_
#define QUARNFC_CORE_MEMORY_SPIN_LOCK_H_

#include <atomic>
#include <chrono>
#include <thread>

namespace quarnfc {

class SpinLock {
 public:
  void lock() noexcept {
    for (int round = 0; is_taken_.exchange(true, std::memory_order_acquire);) Wait(round);
  }

  void unlock() noexcept { is_taken_.store(false, std::memory_order_release); }

 private:
  void Wait(int& round) const noexcept {
    constexpr int kSpins = 200;
    constexpr int kYields = 50;
    while (is_taken_.load(std::memory_order_relaxed)) {
      if (++round < kSpins) continue;
      if (round < kSpins + kYields) {
        std::this_thread::yield();
      } else {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
      }
    }
  }

  std::atomic<bool> is_taken_ = false;
};

}  // namespace quarnfc

#endif  // QUARNFC_CORE_MEMORY_SPIN_LOCK_H_
