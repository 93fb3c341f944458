// Runs commands of qn in the test program, as the dispatcher does.
#ifndef QUARNFC_TESTS_TOOLS_RUN_QN_H_
#define QUARNFC_TESTS_TOOLS_RUN_QN_H_

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <vector>

#include "command.h"
#include "console.h"

namespace qn_test {

struct Outcome {
  int code;
  std::string output;  // standard output, lines ended by a line feed

  bool operator==(const Outcome&) const = default;
};

inline Outcome RunQn(std::span<const qn::Command> commands,
                     const std::vector<std::string>& arguments) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  const int code = qn::Dispatch(commands, arguments);
  qn::FlushOutput();
  testing::internal::GetCapturedStderr();
  std::string output = testing::internal::GetCapturedStdout();
  std::erase(output, '\r');
  return {code, output};
}

}  // namespace qn_test

#endif  // QUARNFC_TESTS_TOOLS_RUN_QN_H_
