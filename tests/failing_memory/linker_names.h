// SPDX-License-Identifier: MIT
// Names behind the prefixes of the linker's option --wrap: calls of a wrapped function arrive at
// the one declared WRAPPED, and the one declared REAL is the library's own. A size_t is another
// letter in the names of each target, which the build file knows.
#ifndef QUARNFC_TESTS_FAILING_MEMORY_LINKER_NAMES_H_
#define QUARNFC_TESTS_FAILING_MEMORY_LINKER_NAMES_H_

#define WRAPPED(name) __asm__("__wrap_" name)
#define REAL(name) __asm__("__real_" name)

#define ALLOC_NODE "_ZN7quarnfc15AllocNodeSlowlyE" SIZE_LETTER
#define FREE_NODE "_ZN7quarnfc14FreeNodeSlowlyEPv" SIZE_LETTER
#define SET_THREAD_DATA "_ZN7quarnfc8platform13SetThreadDataEPvPFvS1_E"
#define ALLOC_BLOCK "_ZN13CQNFixedAlloc5AllocEv"
#define FREE_BLOCK "_ZN13CQNFixedAlloc4FreeEPv"

#define OPEN_FILE "_ZN7quarnfc8platform4File4OpenEPKcNS0_8FileModeE"
#define READ_FILE "_ZN7quarnfc8platform4File4ReadEPv" SIZE_LETTER
#define WRITE_FILE "_ZN7quarnfc8platform4File5WriteEPKv" SIZE_LETTER
#define ALLOC_SYSTEM_STRING "_ZN7quarnfc8platform17AllocSystemStringEPKwj"
#define REALLOC_SYSTEM_STRING "_ZN7quarnfc8platform19ReallocSystemStringERPwPKwj"
#define FREE_SYSTEM_STRING "_ZN7quarnfc8platform16FreeSystemStringEPw"
#define TO_UTF16 "_ZN7quarnfc8platform7ToUtf16ENS0_8EncodingEPKciPwi"
#define FROM_UTF16 "_ZN7quarnfc8platform9FromUtf16ENS0_8EncodingEPKwiPci"

#endif  // QUARNFC_TESTS_FAILING_MEMORY_LINKER_NAMES_H_
