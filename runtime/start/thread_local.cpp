// SPDX-License-Identifier: MIT
// Thread-local storage: the directory that the loader reads, the initialisers of thread-local
// objects and their destructors.
#include <windows.h>

#include <stdlib.h>

#include "sections.h"
#include "start.h"

#pragma section(".tls", long, read, write)
#pragma section(".tls$ZZZ", long, read, write)

extern "C" {

using Function = void(__cdecl*)();

// The module's number among those with such storage; written by the loader.
unsigned long _tls_index = 0;

// What every thread's storage starts with lies between these.
QUARNFC_IN_SECTION(".tls") char _tls_start = 0;
QUARNFC_IN_SECTION(".tls$ZZZ") char _tls_end = 0;

void NTAPI __dyn_tls_init(void* module, DWORD reason, void* reserved);
void NTAPI __dyn_tls_dtor(void* module, DWORD reason, void* reserved);

QUARNFC_IN_SECTION(".CRT$XLA") extern const PIMAGE_TLS_CALLBACK __xl_a = nullptr;
QUARNFC_IN_SECTION(".CRT$XLC") extern const PIMAGE_TLS_CALLBACK __xl_c = __dyn_tls_init;
QUARNFC_IN_SECTION(".CRT$XLD") extern const PIMAGE_TLS_CALLBACK __xl_d = __dyn_tls_dtor;
QUARNFC_IN_SECTION(".CRT$XLZ") extern const PIMAGE_TLS_CALLBACK __xl_z = nullptr;

QUARNFC_IN_SECTION(".CRT$XDA") extern const Function __xd_a = nullptr;
QUARNFC_IN_SECTION(".CRT$XDZ") extern const Function __xd_z = nullptr;

// The linker finds the directory by its name.
extern const IMAGE_TLS_DIRECTORY64 _tls_used = {reinterpret_cast<ULONGLONG>(&_tls_start),
                                                reinterpret_cast<ULONGLONG>(&_tls_end),
                                                reinterpret_cast<ULONGLONG>(&_tls_index),
                                                reinterpret_cast<ULONGLONG>(&__xl_a + 1),
                                                0,
                                                0};

// Whether this thread's objects are initialised; compiled code asks before it touches one.
thread_local bool __tls_guard = false;

}  // extern "C"

namespace {

// Destructors of one thread's objects in the order of their construction.
struct Destructors {
  Function* entries = nullptr;
  size_t count = 0;
  size_t capacity = 0;
};

thread_local Destructors t_destructors;

bool Grow(Destructors& list) {
  const size_t capacity = list.capacity == 0 ? 16 : 2 * list.capacity;
  void* entries = realloc(list.entries, capacity * sizeof(Function));
  if (entries == nullptr) return false;
  list.entries = static_cast<Function*>(entries);
  list.capacity = capacity;
  return true;
}

}  // namespace

// Called by compiled code when an object with a destructor has been constructed.
extern "C" int __cdecl __tlregdtor(Function destructor) {
  Destructors& list = t_destructors;
  if (list.count == list.capacity && !Grow(list)) return -1;
  list.entries[list.count++] = destructor;
  return 0;
}

extern "C" void __cdecl __dyn_tls_on_demand_init() { quarnfc::runtime::InitialiseThreadLocals(); }

// The first thread's objects wait for the module's own start-up: the run-time DLLs may not be ready
// when the loader calls.
extern "C" void NTAPI __dyn_tls_init(void* /*module*/, DWORD reason, void* /*reserved*/) {
  if (reason == DLL_THREAD_ATTACH) quarnfc::runtime::InitialiseThreadLocals();
}

extern "C" void NTAPI __dyn_tls_dtor(void* /*module*/, DWORD reason, void* /*reserved*/) {
  if (reason == DLL_THREAD_DETACH) quarnfc::runtime::DestroyThreadLocals();
}

namespace quarnfc::runtime {

void InitialiseThreadLocals() {
  if (__tls_guard) return;
  __tls_guard = true;
  for (const Function* entry = &__xd_a + 1; entry < &__xd_z; ++entry) {
    if (*entry != nullptr) (*entry)();
  }
}

// A destructor may construct another object.
void DestroyThreadLocals() {
  Destructors& list = t_destructors;
  while (list.count > 0) list.entries[--list.count]();
  free(list.entries);
  list = Destructors();
}

}  // namespace quarnfc::runtime
