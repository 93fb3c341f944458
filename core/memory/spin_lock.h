// SPDX-License-Identifier: MIT
// A lock for a few instructions of work, ready before any static initialiser runs. A thread that
// finds it taken spins, then lets others run, then sleeps, so that a holder of lower priority gets
// its turn.
//
// It is recursive, for the thread that faults while it holds the lock: what reports the fault on
// that thread must not wait for ever.
#ifndef QUARNFC_CORE_MEMORY_SPIN_LOCK_H_
#define QUARNFC_CORE_MEMORY_SPIN_LOCK_H_

#include <atomic>

#include "platform/thread_data.h"
#include "platform/threads.h"

namespace quarnfc {

class SpinLock {
 public:
  void lock() noexcept {
    const void* const thread = platform::ThreadMark();
    const void* holder = nullptr;
    // Nobody else can take it meanwhile: the exchange, which costs as much as all the work done
    // under a lock, is not needed.
    if (platform::HasOneThread() && holder_.load(std::memory_order_relaxed) == nullptr) {
      holder_.store(thread, std::memory_order_relaxed);
    } else if (!holder_.compare_exchange_strong(holder, thread, std::memory_order_acquire,
                                                std::memory_order_relaxed)) {
      LockHeld(thread);
    }
  }

  void unlock() noexcept {
    if (again_ > 0) {
      --again_;
    } else {
      holder_.store(nullptr, std::memory_order_release);
    }
  }

 private:
  // The rest of lock: apart, so that what is usual is short enough to be part of its callers.
  void LockHeld(const void* thread) noexcept;
  void Wait(int& round) const noexcept;

  std::atomic<const void*> holder_ = nullptr;
  int again_ = 0;  // how often the holder took it beyond the first time
};

}  // namespace quarnfc

#endif  // QUARNFC_CORE_MEMORY_SPIN_LOCK_H_
