// SPDX-License-Identifier: MIT
#ifndef QUARNFC_TESTS_SUPPORT_THREADS_H_
#define QUARNFC_TESTS_SUPPORT_THREADS_H_

#include <thread>
#include <vector>

namespace quarnfc_test {

// Runs work(0) to work(count - 1), each on a thread of its own, and waits for their end.
template <class Work>
void RunOnThreads(int count, Work work) {
  std::vector<std::thread> threads;
  threads.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) threads.emplace_back(work, i);
  for (std::thread& thread : threads) thread.join();
}

}  // namespace quarnfc_test

#endif  // QUARNFC_TESTS_SUPPORT_THREADS_H_
