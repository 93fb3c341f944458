// SPDX-License-Identifier: MIT
#include "platform/cpu.h"

#include <gtest/gtest.h>

namespace quarnfc::platform {
namespace {

#if defined(__x86_64__) && defined(__GNUC__)
TEST(Cpu, AnswersAsTheCompilersOwnQuestion) {
  __builtin_cpu_init();
  EXPECT_EQ(__builtin_cpu_supports("ssse3") != 0, CpuHasSsse3());
  // The SHA extensions come with the older ones.
  if (CpuHasSha()) {
    EXPECT_TRUE(__builtin_cpu_supports("sse4.1"));
  }
}
#else
TEST(Cpu, HasNothingToOfferWhereNothingIsBuiltForIt) {
  EXPECT_FALSE(CpuHasSsse3());
  EXPECT_FALSE(CpuHasSha());
}
#endif

}  // namespace
}  // namespace quarnfc::platform
