// SPDX-License-Identifier: MIT
// Crash records of this process; those of processes that crash are tested through the library.
#include "platform/diagnostics.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/temp_folder.h"

namespace quarnfc::platform {
namespace {

using quarnfc_test::TempFolder;

TEST(Diagnostics, FolderOfTheModuleEndsWithTheSeparator) {
  char folder[4096];
  ASSERT_TRUE(FindLibraryFolder(folder, sizeof folder));
  const std::string path = folder;
  EXPECT_EQ(kFolderSeparator, path.back());
  EXPECT_EQ(static_cast<char>(std::filesystem::path::preferred_separator), kFolderSeparator);
  EXPECT_TRUE(std::filesystem::is_directory(path)) << path;
}

TEST(Diagnostics, FolderThatDoesNotFitIsRefused) {
  char folder[4] = {};
  EXPECT_FALSE(FindLibraryFolder(folder, 0));
  EXPECT_FALSE(FindLibraryFolder(folder, 3));
  EXPECT_EQ('\0', folder[3]);
}

TEST(Diagnostics, FoldersAreMadeUnlessTheyAreThere) {
  const TempFolder folder;
  const std::string path = folder.PathOf("log");
  MakeFolder(path.c_str());
  EXPECT_TRUE(std::filesystem::is_directory(path));
  MakeFolder(path.c_str());
  MakeFolder(folder.PathOf("none/log").c_str());
  EXPECT_EQ(1u, folder.FileCount());
}

TEST(Diagnostics, DumpWithoutInformationIsTheText) {
  const TempFolder folder;
  folder.Write("a.dmp", "an older one, which is longer");
  WriteDumpFile(nullptr, ThreadNumber(), folder.PathOf("a.dmp").c_str(), "no information");
  EXPECT_EQ("no information", folder.Read("a.dmp"));
}

TEST(Diagnostics, DumpThatCannotBeWrittenIsSilent) {
  const TempFolder folder;
  WriteDumpFile(nullptr, ThreadNumber(), folder.path().string().c_str(), "text");
  WriteDumpFile(nullptr, ThreadNumber(), folder.PathOf("none/a.dmp").c_str(), "text");
  EXPECT_EQ(0u, folder.FileCount());
}

TEST(Diagnostics, WorkRunsToItsEnd) {
  unsigned long thread = 0;
  RunWithStack([](void* argument) { *static_cast<unsigned long*>(argument) = ThreadNumber(); },
               &thread);
  EXPECT_EQ(thread, ThreadNumber());
}

// Nobody can read the system's log everywhere; what is held is that every type and text is taken.
TEST(Diagnostics, EventLogTakesEveryTypeAndText) {
  for (const unsigned short type : {0, 1, 2, 4, 0xFFFF}) {
    WriteEventLogEntry("QuarnFC test", type, "\xD6\xD0 %s %n");
  }
  WriteEventLogEntry("QuarnFC test", 4, "");
}

}  // namespace
}  // namespace quarnfc::platform
