// SPDX-License-Identifier: MIT
// The temporary files of whole writes off Windows, and paths without a folder.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/atomic_file.h"
#include "tests/support/temp_folder.h"

namespace quarnfc::platform {
namespace {

using quarnfc_test::TempFolder;

constexpr SystemError kFileExists = 80;

// Files under the names that the next temporary files of a target would have.
void LeaveBehind(const std::string& target, int count) {
  for (int i = 0; i < count; ++i) {
    std::ofstream(target + "." + std::to_string(getpid()) + "-" + std::to_string(i) + ".tmp");
  }
}

TEST(AtomicFileOffWindows, NamesThatOthersLeftBehindEndInAnErrorAndNothingElse) {
  const TempFolder folder;
  const std::string path = folder.PathOf("a");
  constexpr int kMoreThanWereWrittenHere = 5000;
  LeaveBehind(path, kMoreThanWereWrittenHere);
  EXPECT_EQ(kFileExists, ReplaceFileContents(path.c_str(), "x", 1));
  EXPECT_EQ(static_cast<std::size_t>(kMoreThanWereWrittenHere), folder.FileCount());
}

TEST(AtomicFileOffWindows, ANameWithoutAFolderStandsInTheCurrentOne) {
  const TempFolder folder;
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  for (const std::string contents : {"new", "replaced"}) {
    EXPECT_EQ(kNoError, ReplaceFileContents("a", contents.data(), contents.size()));
    EXPECT_EQ(contents, folder.Read("a"));
  }
  std::filesystem::current_path(before);
  EXPECT_EQ(1u, folder.FileCount());
}

}  // namespace
}  // namespace quarnfc::platform
