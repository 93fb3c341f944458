// SPDX-License-Identifier: MIT
// Loads the probe DLL, uses it from several threads, unloads it, twice, and looks at what happened
// when.
#include "probe.h"

#include <windows.h>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <exception>
#include <new>
#include <thread>
#include <vector>

namespace {

int g_failures = 0;
std::atomic<int> g_events[kEventCount];

void Count(ProbeEvent event) { ++g_events[event]; }

void Check(bool holds, const char* what) {
  if (holds) return;
  std::printf("does not hold: %s\n", what);
  ++g_failures;
}

template <class Function>
Function Find(HMODULE module, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

// What the DLL throws is caught here, and nothing is left uncaught.
void CatchAll(HMODULE module) {
  const auto raise = Find<ProbeThrow>(module, "Throw");
  int number = 0;
  bool bad_alloc = false;
  bool runtime_error = false;
  try {
    raise(0);
  } catch (int thrown) {
    number = thrown;
  }
  try {
    raise(1);
  } catch (const std::bad_alloc& error) {
    bad_alloc = std::strcmp(error.what(), "bad allocation") == 0;
  }
  try {
    raise(2);
  } catch (const std::exception& error) {
    runtime_error = std::strcmp(error.what(), "thrown by made by an initialiser") == 0;
  }
  Check(number == 7, "a number crosses the modules");
  Check(bad_alloc, "std::bad_alloc crosses the modules");
  Check(runtime_error, "std::runtime_error crosses the modules with its text");
  Check(std::uncaught_exceptions() == 0, "no exception is left uncaught");
}

void UseFromThreads(HMODULE module) {
  const auto touch_object = Find<ProbeTouchThreadObject>(module, "TouchThreadObject");
  const auto touch_static = Find<ProbeTouchFunctionStatic>(module, "TouchFunctionStatic");
  std::atomic<int> right{0};
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([&] {
      if (touch_static() == 42 && touch_object() == 1 && touch_object() == 2) ++right;
    });
  }
  for (std::thread& thread : threads) thread.join();
  Check(right == 8, "every thread has an object of its own and sees the static made");
  Check(touch_object() == 1, "so has the first thread");
  Check(g_events[kFunctionStaticMade] == 1, "a static of a function is made once");
  Check(g_events[kThreadObjectDestroyed] == 8, "objects go with their threads");
}

void LoadUseUnload(const char* path) {
  for (auto& count : g_events) count = 0;
  const HMODULE module = LoadLibraryA(path);
  Check(module != nullptr, "the DLL is loaded");
  if (module == nullptr) return;
  Check(g_events[kStaticMade] == 1, "initialisers run when the DLL is loaded");
  UseFromThreads(module);
  CatchAll(module);
  Check(Find<ProbeCatch>(module, "Catch")() == 32, "the DLL catches what it throws");
  Check(Find<ProbeDeepStack>(module, "DeepStack")(20) == 20, "frames of many pages are probed");
  Check(g_events[kStaticDestroyed] == 0 && g_events[kAtExitRan] == 0, "nothing ends early");

  FreeLibrary(module);
  Check(GetModuleHandleA(path) == nullptr, "the DLL is unloaded");
  Check(g_events[kStaticDestroyed] == 1, "destructors run when the DLL is unloaded");
  Check(g_events[kFunctionStaticDestroyed] == 1, "so do those of statics of functions");
  Check(g_events[kAtExitRan] == 1, "and functions of atexit");
  Check(g_events[kThreadObjectDestroyed] == 9, "and those of the first thread's objects");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  char address[32];
  std::snprintf(address, sizeof(address), "%llx", reinterpret_cast<unsigned long long>(&Count));
  SetEnvironmentVariableA("QUARNFC_PROBE_COUNTER", address);
  LoadUseUnload(argv[1]);
  LoadUseUnload(argv[1]);
  std::printf("%d failures\n", g_failures);
  return g_failures != 0;
}
