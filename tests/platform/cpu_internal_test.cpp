// SPDX-License-Identifier: MIT
#include "platform/cpu.h"

#include <gtest/gtest.h>

namespace quarnfc::platform {
namespace {

#if defined(__x86_64__) && defined(__GNUC__)
TEST(Cpu, AnswersAsTheCompilersOwnQuestion) {
  __builtin_cpu_init();
  EXPECT_EQ(__builtin_cpu_supports("avx2") != 0, CpuHasAvx2());
  EXPECT_EQ(__builtin_cpu_supports("pclmul") && __builtin_cpu_supports("avx"), CpuHasClmul());
  EXPECT_EQ(__builtin_cpu_supports("vpclmulqdq") && __builtin_cpu_supports("avx512f") &&
                __builtin_cpu_supports("avx512vl"),
            CpuHasWideClmul());
  // The SHA extensions come with the older ones.
  if (CpuHasSha()) {
    EXPECT_TRUE(__builtin_cpu_supports("sse4.1"));
  }
}
#else
TEST(Cpu, HasNothingToOfferWhereNothingIsBuiltForIt) {
  EXPECT_FALSE(CpuHasAvx2());
  EXPECT_FALSE(CpuHasSha());
  EXPECT_FALSE(CpuHasClmul());
  EXPECT_FALSE(CpuHasWideClmul());
}
#endif

}  // namespace
}  // namespace quarnfc::platform
