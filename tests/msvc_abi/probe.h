// SPDX-License-Identifier: MIT
// What the probe DLL tells its host. Events are counted by kind.
#ifndef QUARNFC_TESTS_MSVC_ABI_PROBE_H_
#define QUARNFC_TESTS_MSVC_ABI_PROBE_H_

enum ProbeEvent {
  kStaticMade,
  kStaticDestroyed,
  kThreadObjectMade,
  kThreadObjectDestroyed,
  kFunctionStaticMade,
  kFunctionStaticDestroyed,
  kAtExitRan,
  kEventCount
};

// Counts an event in the host; told to the DLL by the environment, since the DLL's first events
// happen while it is loaded.
typedef void (*ProbeCounter)(ProbeEvent event);

// The functions of the DLL.
typedef int (*ProbeTouchThreadObject)();    // the thread's own counter after one more call
typedef int (*ProbeTouchFunctionStatic)();  // 42, made by the first caller
typedef void (*ProbeThrow)(int kind);       // 0 a number, 1 std::bad_alloc, 2 std::runtime_error
typedef int (*ProbeCatch)();                // what the DLL caught of its own
typedef unsigned (*ProbeDeepStack)(unsigned depth);  // uses depth pages of stack

#endif  // QUARNFC_TESTS_MSVC_ABI_PROBE_H_
