// Where OutputDebugStringA goes off Windows. As there, a process that is not being debugged is not
// disturbed: the text is written to the standard error stream only while a debugger traces the
// process, and otherwise goes nowhere.
#ifndef QUARNFC_PLATFORM_POSIX_DEBUG_OUTPUT_H_
#define QUARNFC_PLATFORM_POSIX_DEBUG_OUTPUT_H_

namespace quarnfc {

using DebugOutputObserver = void (*)(const char* text);

// Sends every later text to observer instead (null ends that) and returns the one before it. The
// observer is called on the thread that writes the text.
DebugOutputObserver SetDebugOutputObserver(DebugOutputObserver observer);

}  // namespace quarnfc

#endif  // QUARNFC_PLATFORM_POSIX_DEBUG_OUTPUT_H_
