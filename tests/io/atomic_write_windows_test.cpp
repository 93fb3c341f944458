// SPDX-License-Identifier: MIT
// What Windows refuses leaves the old file.
#include <quarnfc/ext/owners.h>
#include <quarnfc/file_utils.h>

#include <gtest/gtest.h>

#include <windows.h>

#include <string>

#include "tests/support/temp_folder.h"

namespace {

using quarnfc::ext::ErrorHandle;
using quarnfc_test::TempFolder;

TEST(AtomicWrite, AFileThatAnotherHoldsOpenStays) {
  const TempFolder folder;
  folder.Write("a", "old");
  const HANDLE held = CreateFileA(folder.PathOf("a").c_str(), GENERIC_READ, 0, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  ErrorHandle error;
  EXPECT_FALSE(QNFileUtils::WriteFileAtomicA(folder.PathOf("a").c_str(), "new", 3, error.Out()));
  EXPECT_EQ(error.Code(), 14u);
  CloseHandle(held);
  EXPECT_EQ(folder.Read("a"), "old");
  EXPECT_EQ(folder.FileCount(), 1u);
}

TEST(AtomicWrite, AReadOnlyFileStays) {
  const TempFolder folder;
  folder.Write("a", "old");
  ASSERT_NE(SetFileAttributesA(folder.PathOf("a").c_str(), FILE_ATTRIBUTE_READONLY), 0);
  ErrorHandle error;
  EXPECT_FALSE(QNFileUtils::WriteFileAtomicA(folder.PathOf("a").c_str(), "new", 3, error.Out()));
  EXPECT_EQ(error.Code(), 14u);
  SetFileAttributesA(folder.PathOf("a").c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(folder.Read("a"), "old");
  EXPECT_EQ(folder.FileCount(), 1u);
}

}  // namespace
