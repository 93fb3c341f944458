// SPDX-License-Identifier: MIT
// Static initialisers, and the functions that run when the module ends.
#include <stdlib.h>

#include <corecrt_startup.h>

#include "sections.h"
#include "start.h"

extern "C" {

using Initialiser = void(__cdecl*)();
using CheckedInitialiser = int(__cdecl*)();

QUARNFC_IN_SECTION(".CRT$XIA") extern const CheckedInitialiser __xi_a[] = {nullptr};
QUARNFC_IN_SECTION(".CRT$XIZ") extern const CheckedInitialiser __xi_z[] = {nullptr};
QUARNFC_IN_SECTION(".CRT$XCA") extern const Initialiser __xc_a[] = {nullptr};
QUARNFC_IN_SECTION(".CRT$XCZ") extern const Initialiser __xc_z[] = {nullptr};

// The compiler refers to it where floating-point numbers are used.
int _fltused = 0x9875;

// <locale.h> refers to it in programs whose plain char is unsigned.
int __mingw_initcharmax = 0;

}  // extern "C"

namespace quarnfc::runtime {
namespace {

_onexit_table_t g_exit_functions;
bool g_is_kept_in_module = false;

}  // namespace

// Entries are null where the linker has padded.
bool RunInitialisers() {
  for (const CheckedInitialiser* entry = __xi_a; entry < __xi_z; ++entry) {
    if (*entry != nullptr && (*entry)() != 0) return false;
  }
  for (const Initialiser* entry = __xc_a; entry < __xc_z; ++entry) {
    if (*entry != nullptr) (*entry)();
  }
  return true;
}

bool KeepExitFunctionsInModule() {
  g_is_kept_in_module = _initialize_onexit_table(&g_exit_functions) == 0;
  return g_is_kept_in_module;
}

void RunExitFunctions() { _execute_onexit_table(&g_exit_functions); }

}  // namespace quarnfc::runtime

extern "C" int __cdecl atexit(void(__cdecl* function)()) {
  using namespace quarnfc::runtime;
  if (!g_is_kept_in_module) return _crt_atexit(function);
  return _register_onexit_function(&g_exit_functions, reinterpret_cast<_onexit_t>(function));
}
