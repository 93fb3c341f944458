// SPDX-License-Identifier: MIT
// Exceptions that the module throws and a host catches.
#include <gtest/gtest.h>

#include <quarnfc/qn_string.h>

#include <exception>
#include <string>

#include "tests/module/refused_allocation.h"

namespace {

// The text that a call throws as a char*; what it did instead otherwise.
template <class Call>
std::string ThrownText(const Call& call) {
  try {
    call();
  } catch (char* text) {
    return text;
  } catch (...) {
    return "(another exception)";
  }
  return "(no exception)";
}

}  // namespace

TEST(ModuleExceptions, RefusedSystemStringsThrowTextsToTheHost) {
  if (RefusedAllocation::Obstacle() != nullptr) GTEST_SKIP() << RefusedAllocation::Obstacle();
  const CQNString text('a', kRefusedLength);
  BSTR target = nullptr;
  std::string alloc;
  std::string realloc;
  {
    const RefusedAllocation refused;
    alloc = ThrownText([&] { text.AllocSysString(); });
    realloc = ThrownText([&] { text.SetSysString(&target); });
  }
  EXPECT_EQ(alloc, "Alloc failed!");
  EXPECT_EQ(realloc, "ReAlloc failed!");
  EXPECT_EQ(target, nullptr);
  EXPECT_EQ(std::uncaught_exceptions(), 0);
}

TEST(ModuleExceptions, MissingTargetOfASystemStringThrowsToTheHost) {
  EXPECT_EQ(ThrownText([] { CQNString("a").SetSysString(nullptr); }), "ReAlloc failed!");
  EXPECT_EQ(std::uncaught_exceptions(), 0);
}

TEST(ModuleExceptions, ManyCaughtExceptionsLeaveNoneUncaught) {
  for (int i = 0; i < 100; ++i) ThrownText([] { CQNString("a").SetSysString(nullptr); });
  EXPECT_EQ(std::uncaught_exceptions(), 0);
  EXPECT_EQ(std::current_exception(), nullptr);
}
