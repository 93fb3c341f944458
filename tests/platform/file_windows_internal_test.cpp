// SPDX-License-Identifier: MIT
// Failures that only Windows can be brought to.
#include <gtest/gtest.h>
#include <windows.h>

#include "platform/file.h"
#include "tests/platform/wine.h"
#include "tests/support/temp_file.h"

namespace quarnfc::platform {
namespace {

TEST(File, OneOpenedWithoutSharingIsASharingViolation) {
  const quarnfc_test::TempFile contents("abc");
  const HANDLE lock = CreateFileA(contents.path(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(lock, INVALID_HANDLE_VALUE);
  File file;
  EXPECT_EQ(SystemError{ERROR_SHARING_VIOLATION}, file.Open(contents.path(), FileMode::kRead));
  CloseHandle(lock);
  EXPECT_EQ(kNoError, file.Open(contents.path(), FileMode::kRead));
}

TEST(File, ReadOnlyFileIsNotReplaced) {
  if (quarnfc_test::RunsUnderWine()) {
    GTEST_SKIP() << "Wine leaves it to the host, where permissions do not bind the superuser";
  }
  const quarnfc_test::TempFile contents("abc");
  ASSERT_TRUE(SetFileAttributesA(contents.path(), FILE_ATTRIBUTE_READONLY));
  File file;
  EXPECT_EQ(kAccessDenied, file.Open(contents.path(), FileMode::kReplace));
  SetFileAttributesA(contents.path(), FILE_ATTRIBUTE_NORMAL);
}

TEST(File, PathsThatNameNothingFailWithTheirError) {
  File file;
  EXPECT_NE(kNoError, file.Open("", FileMode::kRead));
  EXPECT_NE(kNoError, file.Open("a|b?", FileMode::kRead));
}

}  // namespace
}  // namespace quarnfc::platform
