// SPDX-License-Identifier: MIT
// A file that another program has opened without sharing.
#include <gtest/gtest.h>
#include <windows.h>

#include "tests/io/csv_rows.h"

namespace io_test {
namespace {

TEST(CsvReader, LockedFileFailsWithPathAndErrorCode) {
  TempFile file("a\n");
  const HANDLE lock = CreateFileA(file.path(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(lock, INVALID_HANDLE_VALUE);
  CQNCSVFileReader reader;
  EXPECT_FALSE(reader.Open(file.path()));
  EXPECT_EQ(Message(reader), OpenFailed(file.path(), ERROR_SHARING_VIOLATION));
  CloseHandle(lock);
  EXPECT_TRUE(reader.Open(file.path()));
}

}  // namespace
}  // namespace io_test
