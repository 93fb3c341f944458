// SPDX-License-Identifier: MIT
// How much memory this process takes.
#ifndef QUARNFC_TESTS_NET_MEMORY_IN_USE_H_
#define QUARNFC_TESTS_NET_MEMORY_IN_USE_H_

#include <cstddef>

#if defined(_WIN32)
#include <windows.h>

#include <psapi.h>

inline std::size_t MemoryInUse() {
  PROCESS_MEMORY_COUNTERS counters = {};
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
  return counters.PagefileUsage;
}
#else
#include <unistd.h>

#include <fstream>

inline std::size_t MemoryInUse() {
  std::size_t whole = 0;
  std::size_t resident = 0;
  std::ifstream("/proc/self/statm") >> whole >> resident;
  return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}
#endif

#endif  // QUARNFC_TESTS_NET_MEMORY_IN_USE_H_
