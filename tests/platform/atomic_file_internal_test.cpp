// SPDX-License-Identifier: MIT
#include "platform/atomic_file.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/temp_folder.h"

namespace quarnfc::platform {
namespace {

using quarnfc_test::TempFolder;

TEST(AtomicFile, ContentsAreReplacedAndNothingElseStays) {
  const TempFolder folder;
  for (const std::string& contents :
       {std::string("a\0\r\n", 4), std::string(70'000, 'x'), std::string()}) {
    const std::string path = folder.PathOf("a");
    EXPECT_EQ(kNoError, ReplaceFileContents(path.c_str(), contents.data(), contents.size()));
    EXPECT_EQ(contents, folder.Read("a"));
  }
  EXPECT_EQ(1u, folder.FileCount());
}

TEST(AtomicFile, WidePathsNameTheSameFiles) {
  const TempFolder folder;
  const std::u16string wide = (folder.path() / "a").u16string();
  const auto* const path = reinterpret_cast<const wchar_t*>(wide.c_str());
  EXPECT_EQ(kNoError, ReplaceFileContents(path, "abc", 3));
  EXPECT_EQ("abc", folder.Read("a"));
}

TEST(AtomicFile, FailuresSayWhyAndLeaveNothing) {
  const TempFolder folder;
  EXPECT_EQ(kAccessDenied, ReplaceFileContents(folder.path().string().c_str(), "x", 1));
  const std::string missing = (folder.path() / "none" / "a").string();
  const SystemError error = ReplaceFileContents(missing.c_str(), "x", 1);
  // Only Windows tells a missing folder from a missing file.
  EXPECT_TRUE(error == kPathNotFound || error == kFileNotFound) << error;
  const char* const no_path = nullptr;
  const wchar_t* const no_wide_path = nullptr;
  EXPECT_EQ(kInvalidParameter, ReplaceFileContents(no_path, "x", 1));
  EXPECT_EQ(kInvalidParameter, ReplaceFileContents(no_wide_path, "x", 1));
  EXPECT_EQ(0u, folder.FileCount());
}

}  // namespace
}  // namespace quarnfc::platform
