// SPDX-License-Identifier: MIT
#include <quarnfc/crash_dump.h>

#include <cstdio>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "tests/core/diagnostics/crash_dump_test_support.h"

namespace fs = std::filesystem;

namespace {

constexpr char kNoInfo[] = "_EXCEPTION_POINTERS is null";

// The parts of a dump's name after its prefix.
struct DumpName {
  int month = 0, day = 0, hour = -1, minute = -1, second = -1;
  unsigned int address = 0;
};

bool Parse(const std::string& text, DumpName& name) {
  return std::sscanf(text.c_str(), "%d_%d_%d_%d_%d(0x%X).dmp", &name.month, &name.day, &name.hour,
                     &name.minute, &name.second, &name.address) == 6;
}

std::string Format(const DumpName& name) {
  char text[128];
  std::snprintf(text, sizeof text, "%d_%d_%d_%d_%d(0x%X).dmp", name.month, name.day, name.hour,
                name.minute, name.second, name.address);
  return text;
}

TEST(CrashDump, CrashLeavesOneDumpNamedAfterTimeAndAddress) {
  const Crash& crash = HostCrash();
  EXPECT_NE(crash.exit_code, 0);
  ASSERT_EQ(crash.names.size(), 1u);

  const std::string& rest = crash.names[0];
  DumpName name;
  ASSERT_TRUE(Parse(rest, name)) << rest;
  EXPECT_EQ(Format(name), rest);  // no padding
  EXPECT_TRUE(name.month >= 1 && name.month <= 12) << rest;
  EXPECT_TRUE(name.day >= 1 && name.day <= 31) << rest;
  EXPECT_TRUE(name.hour >= 0 && name.hour <= 23) << rest;
  EXPECT_TRUE(name.minute >= 0 && name.minute <= 59) << rest;
  EXPECT_EQ(name.address, static_cast<unsigned int>(crash.info));
}

TEST(CrashDump, NullInfoLeavesATextBesideTheLibrary) {
  const std::string prefix = "NullInfo";
  RemoveDumpsWithPrefix(prefix);
  QNErrorUtils::DbgDumpErrorFileEx(nullptr, prefix.c_str());
  const auto dumps = DumpsWithPrefix(prefix);
  ASSERT_EQ(dumps.size(), 1u);
  const std::string name = dumps[0].filename().string();
  EXPECT_EQ(name.substr(name.size() - 9), "(0x0).dmp");
  EXPECT_EQ(ReadBytes(dumps[0]), kNoInfo);
  EXPECT_EQ(ReadBytes(dumps[0]).size(), 27u);
  RemoveDumpsWithPrefix(prefix);
}

TEST(CrashDump, ReplacesAnOlderFile) {
  fs::create_directories(LogFolder());
  const fs::path path = LogFolder() / "replaced.dmp";
  std::ofstream(path) << std::string(1000, 'x');
  QNErrorUtils::DbgDumpErrorFile(nullptr, path.string().c_str());
  EXPECT_EQ(ReadBytes(path), kNoInfo);
  fs::remove(path);
}

TEST(CrashDump, FailuresAreSilent) {
  const fs::path missing = LogFolder() / "no_such_folder" / "x.dmp";
  QNErrorUtils::DbgDumpErrorFile(nullptr, missing.string().c_str());
  EXPECT_FALSE(fs::exists(missing));
  fs::create_directories(LogFolder());
  QNErrorUtils::DbgDumpErrorFile(nullptr, LogFolder().string().c_str());  // a folder
  EXPECT_TRUE(fs::is_directory(LogFolder()));
  QNErrorUtils::DbgDumpErrorFile(nullptr, nullptr);
  QNErrorUtils::DbgDumpErrorFile(nullptr, "");
}

TEST(CrashDump, PrefixTooLongForAFileNameIsSilent) {
  const std::string prefix(5000, 'p');
  QNErrorUtils::DbgDumpErrorFileEx(nullptr, prefix.c_str());
  EXPECT_EQ(DumpsWithPrefix("pppp").size(), 0u);
}

TEST(CrashDump, PrefixThatLeadsElsewhereStaysInTheFolder) {
  const struct {
    const char* prefix;
    const char* kept;
  } cases[] = {{"../Outside", ".._Outside"}, {"..\\Outside", ".._Outside"}, {"a\r\nb", "a__b"}};
  for (const auto& c : cases) {
    RemoveDumpsWithPrefix(c.kept);
    QNErrorUtils::DbgDumpErrorFileEx(nullptr, c.prefix);
    EXPECT_EQ(DumpsWithPrefix(c.kept).size(), 1u) << c.prefix;
    RemoveDumpsWithPrefix(c.kept);
  }
  for (const auto& entry : fs::directory_iterator(LogFolder().parent_path())) {
    EXPECT_NE(entry.path().filename().string().rfind("Outside", 0), 0u) << entry.path();
  }
}

TEST(CrashDump, NullPrefixCountsAsEmpty) {
  const std::size_t before = DumpsWithPrefix("").size();
  QNErrorUtils::DbgDumpErrorFileEx(nullptr, nullptr);
  int found = 0;
  for (const fs::path& dump : DumpsWithPrefix("")) {
    DumpName name;
    if (!Parse(dump.filename().string(), name)) continue;
    ++found;
    fs::remove(dump);
  }
  EXPECT_EQ(found, 1);
  EXPECT_LE(DumpsWithPrefix("").size(), before);
}

// The entries go to the system's log, which a test cannot read everywhere; what is held here is
// that any type and text is taken.
TEST(EventLog, TakesEveryTypeAndText) {
  for (const unsigned short type : {0, 1, 2, 4, 8, 16, 0xFFFF}) {
    QNErrorUtils::WriteWindowsLog(type, "QuarnFC test entry %s %n");
  }
  QNErrorUtils::WriteWindowsLog(4, "");
  QNErrorUtils::WriteWindowsLog(4, nullptr);
  QNErrorUtils::WriteWindowsLog(4, "\xD6\xD0\xCE\xC4");  // two double-byte characters
  for (const std::size_t length : {31839, 31840, 32768, 100000}) {
    QNErrorUtils::WriteWindowsLog(4, std::string(length, 'x').c_str());
  }
}

}  // namespace
