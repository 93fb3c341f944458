// SPDX-License-Identifier: MIT
#include "platform/c_stream.h"

#include <cerrno>

#include <share.h>

#include "platform/windows/platform.h"

namespace quarnfc::platform {

std::FILE* OpenStream(const char* path, FileMode mode, SystemError& error) {
  SetLastError(ERROR_SUCCESS);
  std::FILE* stream = _fsopen(path, mode == FileMode::kRead ? "rb" : "wb", _SH_DENYNO);
  if (stream == nullptr) error = StreamError();
  return stream;
}

bool SeekStream(std::FILE* stream, std::int64_t offset, int origin) {
  return _fseeki64(stream, offset, origin) == 0;
}

std::int64_t TellStream(std::FILE* stream) { return _ftelli64(stream); }

// The run-time library refuses some calls without asking the system.
SystemError StreamError() {
  const DWORD error = GetLastError();
  if (error != ERROR_SUCCESS) return error;
  if (errno == EMFILE) return kTooManyOpenFiles;
  return errno == EINVAL ? kInvalidParameter : kGeneralFailure;
}

}  // namespace quarnfc::platform
