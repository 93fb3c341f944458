// SPDX-License-Identifier: MIT
#include "platform/cpu.h"

#if defined(__x86_64__) || defined(_M_X64)

#if defined(_MSC_VER)
#include <intrin.h>
#else
#include <cpuid.h>
#endif

namespace quarnfc::platform {
namespace {

struct Registers {
  unsigned int a, b, c, d;
};

// The answer to a leaf, sub-leaf 0; zeros where the processor has no such leaf.
Registers CpuId(int leaf) {
#if defined(_MSC_VER)
  int highest[4];
  __cpuid(highest, 0);
  int answer[4] = {};
  if (leaf <= highest[0]) __cpuidex(answer, leaf, 0);
  return {static_cast<unsigned>(answer[0]), static_cast<unsigned>(answer[1]),
          static_cast<unsigned>(answer[2]), static_cast<unsigned>(answer[3])};
#else
  Registers answer{};
  __get_cpuid_count(static_cast<unsigned>(leaf), 0, &answer.a, &answer.b, &answer.c, &answer.d);
  return answer;
#endif
}

bool HasBit(unsigned int flags, int bit) { return (flags >> bit & 1) != 0; }

}  // namespace

bool CpuHasSsse3() { return HasBit(CpuId(1).c, 9); }

bool CpuHasSha() {
  const bool sse41 = HasBit(CpuId(1).c, 19);
  return CpuHasSsse3() && sse41 && HasBit(CpuId(7).b, 29);
}

}  // namespace quarnfc::platform

#else

bool quarnfc::platform::CpuHasSsse3() { return false; }

bool quarnfc::platform::CpuHasSha() { return false; }

#endif
