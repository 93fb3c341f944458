// SPDX-License-Identifier: MIT
#include "platform/debug_output.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/captured_debug_output.h"

namespace quarnfc::platform {
namespace {

using Texts = std::vector<std::string>;

TEST(DebugOutput, GoesToTheDebuggerByteForByte) {
  const std::string longest(3000, 'x');
  const quarnfc_test::CapturedDebugOutput output;
  WriteDebugOutput("one\n");
  WriteDebugOutput("\xD6\xD0 %s");
  WriteDebugOutput(longest.c_str());
  EXPECT_EQ(output.Texts(), (Texts{"one\n", "\xD6\xD0 %s", longest}));
}

TEST(DebugOutput, OfNullIsNone) {
  const quarnfc_test::CapturedDebugOutput output;
  WriteDebugOutput(nullptr);
  EXPECT_EQ(output.Texts(), Texts());
}

}  // namespace
}  // namespace quarnfc::platform
