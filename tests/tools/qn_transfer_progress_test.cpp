// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "qn/transfer_progress.h"

namespace {

TEST(QnTransferProgress, CountsBytesInUnitsThatFit) {
  const struct {
    unsigned long long bytes;
    const char* text;
  } cases[] = {{0, "0 B"},
               {1023, "1023 B"},
               {1024, "1.0 KiB"},
               {1536, "1.5 KiB"},
               {100ull << 20, "100.0 MiB"},
               {3ull << 30, "3.0 GiB"},
               {5000ull << 40, "5000.0 TiB"}};
  for (const auto& c : cases) EXPECT_EQ(qn::ByteCount(c.bytes), c.text);
}

TEST(QnTransferProgress, ShowsBarPercentageBytesAndRate) {
  const std::string half(8, '#');
  EXPECT_EQ(qn::TransferState(50 << 20, 100 << 20, 2),
            "[" + half + std::string(8, ' ') + "]  50 %  50.0 MiB  25.0 MiB/s");
  EXPECT_EQ(qn::TransferState(0, 100, 0), "[" + std::string(16, ' ') + "]   0 %  0 B");
}

TEST(QnTransferProgress, NeverPassesTheEndOfTheBar) {
  EXPECT_EQ(qn::TransferState(200, 100, 0), "[" + std::string(16, '#') + "] 100 %  200 B");
}

TEST(QnTransferProgress, WithoutALengthShowsBytesAndRateOnly) {
  EXPECT_EQ(qn::TransferState(2048, 0, 1), "2.0 KiB  2.0 KiB/s");
}

}  // namespace
