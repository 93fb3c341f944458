#include "platform/posix/debug_output.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include "platform/platform.h"

namespace {

std::string* g_seen = nullptr;

void Observe(const char* text) {
  *g_seen += text;
  errno = EIO;
}

TEST(DebugOutput, GoesToTheObserverWhileThereIsOne) {
  std::string seen;
  g_seen = &seen;
  EXPECT_EQ(nullptr, quarnfc::SetDebugOutputObserver(Observe));
  OutputDebugStringA("one,");
  OutputDebugStringA(nullptr);
  OutputDebugStringA("two");
  EXPECT_EQ(Observe, quarnfc::SetDebugOutputObserver(nullptr));
  OutputDebugStringA("");
  EXPECT_EQ("one,two", seen);
}

TEST(DebugOutput, LeavesTheLastErrorAlone) {
  SetLastError(ERROR_FILE_NOT_FOUND);
  OutputDebugStringA("");
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, GetLastError());
}

}  // namespace
