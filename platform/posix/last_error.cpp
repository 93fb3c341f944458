// The last error lives in errno, so that the failure of a C library function and one of the
// functions of this folder are reported in the same place, the later replacing the earlier. A
// Windows error without an errno of its own is kept there above every value the C library uses.
#include <cerrno>

#include "platform/posix/platform.h"

namespace {

constexpr DWORD kWindowsErrorBase = 1u << 24;

struct ErrorPair {
  int errno_value;
  DWORD windows_error;
};

constexpr ErrorPair kErrorPairs[] = {
    {0, 0},
    {ENOENT, ERROR_FILE_NOT_FOUND},
    {ENOTDIR, ERROR_PATH_NOT_FOUND},
    {ELOOP, ERROR_PATH_NOT_FOUND},
    {EMFILE, ERROR_TOO_MANY_OPEN_FILES},
    {ENFILE, ERROR_TOO_MANY_OPEN_FILES},
    {EACCES, ERROR_ACCESS_DENIED},
    {EPERM, ERROR_ACCESS_DENIED},
    {EISDIR, ERROR_ACCESS_DENIED},  // what opening a folder as a file gives on Windows
    {EBADF, ERROR_INVALID_HANDLE},
    {ENOMEM, ERROR_NOT_ENOUGH_MEMORY},
    {EROFS, ERROR_WRITE_PROTECT},
    {ETXTBSY, ERROR_SHARING_VIOLATION},
    {EBUSY, ERROR_SHARING_VIOLATION},
    {EEXIST, ERROR_FILE_EXISTS},
    {EINVAL, ERROR_INVALID_PARAMETER},
    {EPIPE, ERROR_BROKEN_PIPE},
    {ENOSPC, ERROR_DISK_FULL},
    {EDQUOT, ERROR_DISK_FULL},
    {ENOTEMPTY, ERROR_DIR_NOT_EMPTY},
    {ENAMETOOLONG, ERROR_FILENAME_EXCED_RANGE},
    {EFBIG, ERROR_FILE_TOO_LARGE},
    {EIO, ERROR_IO_DEVICE},
};

}  // namespace

DWORD GetLastError() {
  const auto value = static_cast<DWORD>(errno);
  if (value >= kWindowsErrorBase) {
    return value - kWindowsErrorBase;
  }
  for (const ErrorPair& pair : kErrorPairs) {
    if (pair.errno_value == errno) {
      return pair.windows_error;
    }
  }
  return ERROR_GEN_FAILURE;
}

void SetLastError(DWORD error) { errno = static_cast<int>(error + kWindowsErrorBase); }
