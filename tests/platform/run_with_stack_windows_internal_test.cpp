// SPDX-License-Identifier: MIT
#include <windows.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>

#include "platform/diagnostics.h"

namespace quarnfc::platform {
namespace {

std::size_t StackLeft() {
  MEMORY_BASIC_INFORMATION stack{};
  VirtualQuery(&stack, &stack, sizeof stack);
  return static_cast<std::size_t>(reinterpret_cast<char*>(&stack) -
                                  static_cast<char*>(stack.AllocationBase));
}

// Calls work where so many bytes of stack are left, at most.
void WithStackLeft(std::size_t left, const std::function<void()>& work) {
  volatile char taken[4096];
  taken[0] = 1;
  if (StackLeft() > left) {
    WithStackLeft(left, work);
  } else {
    work();
  }
  taken[1] = taken[0];
}

struct Ran {
  int times = 0;
  unsigned long thread = 0;
};

void NoteRun(void* argument) {
  Ran& ran = *static_cast<Ran*>(argument);
  ++ran.times;
  ran.thread = ThreadNumber();
}

TEST(RunWithStack, TakesAnotherThreadWhereLittleStackIsLeft) {
  for (const std::size_t left : {120u, 64u, 24u}) {
    WithStackLeft(left * 1024, [left] {
      Ran ran;
      for (int i = 1; i <= 3; ++i) {
        RunWithStack(NoteRun, &ran);
        EXPECT_EQ(ran.times, i);
        EXPECT_NE(ran.thread, ThreadNumber()) << left;
      }
    });
  }
}

TEST(RunWithStack, KeepsTheThreadWhereThereIsEnough) {
  WithStackLeft(140 * 1024, [] {
    Ran ran;
    RunWithStack(NoteRun, &ran);
    EXPECT_EQ(ran.times, 1);
    EXPECT_EQ(ran.thread, ThreadNumber());
  });
}

}  // namespace
}  // namespace quarnfc::platform
