// SPDX-License-Identifier: MIT
// Exceptions of the library as values. (That a caught exception is deleted is for the leak checker
// to say.)
#include <quarnfc/ext/outcome.h>

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <stdexcept>
#include <string>

namespace {

using quarnfc::ext::Attempt;
using quarnfc::ext::ProblemKind;

TEST(Outcome, AResultIsHandedOn) {
  const auto number = Attempt([] { return 7; });
  ASSERT_TRUE(static_cast<bool>(number));
  EXPECT_EQ(number.Value(), 7);
  EXPECT_EQ(number.ValueOr(8), 7);
  auto owned = Attempt([] { return std::make_unique<int>(3); });
  EXPECT_EQ(*owned.Value(), 3);
  EXPECT_TRUE(static_cast<bool>(Attempt([] {})));
}

TEST(Outcome, WhatIsThrownBecomesAProblem) {
  const struct {
    void (*function)();
    ProblemKind kind;
    unsigned int code;
    const char* message;
  } cases[] = {
      // No text belongs to this code.
      {[] { throw new CQNInternetException(4000000000U); }, ProblemKind::kInternet, 4000000000U,
       ""},
      {[] {
         static char text[] = "Alloc failed!";
         throw static_cast<char*>(text);
       },
       ProblemKind::kMemory, 0, "Alloc failed!"},
      {[] { throw "ReAlloc failed!"; }, ProblemKind::kMemory, 0, "ReAlloc failed!"},
      {[] { throw std::runtime_error("why"); }, ProblemKind::kStandard, 0, "why"},
      {[] { throw 5; }, ProblemKind::kUnknown, 0, ""},
  };
  for (const auto& each : cases) {
    const auto outcome = Attempt(each.function);
    EXPECT_FALSE(static_cast<bool>(outcome));
    EXPECT_EQ(outcome.Problem().kind, each.kind);
    EXPECT_EQ(outcome.Problem().code, each.code);
    EXPECT_EQ(outcome.Problem().message, each.message);
  }
}

TEST(Outcome, ExhaustedMemoryIsAProblemAndTheFallbackStands) {
  const auto outcome = Attempt([]() -> int { throw std::bad_alloc(); });
  EXPECT_EQ(outcome.Problem().kind, ProblemKind::kMemory);
  EXPECT_EQ(outcome.ValueOr(9), 9);
}

}  // namespace
