// SPDX-License-Identifier: MIT
// What goes wrong between the first byte and the last: the old file survives it.
#include <quarnfc/ext/owners.h>
#include <quarnfc/file_utils.h>

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string>

#include "tests/support/temp_folder.h"

namespace {

using quarnfc::ext::ErrorHandle;
using quarnfc_test::TempFolder;

constexpr uid_t kNobody = 65534;

// Expects that a write of so many bytes fails with a system error, and that the folder is as it
// was.
void ExpectRefused(const TempFolder& folder, std::size_t size, const char* system_error) {
  const std::string bytes(size, 'n');
  const std::size_t files = folder.FileCount();
  ErrorHandle error;
  EXPECT_FALSE(QNFileUtils::WriteFileAtomicA(folder.PathOf("a").c_str(), bytes.data(), bytes.size(),
                                             error.Out()));
  EXPECT_EQ(error.Code(), 14u);
  EXPECT_EQ(error.Message(),
            "Quarn: Can't save " + folder.PathOf("a") + ", error: " + system_error);
  EXPECT_EQ(folder.Read("a"), "old");
  EXPECT_EQ(folder.FileCount(), files);
}

TEST(AtomicWrite, AFullDiskLeavesTheOldFile) {
  const TempFolder folder;
  if (mount("none", folder.path().c_str(), "tmpfs", 0, "size=64k") != 0) {
    GTEST_SKIP() << "no right to mount a small file system";
  }
  folder.Write("a", "old");
  ExpectRefused(folder, 1000000, "0x70");
  EXPECT_EQ(umount(folder.path().c_str()), 0);
}

TEST(AtomicWrite, ALimitOfSizeLeavesTheOldFile) {
  const TempFolder folder;
  folder.Write("a", "old");
  const auto before = std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit;
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
  const rlimit small = {4096, limit.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  ExpectRefused(folder, 10000, "0xDF");
  EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  std::signal(SIGXFSZ, before);
}

TEST(AtomicWrite, AReadOnlyFolderLeavesTheOldFile) {
  const TempFolder folder;
  folder.Write("a", "old");
  ASSERT_EQ(chmod(folder.path().c_str(), 0555), 0);
  // Nothing is read-only for root.
  const bool is_root = geteuid() == 0;
  if (is_root) {
    ASSERT_EQ(seteuid(kNobody), 0);
  }
  ExpectRefused(folder, 10, "0x5");
  if (is_root) {
    ASSERT_EQ(seteuid(0), 0);
  }
  chmod(folder.path().c_str(), 0755);
}

TEST(AtomicWrite, DevicesAndPipesAreRefused) {
  ErrorHandle error;
  EXPECT_FALSE(QNFileUtils::WriteFileAtomicA("/dev/null", "x", 1, error.Out()));
  EXPECT_EQ(error.Message(), "Quarn: Can't save /dev/null, error: 0x5");
}

TEST(AtomicWrite, PermissionsAndLinksStay) {
  const TempFolder folder;
  folder.Write("real", "old");
  ASSERT_EQ(chmod(folder.PathOf("real").c_str(), 0640), 0);
  ASSERT_EQ(symlink("real", folder.PathOf("link").c_str()), 0);
  EXPECT_TRUE(QNFileUtils::WriteFileAtomicA(folder.PathOf("link").c_str(), "new", 3, nullptr));
  EXPECT_EQ(folder.Read("real"), "new");
  struct stat status;
  ASSERT_EQ(lstat(folder.PathOf("link").c_str(), &status), 0);
  EXPECT_TRUE(S_ISLNK(status.st_mode));
  ASSERT_EQ(stat(folder.PathOf("real").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0640u);
  EXPECT_EQ(folder.FileCount(), 2u);
}

}  // namespace
