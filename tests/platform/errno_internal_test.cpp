// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cerrno>

#include "platform/posix/errno.h"

namespace quarnfc::platform {
namespace {

struct Case {
  int errno_value;
  SystemError error;
};

TEST(Errno, IsGivenAsTheWindowsError) {
  constexpr Case kCases[] = {
      {0, kNoError},
      {ENOENT, kFileNotFound},
      {ENOTDIR, kPathNotFound},
      {EMFILE, kTooManyOpenFiles},
      {EACCES, kAccessDenied},
      {EPERM, kAccessDenied},
      {EISDIR, kAccessDenied},
      {EBADF, 6},
      {ENOMEM, 8},
      {EEXIST, 80},
      {EINVAL, kInvalidParameter},
      {ENOSPC, 112},
      {ENAMETOOLONG, 206},
      {EIO, 1117},
      {EXDEV, kGeneralFailure},  // one of those without an equal
  };
  for (const Case& c : kCases) EXPECT_EQ(c.error, SystemErrorOf(c.errno_value)) << c.errno_value;
}

}  // namespace
}  // namespace quarnfc::platform
