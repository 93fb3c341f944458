// SPDX-License-Identifier: MIT
#include "platform/diagnostics.h"

#include <cstdio>
#include <cstring>
#include <ctime>

#include <dlfcn.h>
#include <execinfo.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "platform/clock.h"

namespace quarnfc::platform {

namespace {

void WriteText(int file, const char* text, std::size_t length) {
  // There is nobody to tell when the disk is full.
  [[maybe_unused]] const ssize_t written = write(file, text, length);
}

void WriteHeading(int file, const _EXCEPTION_POINTERS* info, unsigned long thread) {
  std::tm time{};
  char date[32] = "unknown";
  if (ToLocalTime(CurrentTime(), time)) {
    std::strftime(date, sizeof date, "%Y-%m-%d %H:%M:%S", &time);
  }
  char text[256];
  const int length = std::snprintf(
      text, sizeof text, "process: %ld\nthread: %lu\ntime: %s\ninfo: %p\ncall stack:\n",
      static_cast<long>(getpid()), thread, date, static_cast<const void*>(info));
  WriteText(file, text, static_cast<std::size_t>(length));
}

// One line per frame: module, symbol where it is exported, address.
void WriteCallStack(int file) {
  constexpr int kDeepestFrame = 128;
  void* frames[kDeepestFrame];
  backtrace_symbols_fd(frames, backtrace(frames, kDeepestFrame), file);
}

}  // namespace

const char kFolderSeparator = '/';

bool FindLibraryFolder(char* folder, std::size_t capacity) {
  Dl_info library;
  if (dladdr(&kFolderSeparator, &library) == 0 || library.dli_fname == nullptr) return false;
  const char* separator = std::strrchr(library.dli_fname, kFolderSeparator);
  if (separator == nullptr || std::strlen(library.dli_fname) >= capacity) return false;
  const std::size_t length = static_cast<std::size_t>(separator + 1 - library.dli_fname);
  std::memcpy(folder, library.dli_fname, length);
  folder[length] = '\0';
  return true;
}

void MakeFolder(const char* path) { mkdir(path, 0777); }

unsigned long ThreadNumber() { return static_cast<unsigned long>(syscall(SYS_gettid)); }

void RunWithStack(void (*work)(void* argument), void* argument) { work(argument); }

void WriteDumpFile(_EXCEPTION_POINTERS* info, unsigned long thread, const char* path,
                   const char* noInfoText) {
  const int file = open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file < 0) return;
  if (info != nullptr) {
    WriteHeading(file, info, thread);
    WriteCallStack(file);
  } else {
    WriteText(file, noInfoText, std::strlen(noInfoText));
  }
  close(file);
}

}  // namespace quarnfc::platform
