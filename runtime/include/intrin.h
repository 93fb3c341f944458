// SPDX-License-Identifier: MIT
// The compiler's <intrin.h> declares _setjmp, which is a macro in the headers of the run-time
// library.
#ifndef QUARNFC_RUNTIME_INTRIN_H_
#define QUARNFC_RUNTIME_INTRIN_H_

#pragma clang system_header

#include <setjmp.h>

#pragma push_macro("_setjmp")
#undef _setjmp
#include_next <intrin.h>
#pragma pop_macro("_setjmp")

#endif  // QUARNFC_RUNTIME_INTRIN_H_
