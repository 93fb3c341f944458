// SPDX-License-Identifier: MIT
// The module's imported SysAllocStringLen and SysReAllocStringLen are replaced in its import
// table.
#include <windows.h>

#include <oleauto.h>

#include <cstring>
#include <utility>

#include "tests/module/refused_allocation.h"

namespace {

BSTR WINAPI RefuseString(const OLECHAR*, UINT) { return nullptr; }
INT WINAPI RefuseNewString(BSTR*, const OLECHAR*, UINT) { return FALSE; }

template <class Type>
Type* At(ULONGLONG offset) {
  return reinterpret_cast<Type*>(reinterpret_cast<char*>(GetModuleHandleA("QuarnFC.dll")) + offset);
}

// The slot of the module's import table that holds the address of a function.
ULONGLONG* ImportSlot(const char* function) {
  const auto* dos = At<IMAGE_DOS_HEADER>(0);
  const auto* headers = At<IMAGE_NT_HEADERS64>(static_cast<ULONGLONG>(dos->e_lfanew));
  const auto& entry = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  for (const auto* import = At<IMAGE_IMPORT_DESCRIPTOR>(entry.VirtualAddress); import->Name != 0;
       ++import) {
    const auto* name = At<IMAGE_THUNK_DATA64>(import->OriginalFirstThunk);
    auto* slot = At<IMAGE_THUNK_DATA64>(import->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++slot) {
      if (IMAGE_SNAP_BY_ORDINAL64(name->u1.Ordinal)) continue;
      const auto* by_name = At<IMAGE_IMPORT_BY_NAME>(name->u1.AddressOfData);
      if (std::strcmp(reinterpret_cast<const char*>(by_name->Name), function) == 0) {
        return &slot->u1.Function;
      }
    }
  }
  return nullptr;
}

ULONGLONG Exchange(const char* function, ULONGLONG address) {
  ULONGLONG* slot = ImportSlot(function);
  DWORD protection = 0;
  VirtualProtect(slot, sizeof(*slot), PAGE_READWRITE, &protection);
  return std::exchange(*slot, address);
}

template <class Function>
ULONGLONG AddressOf(Function* function) {
  return reinterpret_cast<ULONGLONG>(function);
}

ULONGLONG g_alloc = 0;
ULONGLONG g_realloc = 0;

}  // namespace

const char* RefusedAllocation::Obstacle() {
  const bool found =
      ImportSlot("SysAllocStringLen") != nullptr && ImportSlot("SysReAllocStringLen") != nullptr;
  return found ? nullptr : "the module does not import the functions by name";
}

RefusedAllocation::RefusedAllocation() {
  g_alloc = Exchange("SysAllocStringLen", AddressOf(&RefuseString));
  g_realloc = Exchange("SysReAllocStringLen", AddressOf(&RefuseNewString));
}

RefusedAllocation::~RefusedAllocation() {
  Exchange("SysAllocStringLen", g_alloc);
  Exchange("SysReAllocStringLen", g_realloc);
}
