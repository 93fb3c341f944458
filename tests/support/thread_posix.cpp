// SPDX-License-Identifier: MIT
#include "tests/support/thread_posix.h"

#include <stdexcept>

namespace quarnfc_test {

void RunOnThread(const std::function<void(pthread_attr_t& attributes)>& prepare,
                 const std::function<void()>& work) {
  const auto run = [](void* argument) -> void* {
    (*static_cast<const std::function<void()>*>(argument))();
    return nullptr;
  };
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  prepare(attributes);
  pthread_t thread;
  const int error =
      pthread_create(&thread, &attributes, run, const_cast<std::function<void()>*>(&work));
  pthread_attr_destroy(&attributes);
  if (error != 0) throw std::runtime_error("no thread");
  pthread_join(thread, nullptr);
}

}  // namespace quarnfc_test
