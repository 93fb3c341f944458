// SPDX-License-Identifier: MIT
// The thread that stands in for one whose stack has overflowed is made then: the library keeps none
// waiting. It does not start while the thread that waits for it holds the loader's lock; then the
// work is done here after all, as far as the stack goes.
#include <atomic>
#include <cstddef>

#include "platform/diagnostics.h"
#include "platform/windows/platform.h"

namespace quarnfc::platform {

namespace {

// What writing a dump may take, and what the thread that stands in is given.
constexpr std::size_t kEnough = 128 * 1024;
constexpr DWORD kPatience = 10'000;  // milliseconds until the thread has started

struct Request {
  void (*work)(void* argument);
  void* argument;
  HANDLE done;  // an event
};

// Whoever takes the request out serves it. A thread that starts too late finds nothing, or what
// another one is waiting for.
std::atomic<Request*> g_request{nullptr};

void Serve(Request& request) {
  request.work(request.argument);
  SetEvent(request.done);
}

DWORD WINAPI ServeOnThread(void* /*unused*/) {
  if (Request* const request = g_request.exchange(nullptr)) Serve(*request);
  return 0;
}

std::size_t StackLeft() {
  MEMORY_BASIC_INFORMATION stack{};
  if (VirtualQuery(&stack, &stack, sizeof stack) == 0) return kEnough;
  return static_cast<std::size_t>(reinterpret_cast<const char*>(&stack) -
                                  static_cast<const char*>(stack.AllocationBase));
}

void RunOnThread(Request& request) {
  g_request = &request;
  const HANDLE thread = CreateThread(nullptr, 2 * kEnough, ServeOnThread, nullptr,
                                     STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
  if (thread != nullptr) {
    WaitForSingleObject(request.done, kPatience);
    CloseHandle(thread);
  }
  if (g_request.exchange(nullptr) != nullptr) {
    Serve(request);
  } else {
    WaitForSingleObject(request.done, INFINITE);
  }
}

}  // namespace

void RunWithStack(void (*work)(void* argument), void* argument) {
  Request request{work, argument, nullptr};
  if (StackLeft() < kEnough) request.done = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  if (request.done == nullptr) return work(argument);
  RunOnThread(request);
  CloseHandle(request.done);
}

}  // namespace quarnfc::platform
