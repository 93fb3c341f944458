// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <new>
#include <span>
#include <string>
#include <vector>

#include "qn/command.h"
#include "qn/errors.h"
#include "qn/exit_code.h"

#include "tests/support/contains.h"

namespace {

using quarnfc_test::Contains;

using Arguments = std::span<const std::string>;

std::vector<std::string> g_arguments;

int Keep(Arguments arguments) {
  g_arguments.assign(arguments.begin(), arguments.end());
  return qn::kSuccess;
}

int Fail(Arguments) { throw qn::Failure("no"); }
int Misuse(Arguments) { throw qn::UsageError("what?"); }
int Exhaust(Arguments) { throw std::bad_alloc(); }

constexpr qn::Command kInner[] = {
    {"keep", "", "usage: qn group keep\n", Keep},
    {"fail", "", "usage: qn group fail\n", Fail},
    {"misuse", "", "usage: qn group misuse\n", Misuse},
    {"exhaust", "", "usage: qn group exhaust\n", Exhaust},
};

constexpr qn::Command kCommands[] = {
    {"group", "Several", "usage: qn group COMMAND\n", nullptr, kInner},
    {"keep", "", "usage: qn keep\n", Keep},
};

struct GroupOutcome {
  int code;
  std::string out;
  std::string err;
};

GroupOutcome RunGroup(const std::vector<std::string>& arguments) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  const int code = qn::Dispatch(kCommands, arguments);
  std::string out = testing::internal::GetCapturedStdout();
  return {code, std::move(out), testing::internal::GetCapturedStderr()};
}

}  // namespace

TEST(QnDispatch, CommandsReceiveTheArgumentsAfterTheirName) {
  EXPECT_EQ(RunGroup({"keep", "a", "b"}).code, qn::kSuccess);
  EXPECT_EQ(g_arguments, (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(RunGroup({"group", "keep", "--", "--help"}).code, qn::kSuccess);
  EXPECT_EQ(g_arguments, (std::vector<std::string>{"--", "--help"}));
}

TEST(QnDispatch, HelpIsAvailableAtEveryLevel) {
  const struct {
    std::vector<std::string> arguments;
    const char* part;
  } cases[] = {
      {{"--help"}, "group"},
      {{"-h"}, "usage: qn COMMAND"},
      {{"group", "--help"}, "exhaust"},
      {{"group", "fail", "--help"}, "usage: qn group fail"},
      {{"group", "fail", "x", "-h"}, "usage: qn group fail"},
      {{"help"}, "usage: qn COMMAND"},
      {{"help", "group"}, "exhaust"},
      {{"help", "group", "fail"}, "usage: qn group fail"},
  };
  for (const auto& each : cases) {
    const GroupOutcome result = RunGroup(each.arguments);
    EXPECT_EQ(result.code, qn::kSuccess) << each.part;
    EXPECT_TRUE(Contains(result.out, each.part)) << result.out;
    EXPECT_EQ(result.err, "");
  }
}

TEST(QnDispatch, ErrorsHaveTheirExitCodesAndGoToStandardError) {
  const struct {
    std::vector<std::string> arguments;
    int code;
    const char* part;
  } cases[] = {
      {{}, qn::kUsageError, "qn: a command is missing"},
      {{"nothing"}, qn::kUsageError, "qn: there is no command 'nothing'"},
      {{"gruop"}, qn::kUsageError, "'gruop'; did you mean 'group'?"},
      {{"group", "exh"}, qn::kUsageError, "did you mean 'exhaust'?"},
      {{"group", "xyzzy"}, qn::kUsageError, "there is no command 'xyzzy'\n"},
      {{"group"}, qn::kUsageError, "try 'qn group --help'"},
      {{"group", "nothing"}, qn::kUsageError, "try 'qn group --help'"},
      {{"group", "misuse"}, qn::kUsageError, "qn: what?"},
      {{"group", "fail"}, qn::kFailure, "qn: no"},
      {{"group", "exhaust"}, qn::kFailure, "qn: out of memory"},
  };
  for (const auto& each : cases) {
    const GroupOutcome result = RunGroup(each.arguments);
    EXPECT_EQ(result.code, each.code) << each.part;
    EXPECT_TRUE(Contains(result.err, each.part)) << result.err;
    EXPECT_EQ(result.out, "");
  }
}
