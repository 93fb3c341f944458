// SPDX-License-Identifier: MIT
#include <quarnfc/crash_dump.h>

#include <windows.h>

#include <dbghelp.h>

#include <cstring>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "tests/core/diagnostics/crash_dump_test_support.h"

namespace {

// A reader of the directory of a minidump. What lies outside the file reads as zero.
class MiniDump {
 public:
  explicit MiniDump(std::string bytes) : bytes_(std::move(bytes)) {}

  template <class Record>
  Record At(std::size_t offset) const {
    Record record{};
    if (offset <= bytes_.size() && bytes_.size() - offset >= sizeof record) {
      std::memcpy(&record, bytes_.data() + offset, sizeof record);
    }
    return record;
  }

  MINIDUMP_HEADER header() const { return At<MINIDUMP_HEADER>(0); }

  // Where the stream of a type lies; 0 when there is none.
  RVA FindStream(ULONG32 type) const {
    const MINIDUMP_HEADER head = header();
    for (ULONG32 i = 0; i < head.NumberOfStreams; ++i) {
      const auto entry =
          At<MINIDUMP_DIRECTORY>(head.StreamDirectoryRva + i * sizeof(MINIDUMP_DIRECTORY));
      if (entry.StreamType == type) return entry.Location.Rva;
    }
    return 0;
  }

  bool ListsThread(ULONG32 id) const {
    const RVA list = FindStream(ThreadListStream);
    const ULONG32 count = At<ULONG32>(list);
    for (ULONG32 i = 0; list != 0 && i < count; ++i) {
      const std::size_t offset = list + sizeof(ULONG32) + i * sizeof(MINIDUMP_THREAD);
      if (At<MINIDUMP_THREAD>(offset).ThreadId == id) return true;
    }
    return false;
  }

 private:
  std::string bytes_;
};

TEST(CrashDumpOnWindows, IsAMiniDumpWithTheExceptionAndTheFaultingThread) {
  const Crash& crash = HostCrash();
  const MiniDump dump(crash.dump);

  EXPECT_EQ(dump.header().Signature, 0x504D444Du);  // "MDMP"
  EXPECT_EQ(dump.header().Version & 0xFFFFu, 0xA793u);
  EXPECT_EQ(dump.header().Flags, static_cast<ULONG64>(MiniDumpNormal));

  const RVA stream = dump.FindStream(ExceptionStream);
  ASSERT_NE(stream, 0u);
  const auto exception = dump.At<MINIDUMP_EXCEPTION_STREAM>(stream);
  EXPECT_EQ(exception.ThreadId, crash.thread);
  EXPECT_EQ(exception.ExceptionRecord.ExceptionCode, static_cast<ULONG32>(STATUS_ACCESS_VIOLATION));
  EXPECT_EQ(exception.ExceptionRecord.ExceptionInformation[1], 16u);  // the address written to
  EXPECT_NE(exception.ThreadContext.DataSize, 0u);
  EXPECT_TRUE(dump.ListsThread(exception.ThreadId));
}

TEST(CrashDumpOnWindows, AStackThatOverflowsLeavesADumpOfItsThread) {
  const Crash& crash = HostOverflow();
  const MiniDump dump(crash.dump);
  const RVA stream = dump.FindStream(ExceptionStream);
  ASSERT_NE(stream, 0u);
  const auto exception = dump.At<MINIDUMP_EXCEPTION_STREAM>(stream);
  EXPECT_EQ(exception.ThreadId, crash.thread);
  EXPECT_EQ(exception.ExceptionRecord.ExceptionCode, static_cast<ULONG32>(STATUS_STACK_OVERFLOW));
  EXPECT_NE(exception.ThreadContext.DataSize, 0u);
  EXPECT_TRUE(dump.ListsThread(exception.ThreadId));
}

// A folder that programs look for their libraries in before the system's, with a DBGHELP.DLL in it
// that is another library.
class ForeignDebugHelp {
 public:
  ForeignDebugHelp() : folder_(std::filesystem::path(testing::TempDir()) / "foreign") {
    char module[MAX_PATH];
    GetModuleFileNameA(GetModuleHandleA("QuarnFC.dll"), module, sizeof module);
    std::filesystem::create_directories(folder_);
    std::filesystem::copy_file(module, folder_ / "DBGHELP.DLL");
    SetDllDirectoryA(folder_.string().c_str());
  }
  ~ForeignDebugHelp() { SetDllDirectoryA(nullptr); }
  ForeignDebugHelp(const ForeignDebugHelp&) = delete;
  ForeignDebugHelp& operator=(const ForeignDebugHelp&) = delete;

  // Whether who asks for the library by its name alone is given this one.
  static bool IsFound() {
    const HMODULE library = LoadLibraryA("DBGHELP.DLL");
    const bool found =
        library != nullptr && GetProcAddress(library, "MiniDumpWriteDump") == nullptr;
    if (library != nullptr) FreeLibrary(library);
    return found;
  }

 private:
  std::filesystem::path folder_;
};

TEST(CrashDumpOnWindows, TakesTheSystemsDebugHelpLibraryOnly) {
  if (GetModuleHandleA("DBGHELP.DLL") != nullptr) GTEST_SKIP() << "it is loaded already";
  const ForeignDebugHelp foreign;
  if (!ForeignDebugHelp::IsFound()) GTEST_SKIP() << "the system's own is found first in any case";
  const std::string path = testing::TempDir() + "system_only.dmp";
  QNErrorUtils::DbgDumpErrorFile(nullptr, path.c_str());
  EXPECT_EQ(ReadBytes(path), "_EXCEPTION_POINTERS is null");
}

}  // namespace
