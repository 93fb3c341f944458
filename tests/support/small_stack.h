// SPDX-License-Identifier: MIT
// Work on a thread whose stack is as small as those of some hosts.
#ifndef QUARNFC_TESTS_SUPPORT_SMALL_STACK_H_
#define QUARNFC_TESTS_SUPPORT_SMALL_STACK_H_

#include <functional>

namespace quarnfc_test {

// Runs work to its end on a thread with a stack of 256 KiB. Throws std::runtime_error when there is
// no such thread; work itself must not throw.
void RunOnSmallStack(const std::function<void()>& work);

}  // namespace quarnfc_test

#endif  // QUARNFC_TESTS_SUPPORT_SMALL_STACK_H_
