// SPDX-License-Identifier: MIT
// The sections in which the compiler leaves pointers to what runs at start-up. The linker sorts
// them by what follows the dollar sign, so that the compiler's entries lie between our first and
// last.
#ifndef QUARNFC_RUNTIME_SECTIONS_H_
#define QUARNFC_RUNTIME_SECTIONS_H_

#pragma section(".CRT$XIA", long, read)  // C initialisers, which may fail
#pragma section(".CRT$XIZ", long, read)
#pragma section(".CRT$XCA", long, read)  // C++ initialisers
#pragma section(".CRT$XCZ", long, read)
#pragma section(".CRT$XLA", long, read)  // calls of the loader for every thread
#pragma section(".CRT$XLC", long, read)
#pragma section(".CRT$XLD", long, read)
#pragma section(".CRT$XLZ", long, read)
#pragma section(".CRT$XDA", long, read)  // initialisers of thread-local objects
#pragma section(".CRT$XDZ", long, read)

#define QUARNFC_IN_SECTION(name) __declspec(allocate(name))

#endif  // QUARNFC_RUNTIME_SECTIONS_H_
