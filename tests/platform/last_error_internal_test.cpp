#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "platform/platform.h"

namespace {

TEST(LastError, IsTheOneSetLast) {
  for (const DWORD error :
       {DWORD{0}, DWORD{ERROR_ACCESS_DENIED}, DWORD{12029}, DWORD{0x80070005}}) {
    SetLastError(error);
    EXPECT_EQ(error, GetLastError());
  }
}

struct OpenCase {
  std::string path;
  const char* mode;
  DWORD error;
};

TEST(LastError, TellsWhyAFileWasNotOpened) {
  const std::string folder = testing::TempDir();
  const OpenCase cases[] = {
      {folder + "no-such-file", "rb", ERROR_FILE_NOT_FOUND},
      {folder, "wb", ERROR_ACCESS_DENIED},
  };
  for (const OpenCase& c : cases) {
    SetLastError(0);
    std::FILE* file = std::fopen(c.path.c_str(), c.mode);
    const DWORD error = GetLastError();
    EXPECT_EQ(nullptr, file) << c.path;
    EXPECT_EQ(c.error, error) << c.path;
  }
}

}  // namespace
