// SPDX-License-Identifier: MIT
// Listening to the debugger output off Windows, where no debugger can be played by a test.
#ifndef QUARNFC_PLATFORM_POSIX_DEBUG_OUTPUT_OBSERVER_H_
#define QUARNFC_PLATFORM_POSIX_DEBUG_OUTPUT_OBSERVER_H_

namespace quarnfc::platform {

using DebugOutputObserver = void (*)(const char* text);

// Sends every later text to observer instead (null ends that) and returns the one before it. The
// observer is called on the thread that writes the text.
DebugOutputObserver SetDebugOutputObserver(DebugOutputObserver observer);

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_POSIX_DEBUG_OUTPUT_OBSERVER_H_
