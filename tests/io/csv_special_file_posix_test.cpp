// SPDX-License-Identifier: MIT
// Paths that name no regular file (never a hang), and a file that is only large on paper.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "tests/io/csv_rows.h"

namespace io_test {
namespace {

constexpr int kCannotOpen = 5;

TEST(CsvReader, DeviceAsPathFails) {
  CQNCSVFileReader reader;
  EXPECT_FALSE(reader.Open("/dev/zero"));
  EXPECT_EQ(Message(reader), OpenFailed("/dev/zero", kCannotOpen));
}

TEST(CsvReader, PipeAsPathFails) {
  const std::string path = TempFile::NewPath();
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  CQNCSVFileReader reader;
  EXPECT_FALSE(reader.Open(path.c_str()));
  EXPECT_EQ(Message(reader), OpenFailed(path, kCannotOpen));
  std::remove(path.c_str());
}

// There is no memory at address 0 to be read.
TEST(CsvReader, ReadErrorFailsWithPathAndErrorCode) {
  CQNCSVFileReader reader;
  EXPECT_FALSE(reader.Open("/proc/self/mem"));
  EXPECT_EQ(Message(reader), u"读取 /proc/self/mem 失败，错误码: 1117");
  std::vector<CQNString> row;
  EXPECT_FALSE(reader.NextRow(row));
  EXPECT_FALSE(reader.GoToFirstRow());
  EXPECT_EQ(Message(reader), u"读取 /proc/self/mem 失败，错误码: 1117");
}

// A hole makes the file as large without taking room on the disk. Sizes that wrap around in 32 bits
// would give a buffer of few bytes, or of a negative number.
TEST(CsvLines, FilesOfSeveralGigabytesAreReadThroughOneBuffer) {
  const std::string longest(409599, 'x');
  std::string rows = "h\na,b\n";
  rows.append(longest).append("\n").append(longest).append("x\n");
  for (const std::uintmax_t size : {(1ULL << 31) + 5, (1ULL << 32) + 5, 5ULL << 32}) {
    const TempFile file(rows);
    std::filesystem::resize_file(file.path(), size);
    CQNCSVFileReader reader;
    ASSERT_TRUE(reader.Open(file.path())) << size;
    EXPECT_EQ(RestOfRows(reader), (std::vector<Row>{{"a", "b"}, {longest}})) << size;
    EXPECT_EQ(Message(reader), kTooLong) << size;
    EXPECT_TRUE(reader.GoToFirstRow()) << size;
  }
}

}  // namespace
}  // namespace io_test
