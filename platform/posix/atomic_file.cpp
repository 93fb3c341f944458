// SPDX-License-Identifier: MIT
#include "platform/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>

#include "platform/code_page.h"
#include "platform/posix/errno.h"

namespace quarnfc::platform {

namespace {

constexpr int kAttempts = 100;  // at names that others left behind

// A new file that goes away unless it takes another's place.
class TemporaryFile {
 public:
  TemporaryFile() = default;
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (file_ >= 0) close(file_);
    if (!name_.empty()) unlink(name_.c_str());
  }

  // Each returns false with errno set.

  bool Create(const std::string& target, mode_t mode) {
    static std::atomic<unsigned> number{0};
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
      std::string name =
          target + "." + std::to_string(getpid()) + "-" + std::to_string(number++) + ".tmp";
      file_ = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
      if (file_ >= 0) {
        name_ = std::move(name);
        return true;
      }
      if (errno != EEXIST) return false;
    }
    return false;
  }

  // The umask does not take from the permissions of a file that was there.
  bool SetPermissions(mode_t mode) { return fchmod(file_, mode) == 0; }

  bool Write(const void* bytes, std::size_t count) {
    const char* rest = static_cast<const char*>(bytes);
    while (count > 0) {
      const ssize_t written = write(file_, rest, count);
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) return false;
      rest += written;
      count -= static_cast<std::size_t>(written);
    }
    return true;
  }

  bool FlushAndClose() {
    if (fsync(file_) != 0) return false;
    const int file = file_;
    file_ = -1;
    return close(file) == 0;
  }

  bool Rename(const std::string& target) {
    if (rename(name_.c_str(), target.c_str()) != 0) return false;
    name_.clear();
    return true;
  }

 private:
  int file_ = -1;
  std::string name_;
};

// The file that a path stands for, symbolic links followed.
std::string Resolve(const char* path) {
  const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(path, nullptr), &std::free);
  return resolved == nullptr ? path : resolved.get();
}

// The new name outlives a loss of power where the folder is flushed, too. Some file systems cannot.
void FlushFolder(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
  const int file = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (file < 0) return;
  fsync(file);
  close(file);
}

SystemError Replace(const std::string& path, const void* bytes, std::size_t count) {
  constexpr mode_t kPermissions = 07777;
  constexpr mode_t kNewFile = 0666;
  struct stat status = {};
  const bool exists = stat(path.c_str(), &status) == 0;
  if (exists && !S_ISREG(status.st_mode)) return kAccessDenied;
  TemporaryFile file;
  const bool done = file.Create(path, kNewFile) &&
                    (!exists || file.SetPermissions(status.st_mode & kPermissions)) &&
                    file.Write(bytes, count) && file.FlushAndClose() && file.Rename(path);
  if (!done) return SystemErrorOf(errno);
  FlushFolder(path);
  return kNoError;
}

}  // namespace

SystemError ReplaceFileContents(const char* path, const void* bytes, std::size_t count) {
  if (path == nullptr) return kInvalidParameter;
  try {
    return Replace(Resolve(path), bytes, count);
  } catch (const std::bad_alloc&) {
    return SystemErrorOf(ENOMEM);
  }
}

SystemError ReplaceFileContents(const wchar_t* path, const void* bytes, std::size_t count) {
  if (path == nullptr) return kInvalidParameter;
  try {
    std::string utf8(
        static_cast<std::size_t>(FromUtf16(Encoding::kUtf8, path, kTerminated, nullptr, 0)), '\0');
    FromUtf16(Encoding::kUtf8, path, kTerminated, utf8.data(), static_cast<int>(utf8.size()));
    return ReplaceFileContents(utf8.c_str(), bytes, count);
  } catch (const std::bad_alloc&) {
    return SystemErrorOf(ENOMEM);
  }
}

}  // namespace quarnfc::platform
