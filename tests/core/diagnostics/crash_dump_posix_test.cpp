// SPDX-License-Identifier: MIT
#include <quarnfc/crash_dump.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "tests/core/diagnostics/crash_dump_test_support.h"

namespace {

TEST(CrashDumpOffWindows, IsATextRecordOfProcessThreadAndCallStack) {
  const Crash& crash = HostCrash();
  const std::string& record = crash.dump;

  const auto holds = [&record](const std::string& part) {
    return record.find(part) != std::string::npos;
  };
  EXPECT_TRUE(holds("process: ")) << record;
  EXPECT_TRUE(holds("\nthread: " + std::to_string(crash.thread) + "\n")) << record;
  char info[32];
  std::snprintf(info, sizeof info, "\ninfo: 0x%llx\n", crash.info);
  EXPECT_TRUE(holds(info)) << record;
  EXPECT_TRUE(holds("\ncall stack:\n")) << record;
  EXPECT_TRUE(holds("crash_host")) << record;  // a frame of the program that crashed
}

TEST(CrashDumpOffWindows, AStackThatOverflowsLeavesARecordOfItsFrames) {
  const Crash& crash = HostOverflow();
  EXPECT_NE(crash.dump.find("\nthread: " + std::to_string(crash.thread) + "\n"), std::string::npos)
      << crash.dump;
  EXPECT_NE(crash.dump.find("crash_host"), std::string::npos) << crash.dump;
}

// A host may ask for a record where nothing has crashed; info is printed and not looked into.
TEST(CrashDumpRecords, ARunningProcessIsRecordedWithItsNumbersAndCallStack) {
  const std::string path = testing::TempDir() + "running.dmp";
  auto* info = reinterpret_cast<_EXCEPTION_POINTERS*>(std::uintptr_t{0x1234});
  QNErrorUtils::DbgDumpErrorFile(info, path.c_str());
  const std::string record = ReadBytes(path);
  const std::string numbers = "process: " + std::to_string(getpid()) +
                              "\nthread: " + std::to_string(syscall(SYS_gettid)) + "\ntime: ";
  EXPECT_EQ(record.substr(0, numbers.size()), numbers);
  const std::string rest = record.substr(std::min(numbers.size(), record.size()));
  int count = 0;
  int parts[6] = {};
  EXPECT_EQ(std::sscanf(rest.c_str(), "%4d-%2d-%2d %2d:%2d:%2d%n", &parts[0], &parts[1], &parts[2],
                        &parts[3], &parts[4], &parts[5], &count),
            6);
  const std::string call_stack = "\ninfo: 0x1234\ncall stack:\n";
  EXPECT_EQ(rest.substr(static_cast<std::size_t>(count), call_stack.size()), call_stack);
  EXPECT_NE(rest.find("quarnfc_tests"), std::string::npos);  // a frame of this program
  std::filesystem::remove(path);
}

long OpenFiles() { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); }

// A pipe with a name that takes no byte more until it is read.
class FullPipe {
 public:
  explicit FullPipe(const std::string& path) : path_(path) {
    mkfifo(path.c_str(), 0600);
    file_ = open(path.c_str(), O_RDWR | O_NONBLOCK);
    while (write(file_, "x", 1) == 1) {
    }
  }
  ~FullPipe() {
    close(file_);
    unlink(path_.c_str());
  }
  FullPipe(const FullPipe&) = delete;
  FullPipe& operator=(const FullPipe&) = delete;

  void Drain() const {
    char bytes[4096];
    while (read(file_, bytes, sizeof bytes) > 0) {
    }
  }

 private:
  std::string path_;
  int file_;
};

TEST(CrashDumpThreads, DumpsAreWrittenOneAtATime) {
  const std::string pipe_path = testing::TempDir() + "dump_pipe";
  const std::string path = testing::TempDir() + "second.dmp";
  const FullPipe pipe(pipe_path);
  const long files = OpenFiles();
  std::thread first([&] { QNErrorUtils::DbgDumpErrorFile(nullptr, pipe_path.c_str()); });
  while (OpenFiles() == files) std::this_thread::yield();  // until it is in the middle
  std::thread second([&] { QNErrorUtils::DbgDumpErrorFile(nullptr, path.c_str()); });
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  EXPECT_FALSE(std::filesystem::exists(path));
  pipe.Drain();
  first.join();
  second.join();
  EXPECT_EQ(std::filesystem::file_size(path), 27u);
  std::filesystem::remove(path);
}

}  // namespace
