// SPDX-License-Identifier: MIT
#include "platform/thread_data.h"

#include <pthread.h>

#include <atomic>
#include <new>

namespace quarnfc::platform {

constinit thread_local void* t_thread_data = nullptr;

namespace {

// The key serves only to learn that a thread ends.
struct EndKey {
  pthread_key_t key;
  bool made;
};

// Every thread that sets data stores the same function.
constinit std::atomic<void (*)(void* data)> g_at_end = nullptr;

void EndThread(void* data) {
  t_thread_data = nullptr;
  g_at_end.load()(data);
}

EndKey& Key() {
  static EndKey end = [] {
    EndKey made{};
    made.made = pthread_key_create(&made.key, EndThread) == 0;
    return made;
  }();
  return end;
}

}  // namespace

void SetThreadData(void* data, void (*at_end)(void* data)) {
  g_at_end = at_end;
  if (!Key().made || pthread_setspecific(Key().key, data) != 0) throw std::bad_alloc();
  t_thread_data = data;
}

void ReleaseThreadData() noexcept {
  if (Key().made) pthread_key_delete(Key().key);
}

}  // namespace quarnfc::platform
