// SPDX-License-Identifier: MIT
#include "platform/file.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "tests/platform/wine.h"
#include "tests/support/temp_file.h"

namespace quarnfc::platform {
namespace {

using quarnfc_test::TempFile;

std::string Contents(const char* path) {
  File file;
  EXPECT_EQ(kNoError, file.Open(path, FileMode::kRead));
  std::string bytes(static_cast<std::size_t>(file.Size()), '?');
  const Transferred read = file.Read(bytes.data(), bytes.size());
  EXPECT_EQ(bytes.size(), read.count);
  EXPECT_EQ(kNoError, read.error);
  return bytes;
}

TEST(File, FailureToOpenIsToldAndLeavesNoneOpen) {
  const std::string folder = testing::TempDir();
  const std::string missing = folder + "no-such-file";
  struct {
    const char* path;
    FileMode mode;
    SystemError error;
  } cases[] = {
      {missing.c_str(), FileMode::kRead, kFileNotFound},
      {folder.c_str(), FileMode::kRead, kAccessDenied},
      {folder.c_str(), FileMode::kReplace, kAccessDenied},
      {nullptr, FileMode::kRead, kInvalidParameter},
      {nullptr, FileMode::kReplace, kInvalidParameter},
  };
  for (const auto& c : cases) {
    File file;
    EXPECT_EQ(c.error, file.Open(c.path, c.mode)) << (c.path == nullptr ? "null" : c.path);
    EXPECT_FALSE(file.IsOpen());
  }
}

TEST(File, FailureToOpenClosesTheOneBefore) {
  const TempFile contents("abc");
  File file;
  EXPECT_EQ(kNoError, file.Open(contents.path(), FileMode::kRead));
  EXPECT_EQ(kFileNotFound,
            file.Open((testing::TempDir() + "no-such-file").c_str(), FileMode::kRead));
  EXPECT_FALSE(file.IsOpen());
}

TEST(File, MissingFolderIsNotFound) {
  File file;
  const std::string path = testing::TempDir() + "no-such-folder/file";
  const SystemError error = file.Open(path.c_str(), FileMode::kReplace);
  EXPECT_TRUE(error == kFileNotFound || error == kPathNotFound) << error;
}

TEST(File, IsReadAsBytes) {
  const std::string bytes("a\r\n\x1A\0\xFF", 6);
  const TempFile contents(bytes);
  EXPECT_EQ(bytes, Contents(contents.path()));
}

TEST(File, EndOfTheFileIsNoError) {
  const TempFile contents("abc");
  File file;
  ASSERT_EQ(kNoError, file.Open(contents.path(), FileMode::kRead));
  char buffer[8];
  Transferred read = file.Read(buffer, sizeof buffer);
  EXPECT_EQ(3u, read.count);
  EXPECT_EQ(kNoError, read.error);
  read = file.Read(buffer, sizeof buffer);
  EXPECT_EQ(0u, read.count);
  EXPECT_EQ(kNoError, read.error);
  EXPECT_EQ(kNoError, file.Close());
  EXPECT_FALSE(file.IsOpen());
  EXPECT_EQ(kNoError, file.Close());
}

TEST(File, SizeGoesToTheStartAndSeekAnywhere) {
  const TempFile contents("abcdef");
  File file;
  ASSERT_EQ(kNoError, file.Open(contents.path(), FileMode::kRead));
  char bytes[2];
  file.Read(bytes, 2);
  EXPECT_EQ(2, file.Tell());
  EXPECT_EQ(6, file.Size());
  EXPECT_EQ(0, file.Tell());
  EXPECT_EQ(kNoError, file.Seek(4));
  file.Read(bytes, 2);
  EXPECT_EQ(0, std::memcmp(bytes, "ef", 2));
  constexpr std::int64_t kFar = std::int64_t{5} << 30;
  EXPECT_EQ(kNoError, file.Seek(kFar));
  EXPECT_EQ(kFar, file.Tell());
  EXPECT_NE(kNoError, file.Seek(-1));
}

TEST(File, ReplacingEmptiesTheFileAndWritesBytes) {
  const TempFile contents("a longer text than the next");
  File file;
  ASSERT_EQ(kNoError, file.Open(contents.path(), FileMode::kReplace));
  const Transferred written = file.Write("x\n\0y", 4);
  EXPECT_EQ(4u, written.count);
  EXPECT_EQ(kNoError, written.error);
  EXPECT_EQ(kNoError, file.Close());
  EXPECT_EQ(std::string("x\n\0y", 4), Contents(contents.path()));
}

TEST(File, OneOpenedForReadingIsNotWrittenTo) {
  const TempFile contents("abc");
  File file;
  ASSERT_EQ(kNoError, file.Open(contents.path(), FileMode::kRead));
  const Transferred written = file.Write("x", 1);
  EXPECT_EQ(0u, written.count);
  EXPECT_NE(kNoError, written.error);
}

TEST(File, OneOpenedForWritingIsNotRead) {
  if (quarnfc_test::RunsUnderWine()) {
    GTEST_SKIP() << "Wine's run-time library takes it for the end of the file";
  }
  const TempFile contents("abc");
  char byte;
  File file;
  ASSERT_EQ(kNoError, file.Open(contents.path(), FileMode::kReplace));
  const Transferred read = file.Read(&byte, 1);
  EXPECT_EQ(0u, read.count);
  EXPECT_NE(kNoError, read.error);
}

TEST(File, OthersMayWriteToAnOpenFile) {
  const TempFile contents("abc");
  File first;
  File second;
  EXPECT_EQ(kNoError, first.Open(contents.path(), FileMode::kRead));
  EXPECT_EQ(kNoError, second.Open(contents.path(), FileMode::kReplace));
}

}  // namespace
}  // namespace quarnfc::platform
