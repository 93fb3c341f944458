// SPDX-License-Identifier: MIT
// What both programs that unload the library share: they know its functions by name only.
#ifndef QUARNFC_TESTS_MODULE_UNLOAD_HOST_H_
#define QUARNFC_TESTS_MODULE_UNLOAD_HOST_H_

#include <quarnfc/fixed_alloc.h>

#include <cstdio>
#include <cstring>

namespace unload_host {

inline constexpr std::size_t kPoolChunk = sizeof(void*) + 64 * 80;  // of the pool of 80-byte blocks

using PoolFunction = CQNFixedAlloc* (*)();
using JoinFunction = char* (*)(const char*, const char*);
using FreeFunction = void (*)(void*);

// The exit code of the program, after saying what is wrong.
inline int Report(bool ok, const char* expectation) {
  if (!ok) std::fprintf(stderr, "failed: %s\n", expectation);
  return ok ? 0 : 1;
}

struct Mode {
  const char* name;
  int (*run)(const char* library);
};

template <std::size_t kCount>
int Run(const Mode (&modes)[kCount], const char* name, const char* library) {
  for (const Mode& mode : modes) {
    if (std::strcmp(mode.name, name) == 0) return mode.run(library);
  }
  return Report(false, "the mode is known");
}

}  // namespace unload_host

#endif  // QUARNFC_TESTS_MODULE_UNLOAD_HOST_H_
