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
};

ssize_t ReadSome(void* cookie, char* buffer, size_t size) {
  auto& file = *static_cast<FailingFile*>(cookie);
  if (file.position >= file.failing_from) {
    errno = EIO;
    return -1;
  }
  const std::size_t count = std::min(size, file.failing_from - file.position);
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
    source.Open(
        quarnfc::platform::File(fopencookie(&failing, "rb", {ReadSome, nullptr, SeekTo, nullptr})));
    for (int round = 0; round < 2; ++round) {
      source.Rewind();
      EXPECT_EQ(c.lines, LinesBeforeTheError(source)) << c.failing_from;
    }
  }
}

}  // namespace
}  // namespace quarnfc::io
