// SPDX-License-Identifier: MIT
#include <windows.h>

#include "tests/module/module_image.h"

namespace {

HMODULE Module() { return GetModuleHandleA("QuarnFC.dll"); }

template <class Type>
const Type* At(DWORD offset) {
  return reinterpret_cast<const Type*>(reinterpret_cast<const char*>(Module()) + offset);
}

}  // namespace

std::set<std::string> module_image::ExportedNames() {
  const auto* dos = At<IMAGE_DOS_HEADER>(0);
  const auto* headers = At<IMAGE_NT_HEADERS64>(static_cast<DWORD>(dos->e_lfanew));
  const auto& entry = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
  const auto* exports = At<IMAGE_EXPORT_DIRECTORY>(entry.VirtualAddress);
  const auto* names = At<DWORD>(exports->AddressOfNames);
  std::set<std::string> result;
  for (DWORD i = 0; i < exports->NumberOfNames; ++i) result.insert(At<char>(names[i]));
  return result;
}

void* module_image::Resolve(const char* name) {
  return reinterpret_cast<void*>(GetProcAddress(Module(), name));
}
