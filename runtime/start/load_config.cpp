// SPDX-License-Identifier: MIT
// The load configuration: tells the loader where the stack cookie is and what the linker has noted
// of the targets of indirect calls (control-flow guard).
#include <windows.h>

extern "C" {

extern UINT_PTR __security_cookie;

// Made by the linker.
extern void* const __guard_fids_table[];
extern char __guard_fids_count;
extern char __guard_flags;
extern void* const __guard_iat_table[];
extern char __guard_iat_count;
extern void* const __guard_longjmp_table[];
extern char __guard_longjmp_count;

}  // extern "C"

namespace {

// Where the system has no such guard every target is good.
void CheckNothing(void*) {}

// A tail call to the target, which is in rax.
__attribute__((naked)) void DispatchUnchecked() { __asm__("jmpq *%rax\n"); }

}  // namespace

extern "C" {

// The loader puts its own functions here. In a section of its own, which it makes writable
// meanwhile.
#pragma section(".00cfg", long, read)
__declspec(allocate(".00cfg")) extern void (*const volatile __guard_check_icall_fptr)(void*) =
    CheckNothing;
__declspec(allocate(".00cfg")) extern void (*const volatile __guard_dispatch_icall_fptr)() =
    DispatchUnchecked;

}  // extern "C"

namespace {

// IMAGE_LOAD_CONFIG_DIRECTORY64 up to the table of long jumps.
struct LoadConfig {
  DWORD size = {};
  DWORD time_and_version[2] = {};
  DWORD flags_to_clear_and_set[2] = {};
  DWORD critical_section_timeout = {};
  ULONGLONG free_thresholds[2] = {};
  ULONGLONG lock_prefix_table = {};
  ULONGLONG maximum_allocation = {};
  ULONGLONG virtual_memory_threshold = {};
  ULONGLONG process_affinity_mask = {};
  DWORD process_heap_flags = {};
  DWORD service_pack_and_load_flags = {};
  ULONGLONG edit_list = {};
  const void* security_cookie = {};
  ULONGLONG handler_table_and_count[2] = {};
  const void* guard_check_function = {};
  const void* guard_dispatch_function = {};
  const void* guard_function_table = {};
  const void* guard_function_count = {};
  const void* guard_flags =
      {};  // 32 bits, and 32 more of the next field, code integrity, which are 0
  DWORD code_integrity_rest[2] = {};
  const void* guard_import_table = {};
  const void* guard_import_count = {};
  const void* guard_long_jump_table = {};
  const void* guard_long_jump_count = {};
};

}  // namespace

// The linker finds it by its name. Counts and flags are the addresses of symbols that it defines.
extern "C" const LoadConfig _load_config_used;
const LoadConfig _load_config_used = {
    .size = sizeof(LoadConfig),
    .security_cookie = &__security_cookie,
    .guard_check_function =
        const_cast<const void*>(static_cast<const volatile void*>(&__guard_check_icall_fptr)),
    .guard_dispatch_function =
        const_cast<const void*>(static_cast<const volatile void*>(&__guard_dispatch_icall_fptr)),
    .guard_function_table = __guard_fids_table,
    .guard_function_count = &__guard_fids_count,
    .guard_flags = &__guard_flags,
    .guard_import_table = __guard_iat_table,
    .guard_import_count = &__guard_iat_count,
    .guard_long_jump_table = __guard_longjmp_table,
    .guard_long_jump_count = &__guard_longjmp_count,
};
