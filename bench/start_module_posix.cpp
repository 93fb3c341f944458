// SPDX-License-Identifier: MIT
#include <dlfcn.h>

#include <cstdlib>

#include "start_module.h"

namespace bench {

Module::Module(const char* path) : handle_(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {
  if (handle_ == nullptr) std::abort();
}

Module::~Module() { dlclose(handle_); }

Module::Any Module::Address(const char* name) const {
  void* const address = dlsym(handle_, name);
  if (address == nullptr) std::abort();
  return reinterpret_cast<Any>(address);
}

}  // namespace bench
