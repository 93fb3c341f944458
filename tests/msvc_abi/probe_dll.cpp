// SPDX-License-Identifier: MIT
// A DLL that uses whatever the run-time part has to supply: statics, thread-local objects, statics
// of functions, functions at exit, exceptions, frames of many pages.
#include "probe.h"

#include <windows.h>

#include <cstdlib>
#include <new>
#include <stdexcept>
#include <string>

namespace {

ProbeCounter Counter() {
  char address[32] = "";
  GetEnvironmentVariableA("QUARNFC_PROBE_COUNTER", address, sizeof(address));
  return reinterpret_cast<ProbeCounter>(std::strtoull(address, nullptr, 16));
}

// The first static of the module: the others need it.
const ProbeCounter g_counter = Counter();

struct Static {
  Static() : text("made by an initialiser") { g_counter(kStaticMade); }
  ~Static() { g_counter(kStaticDestroyed); }
  std::string text;
};
Static g_static;

struct ThreadObject {
  ThreadObject() : calls(0) { g_counter(kThreadObjectMade); }
  ~ThreadObject() { g_counter(kThreadObjectDestroyed); }
  int calls;
};
thread_local ThreadObject t_object;

struct FunctionStatic {
  FunctionStatic() {
    Sleep(20);  // others arrive meanwhile
    g_counter(kFunctionStaticMade);
  }
  ~FunctionStatic() { g_counter(kFunctionStaticDestroyed); }
  int value = 42;
};

void AtExit() { g_counter(kAtExitRan); }

}  // namespace

extern "C" {

__declspec(dllexport) int TouchThreadObject() { return ++t_object.calls; }

__declspec(dllexport) int TouchFunctionStatic() {
  static const FunctionStatic made;
  static const int registered = std::atexit(AtExit);
  return registered == 0 ? made.value : -1;
}

__declspec(dllexport) void Throw(int kind) {
  if (kind == 0) throw 7;
  if (kind == 1) throw std::bad_alloc();
  throw std::runtime_error("thrown by " + g_static.text);
}

__declspec(dllexport) int Catch() {
  try {
    Throw(2);
  } catch (const std::exception& error) {
    return static_cast<int>(std::string(error.what()).size());
  }
  return 0;
}

__declspec(dllexport) unsigned DeepStack(unsigned depth) {
  volatile char page[3 * 4096];
  page[0] = static_cast<char>(depth);
  return depth == 0 ? 0 : DeepStack(depth - 1) + 1 + (page[0] - static_cast<char>(depth));
}

}  // extern "C"
