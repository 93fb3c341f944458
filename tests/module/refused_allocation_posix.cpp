// SPDX-License-Identifier: MIT
// The process's address space is limited to what it uses already.
#include <sys/resource.h>
#include <unistd.h>

#include <fstream>

#include "tests/module/refused_allocation.h"

namespace {

rlimit g_limit = {};

rlim_t UsedAddressSpace() {
  std::ifstream status("/proc/self/statm");
  rlim_t pages = 0;
  status >> pages;
  return pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

}  // namespace

const char* RefusedAllocation::Obstacle() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  return "a sanitizer needs more address space than a limit would leave";
#else
  return nullptr;
#endif
}

RefusedAllocation::RefusedAllocation() {
  constexpr rlim_t kSpare = 16 * 1024 * 1024;
  getrlimit(RLIMIT_AS, &g_limit);
  const rlimit tight = {UsedAddressSpace() + kSpare, g_limit.rlim_max};
  setrlimit(RLIMIT_AS, &tight);
}

RefusedAllocation::~RefusedAllocation() { setrlimit(RLIMIT_AS, &g_limit); }
