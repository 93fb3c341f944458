// Off Windows GetLastError translates errno.
#include <gtest/gtest.h>

#include <cerrno>

#include "platform/platform.h"

namespace {

struct Case {
  int errno_value;
  DWORD error;
};

TEST(Errno, IsReportedAsTheWindowsError) {
  constexpr Case kCases[] = {
      {0, 0},
      {ENOENT, ERROR_FILE_NOT_FOUND},
      {ENOTDIR, ERROR_PATH_NOT_FOUND},
      {EMFILE, ERROR_TOO_MANY_OPEN_FILES},
      {EACCES, ERROR_ACCESS_DENIED},
      {EPERM, ERROR_ACCESS_DENIED},
      {EISDIR, ERROR_ACCESS_DENIED},
      {ENOMEM, ERROR_NOT_ENOUGH_MEMORY},
      {EEXIST, ERROR_FILE_EXISTS},
      {EINVAL, ERROR_INVALID_PARAMETER},
      {ENOSPC, ERROR_DISK_FULL},
      {ENAMETOOLONG, ERROR_FILENAME_EXCED_RANGE},
      {EXDEV, ERROR_GEN_FAILURE},  // one of those without an equal
  };
  for (const Case& c : kCases) {
    errno = c.errno_value;
    EXPECT_EQ(c.error, GetLastError()) << c.errno_value;
  }
}

TEST(Errno, LaterFailureReplacesAnErrorThatWasSet) {
  SetLastError(ERROR_INSUFFICIENT_BUFFER);
  errno = ENOENT;
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, GetLastError());
}

}  // namespace
