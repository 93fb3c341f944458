// Paths that name no regular file: never a hang.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/io/csv_rows.h"

namespace {

using namespace io_test;

constexpr int kAccessDenied = 5;

TEST(CsvReader, DeviceAsPathFails) {
  CQNCSVFileReader reader;
  EXPECT_FALSE(reader.Open("/dev/zero"));
  EXPECT_EQ(Message(reader), OpenFailed("/dev/zero", kAccessDenied));
}

TEST(CsvReader, PipeAsPathFails) {
  const std::string path = TempFile::NewPath();
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  CQNCSVFileReader reader;
  EXPECT_FALSE(reader.Open(path.c_str()));
  EXPECT_EQ(Message(reader), OpenFailed(path, kAccessDenied));
  std::remove(path.c_str());
}

}  // namespace
