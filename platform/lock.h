// SPDX-License-Identifier: MIT
// Locks between the threads of this process.
#ifndef QUARNFC_PLATFORM_LOCK_H_
#define QUARNFC_PLATFORM_LOCK_H_

#include <quarnfc/platform_types.h>

namespace quarnfc::platform {

// A lock that one thread holds at a time. It is recursive: the thread that holds it may acquire it
// again, and releases it as often. Nothing here reports an error: a lock that cannot be made, that
// is released by another thread or destroyed while held is a mistake of the program.
class Lock {
 public:
  Lock();
  ~Lock();
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

  // Waits until no other thread holds the lock.
  void Acquire();
  void Release();

 private:
  alignas(8) unsigned char storage_[kLockSize];
};

// Holds a lock for the time of a scope.
class LockGuard {
 public:
  explicit LockGuard(Lock& lock) : lock_(lock) { lock_.Acquire(); }
  ~LockGuard() { lock_.Release(); }
  LockGuard(const LockGuard&) = delete;
  LockGuard& operator=(const LockGuard&) = delete;

 private:
  Lock& lock_;
};

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_LOCK_H_
