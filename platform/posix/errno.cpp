// SPDX-License-Identifier: MIT
#include "platform/posix/errno.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace quarnfc::platform {

namespace {

struct ErrorPair {
  int errno_value;
  SystemError error;
};

constexpr ErrorPair kErrorPairs[] = {
    {0, kNoError},
    {ENOENT, kFileNotFound},
    {ENOTDIR, kPathNotFound},
    {ELOOP, kPathNotFound},
    {EMFILE, kTooManyOpenFiles},
    {ENFILE, kTooManyOpenFiles},
    {EACCES, kAccessDenied},
    {EPERM, kAccessDenied},
    {EISDIR, kAccessDenied},  // what opening a folder as a file gives on Windows
    {EBADF, 6},               // ERROR_INVALID_HANDLE
    {ENOMEM, 8},              // ERROR_NOT_ENOUGH_MEMORY
    {EROFS, 19},              // ERROR_WRITE_PROTECT
    {ETXTBSY, 32},            // ERROR_SHARING_VIOLATION
    {EBUSY, 32},              // ERROR_SHARING_VIOLATION
    {EEXIST, 80},             // ERROR_FILE_EXISTS
    {EINVAL, kInvalidParameter},
    {EPIPE, 109},         // ERROR_BROKEN_PIPE
    {ENOSPC, 112},        // ERROR_DISK_FULL
    {EDQUOT, 112},        // ERROR_DISK_FULL
    {ENOTEMPTY, 145},     // ERROR_DIR_NOT_EMPTY
    {ENAMETOOLONG, 206},  // ERROR_FILENAME_EXCED_RANGE
    {EFBIG, 223},         // ERROR_FILE_TOO_LARGE
    {EIO, 1117},          // ERROR_IO_DEVICE
};

}  // namespace

SystemError SystemErrorOf(int errno_value) {
  const auto* pair = std::find_if(std::begin(kErrorPairs), std::end(kErrorPairs),
                                  [=](const ErrorPair& p) { return p.errno_value == errno_value; });
  return pair == std::end(kErrorPairs) ? kGeneralFailure : pair->error;
}

}  // namespace quarnfc::platform
