// SPDX-License-Identifier: MIT
// Work on a thread with attributes of its own.
#ifndef QUARNFC_TESTS_SUPPORT_THREAD_POSIX_H_
#define QUARNFC_TESTS_SUPPORT_THREAD_POSIX_H_

#include <functional>

#include <pthread.h>

namespace quarnfc_test {

// Runs work to its end on a thread that prepare has given its attributes. Throws std::runtime_error
// when there is no such thread; work itself must not throw.
void RunOnThread(const std::function<void(pthread_attr_t& attributes)>& prepare,
                 const std::function<void()>& work);

}  // namespace quarnfc_test

#endif  // QUARNFC_TESTS_SUPPORT_THREAD_POSIX_H_
