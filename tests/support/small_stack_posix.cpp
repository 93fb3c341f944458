// SPDX-License-Identifier: MIT
#include "tests/support/small_stack.h"

#include "tests/support/thread_posix.h"

namespace quarnfc_test {

void RunOnSmallStack(const std::function<void()>& work) {
  RunOnThread(
      [](pthread_attr_t& attributes) { pthread_attr_setstacksize(&attributes, 256 * 1024); }, work);
}

}  // namespace quarnfc_test
