// SPDX-License-Identifier: MIT
// Makes the platform refuse system strings to the module, as it does when memory is exhausted.
// One source file per platform.
#ifndef QUARNFC_TESTS_MODULE_REFUSED_ALLOCATION_H_
#define QUARNFC_TESTS_MODULE_REFUSED_ALLOCATION_H_

class RefusedAllocation {
 public:
  RefusedAllocation();
  ~RefusedAllocation();

  RefusedAllocation(const RefusedAllocation&) = delete;
  RefusedAllocation& operator=(const RefusedAllocation&) = delete;

  // Why it cannot be done here; null when it was done.
  static const char* Obstacle();
};

// The length of a text whose system string is refused while a RefusedAllocation lives.
constexpr int kRefusedLength = 64 * 1024 * 1024;

#endif  // QUARNFC_TESTS_MODULE_REFUSED_ALLOCATION_H_
