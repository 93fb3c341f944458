// SPDX-License-Identifier: MIT
// Keeps what this process sends to the debugger output.
#ifndef QUARNFC_TESTS_SUPPORT_CAPTURED_DEBUG_OUTPUT_H_
#define QUARNFC_TESTS_SUPPORT_CAPTURED_DEBUG_OUTPUT_H_

#include <string>
#include <vector>

namespace quarnfc_test {

// One at a time, on one thread.
class CapturedDebugOutput {
 public:
  CapturedDebugOutput();
  CapturedDebugOutput(const CapturedDebugOutput&) = delete;
  CapturedDebugOutput& operator=(const CapturedDebugOutput&) = delete;
  ~CapturedDebugOutput();

  const std::vector<std::string>& Texts() const;
};

}  // namespace quarnfc_test

#endif  // QUARNFC_TESTS_SUPPORT_CAPTURED_DEBUG_OUTPUT_H_
