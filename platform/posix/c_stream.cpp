// SPDX-License-Identifier: MIT
#include "platform/c_stream.h"

#include <sys/stat.h>
#include <sys/types.h>

#include <cerrno>

#include "platform/posix/errno.h"

namespace quarnfc::platform {

static_assert(sizeof(off_t) == sizeof(std::int64_t));

std::FILE* OpenStream(const char* path, FileMode mode, SystemError& error) {
  // As on Windows a folder is refused, and so is what has no contents to seek in. Looked at first:
  // opening a pipe would wait for its other end.
  struct stat status;
  const bool refused = stat(path, &status) == 0 && !S_ISREG(status.st_mode);
  std::FILE* stream = refused ? nullptr : std::fopen(path, mode == FileMode::kRead ? "rb" : "wb");
  if (stream == nullptr) error = refused ? kAccessDenied : StreamError();
  return stream;
}

bool SeekStream(std::FILE* stream, std::int64_t offset, int origin) {
  return fseeko(stream, offset, origin) == 0;
}

std::int64_t TellStream(std::FILE* stream) { return ftello(stream); }

SystemError StreamError() { return SystemErrorOf(errno); }

}  // namespace quarnfc::platform
