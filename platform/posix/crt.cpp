#include "platform/posix/crt.h"

#include <sys/stat.h>
#include <sys/types.h>

#include <cerrno>

static_assert(sizeof(off_t) == 8 && sizeof(std::time_t) == 8);

std::FILE* _fsopen(const char* path, const char* mode, int /*sharing*/) {
  struct stat status;
  if (stat(path, &status) == 0 && !S_ISREG(status.st_mode)) {
    errno = EISDIR;
    return nullptr;
  }
  return std::fopen(path, mode);
}

int _fseeki64(std::FILE* file, long long offset, int origin) {
  return fseeko(file, offset, origin);
}

long long _ftelli64(std::FILE* file) { return ftello(file); }

__time64_t _time64(__time64_t* time) {
  const __time64_t now = std::time(nullptr);
  if (time != nullptr) *time = now;
  return now;
}

int _localtime64_s(std::tm* local, const __time64_t* time) {
  const std::time_t seconds = *time;
  return localtime_r(&seconds, local) != nullptr ? 0 : errno;
}

__time64_t _mktime64(std::tm* local) { return std::mktime(local); }
