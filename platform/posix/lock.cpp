// SPDX-License-Identifier: MIT
#include "platform/lock.h"

#include <pthread.h>

#include <new>

namespace quarnfc::platform {

namespace {

pthread_mutex_t* MutexIn(unsigned char* storage) {
  return std::launder(reinterpret_cast<pthread_mutex_t*>(storage));
}

}  // namespace

Lock::Lock() {
  static_assert(sizeof(pthread_mutex_t) <= sizeof(storage_) && alignof(pthread_mutex_t) <= 8);
  pthread_mutexattr_t attributes;
  pthread_mutexattr_init(&attributes);
  pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
  pthread_mutex_init(new (storage_) pthread_mutex_t, &attributes);
  pthread_mutexattr_destroy(&attributes);
}

Lock::~Lock() { pthread_mutex_destroy(MutexIn(storage_)); }

void Lock::Acquire() { pthread_mutex_lock(MutexIn(storage_)); }

void Lock::Release() { pthread_mutex_unlock(MutexIn(storage_)); }

}  // namespace quarnfc::platform
