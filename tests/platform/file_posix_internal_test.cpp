// SPDX-License-Identifier: MIT
// Failures that only a POSIX system can be brought to.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/file.h"
#include "tests/support/temp_file.h"

namespace quarnfc::platform {
namespace {

constexpr SystemError kDeviceError = 1117;
constexpr SystemError kDiskFull = 112;

TEST(File, ReadErrorIsToldEachTime) {
  File file;
  ASSERT_EQ(kNoError, file.Open("/proc/self/mem", FileMode::kRead));  // no memory at address 0
  char byte;
  for (int i = 0; i < 2; ++i) {
    const Transferred read = file.Read(&byte, 1);
    EXPECT_EQ(0u, read.count);
    EXPECT_EQ(kDeviceError, read.error);
  }
}

TEST(File, FullDiskIsToldByTheWriteOrTheClose) {
  const std::string large(1 << 20, 'x');
  File file(std::fopen("/dev/full", "wb"));
  ASSERT_TRUE(file.IsOpen());
  EXPECT_EQ(kDiskFull, file.Write(large.data(), large.size()).error);
  file = File(std::fopen("/dev/full", "wb"));
  EXPECT_EQ(kNoError, file.Write("x", 1).error);
  EXPECT_EQ(kDiskFull, file.Close());
}

TEST(File, WithoutPermissionAccessIsDenied) {
  const quarnfc_test::TempFile contents("abc");
  ASSERT_EQ(0, chmod(contents.path(), 0));
  const uid_t user = geteuid();
  if (user == 0) {
    ASSERT_EQ(0, seteuid(65534));  // permissions don't bind the superuser
  }
  File file;
  const SystemError error = file.Open(contents.path(), FileMode::kRead);
  ASSERT_EQ(0, seteuid(user));
  EXPECT_EQ(kAccessDenied, error);
}

}  // namespace
}  // namespace quarnfc::platform
