// SPDX-License-Identifier: MIT
// What writes into a file itself when the disk takes no more: it ends, and what the disk took
// stays. (Whole files or none: atomic_write_posix_test.cpp.)
#include <quarnfc/crash_dump.h>
#include <quarnfc/json_files.h>
#include <quarnfc/string_utils.h>

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>

#include <csignal>
#include <cstdio>
#include <functional>
#include <string>

#include "tests/support/temp_folder.h"

namespace {

using quarnfc_test::TempFolder;

constexpr std::size_t kRoom = 64 * 1024;

// No file of the process grows beyond kRoom as long as this lives.
class FileSizeLimit {
 public:
  FileSizeLimit() : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &limit_);
    const rlimit small = {kRoom, limit_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &limit_);
    std::signal(SIGXFSZ, handler_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit limit_{};
  void (*handler_)(int);
};

// A text of 200,000 bytes and what writes it to a path.
const std::string kText(200000, 'x');

struct Writer {
  const char* name;
  std::function<void(const char* path)> write;
};

const Writer kWriters[] = {
    {"SaveJsonFile",
     [](const char* path) {
       CMyJsonObj object;
       object.AddItem("key", kText.c_str());
       EXPECT_TRUE(QNJsonUtils::SaveJsonFile(path, object, nullptr));
     }},
    {"SaveJsonFileEx",
     [](const char* path) {
       const CMyJsonValue value(kText.c_str());
       EXPECT_TRUE(QNJsonUtils::SaveJsonFileEx(path, value, false, nullptr));
       EXPECT_TRUE(QNJsonUtils::SaveJsonFileEx(path, value, true, nullptr));
     }},
    {"WriteString",
     [](const char* path) {
       std::FILE* const file = std::fopen(path, "wb");
       ASSERT_NE(file, nullptr);
       for (int i = 0; i < 100; ++i) QNStringUtils::WriteString(file, kText.c_str());
       std::fclose(file);
     }},
};

class FullDisk : public testing::TestWithParam<Writer> {
 protected:
  // Writes and looks at what there is of the file.
  void Write() {
    GetParam().write(folder_.PathOf("file").c_str());
    const std::size_t size = folder_.Read("file").size();
    EXPECT_GT(size, 0u);
    EXPECT_LE(size, kRoom);
  }

  TempFolder folder_;
};

TEST_P(FullDisk, WhatFitsStays) {
  if (mount("none", folder_.path().c_str(), "tmpfs", 0, "size=64k") != 0) {
    GTEST_SKIP() << "no right to mount a small file system";
  }
  Write();
  EXPECT_EQ(umount(folder_.path().c_str()), 0);
}

TEST_P(FullDisk, WhatTheLimitOfSizeAllowsStays) {
  const FileSizeLimit limit;
  Write();
}

INSTANTIATE_TEST_SUITE_P(Writers, FullDisk, testing::ValuesIn(kWriters),
                         [](const auto& writer) { return std::string(writer.param.name); });

TEST(FullDiskDump, IsSilent) {
  const TempFolder folder;
  if (mount("none", folder.path().c_str(), "tmpfs", 0, "size=4k") != 0) {
    GTEST_SKIP() << "no right to mount a small file system";
  }
  folder.Write("a", kText);
  QNErrorUtils::DbgDumpErrorFile(nullptr, folder.PathOf("b").c_str());
  EXPECT_LE(folder.Read("b").size(), 27u);
  EXPECT_EQ(umount(folder.path().c_str()), 0);
}

}  // namespace
