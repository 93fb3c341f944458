// SPDX-License-Identifier: MIT
// Standard input for commands that run inside the test program.
#ifndef QUARNFC_TESTS_TOOLS_STANDARD_INPUT_H_
#define QUARNFC_TESTS_TOOLS_STANDARD_INPUT_H_

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "tests/support/temp_file.h"

namespace qn_test {

// What commands read from standard input as long as this lives; nothing afterwards.
class StandardInput {
 public:
  explicit StandardInput(const std::string& text) : file_(text) { Open(file_.path()); }
#if defined(_WIN32)
  ~StandardInput() { Open("NUL"); }
#else
  ~StandardInput() { Open("/dev/null"); }
#endif
  StandardInput(const StandardInput&) = delete;
  StandardInput& operator=(const StandardInput&) = delete;

 private:
  static void Open(const char* path) { EXPECT_NE(std::freopen(path, "rb", stdin), nullptr); }

  quarnfc_test::TempFile file_;
};

}  // namespace qn_test

#endif  // QUARNFC_TESTS_TOOLS_STANDARD_INPUT_H_
