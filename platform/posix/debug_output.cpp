// SPDX-License-Identifier: MIT
#include "platform/debug_output.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "platform/posix/debug_output_observer.h"

namespace quarnfc::platform {

namespace {

std::atomic<DebugOutputObserver> g_observer{nullptr};

// True while a debugger traces this process.
bool IsDebuggerPresent() {
  const int file = open("/proc/self/status", O_RDONLY | O_CLOEXEC);
  if (file < 0) {
    return false;
  }
  char status[4096];
  const ssize_t length = read(file, status, sizeof(status) - 1);
  close(file);
  status[length > 0 ? length : 0] = '\0';
  constexpr std::string_view kField = "\nTracerPid:";
  const char* field = std::strstr(status, kField.data());
  return field != nullptr && std::atoi(field + kField.size()) != 0;
}

void WriteToStandardError(const char* text) {
  const std::size_t length = std::strlen(text);
  for (std::size_t written = 0; written < length;) {
    const ssize_t count = write(STDERR_FILENO, text + written, length - written);
    if (count <= 0) {
      return;
    }
    written += static_cast<std::size_t>(count);
  }
}

}  // namespace

DebugOutputObserver SetDebugOutputObserver(DebugOutputObserver observer) {
  return g_observer.exchange(observer);
}

void WriteDebugOutput(const char* text) {
  if (text == nullptr) {
    return;
  }
  const int saved_errno = errno;
  if (const DebugOutputObserver observer = g_observer.load()) {
    observer(text);
  } else if (IsDebuggerPresent()) {
    WriteToStandardError(text);
  }
  errno = saved_errno;
}

}  // namespace quarnfc::platform
