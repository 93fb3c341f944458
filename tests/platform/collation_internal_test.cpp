// SPDX-License-Identifier: MIT
// The system's order, where it has one; the order of the library above it has a test of its own.
#include "platform/collation.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"

namespace quarnfc::platform {
namespace {

using quarnfc_test::Bytes;

// Whether the system has an order, which it has for all texts or for none.
bool SystemOrders() { return SystemCollation(Bytes(""), Bytes(""), false).has_value(); }

TEST(SystemCollation, IsThereOnWindowsAlone) {
#if defined(_WIN32)
  EXPECT_TRUE(SystemOrders());
#else
  EXPECT_FALSE(SystemOrders());
#endif
}

TEST(SystemCollation, OrdersBothWaysAndIgnoresCaseWhenAsked) {
  if (!SystemOrders()) GTEST_SKIP() << "the system has no order for texts of the code page";
  EXPECT_EQ(0, *SystemCollation(Bytes("\xD6\xD0"), Bytes("\xD6\xD0"), false));
  EXPECT_LT(*SystemCollation(Bytes("a"), Bytes("b"), false), 0);
  EXPECT_GT(*SystemCollation(Bytes("b"), Bytes("a"), false), 0);
  EXPECT_LT(*SystemCollation(Bytes("z"), Bytes("\xB0\xA1"), false), 0);
  EXPECT_NE(0, *SystemCollation(Bytes("a"), Bytes("A"), false));
  EXPECT_EQ(0, *SystemCollation(Bytes("a"), Bytes("A"), true));
}

}  // namespace
}  // namespace quarnfc::platform
