// SPDX-License-Identifier: MIT
// The virtual table that all type descriptors of the module share, and the names asked for.
#include <vcruntime_typeinfo.h>

#include "start.h"

extern "C" __declspec(dllimport) void __cdecl __std_type_info_destroy_list(__type_info_node* root);

extern "C" __type_info_node __type_info_root_node = {};

// Descriptors point to it; nobody calls through it. (The compiler would make it only where an
// object is constructed, and there is no such place.)
extern const void* const kTypeInfoTable[1] __asm__("??_7type_info@@6B@");
const void* const kTypeInfoTable[1] = {nullptr};

void quarnfc::runtime::ReleaseTypeNames() { __std_type_info_destroy_list(&__type_info_root_node); }
