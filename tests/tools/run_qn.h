// SPDX-License-Identifier: MIT
// Runs commands of qn as the dispatcher does and captures what they print.
#ifndef QUARNFC_TESTS_TOOLS_RUN_QN_H_
#define QUARNFC_TESTS_TOOLS_RUN_QN_H_

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <vector>

#include "qn/command.h"
#include "qn/console.h"

namespace qn_test {

struct Outcome {
  int code;
  std::string output;  // standard output

  bool operator==(const Outcome&) const = default;
};

struct FullOutcome : Outcome {
  std::string errors;  // standard error
};

// The texts come without "\r", which the captured streams have on some targets only.
inline FullOutcome RunQn(std::span<const qn::Command> commands,
                         const std::vector<std::string>& arguments) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  const int code = qn::Dispatch(commands, arguments);
  qn::FlushOutput();
  std::string errors = testing::internal::GetCapturedStderr();
  std::string output = testing::internal::GetCapturedStdout();
  std::erase(errors, '\r');
  std::erase(output, '\r');
  return {{code, output}, errors};
}

}  // namespace qn_test

#endif  // QUARNFC_TESTS_TOOLS_RUN_QN_H_
