// SPDX-License-Identifier: MIT
#include "platform/cpu.h"

#include <cstdint>

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

// The parts of a thread's registers that the system saves, as XCR0 counts them.
constexpr std::uint64_t kAvxState = 0x06;     // 128 and 256 bits
constexpr std::uint64_t kAvx512State = 0xE6;  // those, masks and 512 bits

std::uint64_t ReadXcr0() {
#if defined(_MSC_VER) && !defined(__clang__)
  return _xgetbv(0);
#else
  std::uint32_t low = 0, high = 0;
  __asm__("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
  return low | std::uint64_t{high} << 32;
#endif
}

bool SystemSaves(std::uint64_t state) {
  const bool may_ask = HasBit(CpuId(1).c, 27);  // OSXSAVE
  return may_ask && (ReadXcr0() & state) == state;
}

}  // namespace

bool CpuHasAvx2() { return SystemSaves(kAvxState) && HasBit(CpuId(7).b, 5); }

bool CpuHasSha() {
  const Registers answer = CpuId(1);
  const bool has_ssse3 = HasBit(answer.c, 9);
  const bool has_sse41 = HasBit(answer.c, 19);
  return has_ssse3 && has_sse41 && HasBit(CpuId(7).b, 29);
}

bool CpuHasClmul() {
  const Registers answer = CpuId(1);
  return SystemSaves(kAvxState) && HasBit(answer.c, 28) && HasBit(answer.c, 1);
}

bool CpuHasWideClmul() {
  const Registers answer = CpuId(7);
  const bool has_avx512f = HasBit(answer.b, 16);
  const bool has_avx512vl = HasBit(answer.b, 31);
  return SystemSaves(kAvx512State) && CpuHasClmul() && has_avx512f && has_avx512vl &&
         HasBit(answer.c, 10);
}

}  // namespace quarnfc::platform

#else

namespace quarnfc::platform {

bool CpuHasAvx2() { return false; }
bool CpuHasSha() { return false; }
bool CpuHasClmul() { return false; }
bool CpuHasWideClmul() { return false; }

}  // namespace quarnfc::platform

#endif
