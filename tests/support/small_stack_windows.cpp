// SPDX-License-Identifier: MIT
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <stdexcept>

#include "tests/support/small_stack.h"

namespace quarnfc_test {
namespace {

DWORD WINAPI Run(void* argument) {
  (*static_cast<const std::function<void()>*>(argument))();
  return 0;
}

}  // namespace

void RunOnSmallStack(const std::function<void()>& work) {
  HANDLE thread = CreateThread(nullptr, 256 * 1024, Run, const_cast<std::function<void()>*>(&work),
                               STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
  if (thread == nullptr) throw std::runtime_error("no thread");
  WaitForSingleObject(thread, INFINITE);
  CloseHandle(thread);
}

}  // namespace quarnfc_test
