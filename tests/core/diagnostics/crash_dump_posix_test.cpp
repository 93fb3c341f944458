// SPDX-License-Identifier: MIT
#include <quarnfc/crash_dump.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
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
