// SPDX-License-Identifier: MIT
// A read error in the middle of a file, from a stream that fails where the test says.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

#include "io/line_source.h"

namespace quarnfc::io {
namespace {

constexpr unsigned int kDeviceError = 1117;

struct FailingFile {
  std::string bytes;
  std::size_t failing_from;
  std::size_t position = 0;
  int failures = -1;  // how many are left; below 0 without end
};

ssize_t ReadSome(void* cookie, char* buffer, size_t size) {
  auto& file = *static_cast<FailingFile*>(cookie);
  if (file.position >= file.failing_from && file.failures != 0) {
    --file.failures;
    errno = EIO;
    return -1;
  }
  const std::size_t end = file.failures == 0 ? file.bytes.size() : file.failing_from;
  const std::size_t count = std::min(size, end - file.position);
  std::memcpy(buffer, file.bytes.data() + file.position, count);
  file.position += count;
  return static_cast<ssize_t>(count);
}

int SeekTo(void* cookie, off64_t* offset, int origin) {
  auto& file = *static_cast<FailingFile*>(cookie);
  const std::size_t base = origin == SEEK_END   ? file.bytes.size()
                           : origin == SEEK_CUR ? file.position
                                                : 0;
  file.position = base + static_cast<std::size_t>(*offset);
  *offset = static_cast<off64_t>(file.position);
  return 0;
}

platform::File Stream(FailingFile& file) {
  return platform::File(fopencookie(&file, "rb", {ReadSome, nullptr, SeekTo, nullptr}));
}

std::vector<std::string> LinesBeforeTheError(LineSource& source) {
  std::vector<std::string> lines;
  Line line;
  LineStatus status;
  while ((status = source.Next(line)) == LineStatus::kLine) lines.emplace_back(line.text);
  EXPECT_EQ(LineStatus::kReadFailed, status);
  EXPECT_EQ(LineStatus::kReadFailed, source.Next(line));
  EXPECT_EQ(kDeviceError, source.ReadError());
  return lines;
}

TEST(LineSource, LinesInFrontOfAReadErrorAreSuppliedAndTheOneItCutsOffIsNot) {
  const std::string text = "h\na,b\nc,ddd\ne\n";
  const struct {
    std::size_t failing_from;
    std::vector<std::string> lines;
  } kCases[] = {
      {0, {}},
      {1, {}},
      {2, {"h"}},
      {6, {"h", "a,b"}},
      {10, {"h", "a,b"}},
      {12, {"h", "a,b", "c,ddd"}},
  };
  for (const auto& c : kCases) {
    FailingFile failing{text, c.failing_from};
    LineSource source;
    source.Open(Stream(failing));
    for (int round = 0; round < 2; ++round) {
      source.Rewind();
      EXPECT_EQ(c.lines, LinesBeforeTheError(source)) << c.failing_from;
    }
  }
}

TEST(LineSource, AReadErrorWhileTheMarkIsLookedForIsOneUntilTheNextRewind) {
  const struct {
    std::string bytes;
    std::size_t failing_from;
    bool utf8;
  } kCases[] = {
      {"\xEF\xBB\xBFh\nx\n", 0, true}, {"\xEF\xBB\xBFh\nx\n", 1, true},
      {"\xEF\xBB\xBFh\nx\n", 2, true}, {"h\nx\n", 0, false},
      {"\xEF\nx\n", 1, false},
  };
  for (const auto& c : kCases) {
    FailingFile failing{c.bytes, c.failing_from};
    failing.failures = 1;
    LineSource source;
    source.Open(Stream(failing));
    source.Rewind();
    EXPECT_EQ(std::vector<std::string>(), LinesBeforeTheError(source)) << c.failing_from;
    source.Rewind();
    Line line;
    ASSERT_EQ(LineStatus::kLine, source.Next(line)) << c.failing_from;
    EXPECT_EQ(c.utf8, source.IsUtf8());
    EXPECT_STREQ(c.utf8 || c.bytes[0] == 'h' ? "h" : "\xEF", line.text);
    ASSERT_EQ(LineStatus::kLine, source.Next(line));
    EXPECT_STREQ("x", line.text);
    EXPECT_EQ(LineStatus::kEnd, source.Next(line));
  }
}

// The bytes in front of the error differ from the mark, so there is none.
TEST(LineSource, AReadErrorBehindAStartThatIsNoMarkCutsOffNothingElse) {
  FailingFile failing{"h\nx\n", 2};
  LineSource source;
  source.Open(Stream(failing));
  source.Rewind();
  EXPECT_EQ(std::vector<std::string>({"h"}), LinesBeforeTheError(source));
  EXPECT_FALSE(source.IsUtf8());
}

}  // namespace
}  // namespace quarnfc::io
