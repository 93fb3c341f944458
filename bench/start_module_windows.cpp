// SPDX-License-Identifier: MIT
#include <windows.h>

#include <cstdlib>

#include "start_module.h"

namespace bench {

Module::Module(const char* path) : handle_(LoadLibraryA(path)) {
  if (handle_ == nullptr) std::abort();
}

Module::~Module() { FreeLibrary(static_cast<HMODULE>(handle_)); }

Module::Any Module::Address(const char* name) const {
  const FARPROC address = GetProcAddress(static_cast<HMODULE>(handle_), name);
  if (address == nullptr) std::abort();
  return reinterpret_cast<Any>(address);
}

}  // namespace bench
