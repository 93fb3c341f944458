// SPDX-License-Identifier: MIT
// Line reading.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/net/fake_internet.h"
#include "tests/net/test_text.h"

namespace {

using Texts = std::vector<std::string>;

// Every line until the end of the data, at most a hundred.
Texts StringLines(CQNInternetFile& file) {
  Texts lines;
  CQNString line;
  while (lines.size() < 100 && file.ReadString(line)) lines.push_back(TextOf(line));
  return lines;
}

Texts BufferLines(CQNInternetFile& file, unsigned int maximum) {
  Texts lines;
  std::string buffer(maximum, '?');
  while (lines.size() < 100 && file.ReadString(buffer.data(), maximum) != nullptr) {
    lines.push_back(buffer.c_str());
  }
  return lines;
}

TEST(LineReading, StringsLoseTheirLineEnd) {
  const struct {
    const char* data;
    Texts lines;
  } cases[] = {{"a\r\nb", {"a", "b"}},
               {"a\nb\n", {"a", "b"}},
               {"\n\n", {"", ""}},
               {"", {}},
               {"\r", {}},
               {"a\rb\r\r\nc\r", {"ab", "c"}},
               {"\xC4\xE3\n\xBA\xC3", {"\xC4\xE3", "\xBA\xC3"}}};
  for (const auto& c : cases) {
    TheFakeInternet() = FakeInternet();
    TheFakeInternet().response = c.data;
    FakeFile file(1);
    EXPECT_EQ(StringLines(file), c.lines) << c.data;
  }
}

TEST(LineReading, BuffersKeepTheLineFeed) {
  const struct {
    const char* data;
    unsigned int maximum;
    Texts lines;
  } cases[] = {{"a\r\nb", 80, {"a\n", "b"}}, {"abc\ndef", 3, {"ab", "c\n", "de", "f"}},
               {"abc\n", 4, {"abc", "\n"}},  {"abc\n", 5, {"abc\n"}},
               {"ab\r\r\rc", 4, {"abc"}},    {"", 80, {}}};
  for (const auto& c : cases) {
    TheFakeInternet() = FakeInternet();
    TheFakeInternet().response = c.data;
    FakeFile file(1);
    EXPECT_EQ(BufferLines(file, c.maximum), c.lines) << c.data << " " << c.maximum;
  }
}

TEST(LineReading, AResultAtTheEndOfTheDataStaysNegative) {
  TheFakeInternet().response = "a";
  FakeFile file(1);
  EXPECT_EQ(StringLines(file), (Texts{"a"}));
  CQNString line("old");
  EXPECT_EQ(file.ReadString(line), 0);
  EXPECT_EQ(TextOf(line), "");
  char buffer[4] = "old";
  EXPECT_EQ(file.ReadString(buffer, 4), nullptr);
  EXPECT_STREQ(buffer, "");
}

TEST(LineReading, LinesOfAnyLengthArriveWhole) {
  for (const size_t length :
       {1u, 126u, 127u, 128u, 253u, 254u, 255u, 300u, 381u, 4095u, 4096u, 4097u, 100000u}) {
    const std::string line(length, 'x');
    for (const char* end : {"\n", "\r\n", ""}) {
      TheFakeInternet() = FakeInternet();
      TheFakeInternet().response = line + end;
      FakeFile file(1);
      EXPECT_EQ(StringLines(file), (Texts{line})) << length;
    }
  }
}

TEST(LineReading, LinesCrossTheEdgesOfAnyReadBuffer) {
  const std::string data = "first line\r\nsecond\n\nfourth line without end";
  for (unsigned int size = 1; size < 50; ++size) {
    TheFakeInternet() = FakeInternet();
    TheFakeInternet().response = data;
    TheFakeInternet().read_limit = size % 7 + 1;
    FakeFile file(1);
    file.SetReadBufferSize(size);
    EXPECT_EQ(StringLines(file), (Texts{"first line", "second", "", "fourth line without end"}));
  }
}

TEST(LineReading, TakesAReadBufferOf4096Bytes) {
  TheFakeInternet().response = "a\nb\n";
  FakeFile file(1);
  StringLines(file);
  EXPECT_EQ(TheFakeInternet().reads, (std::vector<unsigned int>{4096, 4096}));
}

TEST(LineReading, AMaximumOfOneStoresTheEmptyTextAndTakesNothing) {
  TheFakeInternet().response = "ab\n";
  FakeFile file(1);
  char buffer[1] = {'?'};
  EXPECT_EQ(file.ReadString(buffer, 1), buffer);
  EXPECT_EQ(buffer[0], '\0');
  EXPECT_EQ(StringLines(file), (Texts{"ab"}));
}

TEST(LineReading, WithoutABufferNothingIsRead) {
  FakeFile file(1);
  char buffer[1] = {'?'};
  EXPECT_EQ(file.ReadString(buffer, 0), nullptr);
  EXPECT_EQ(file.ReadString(nullptr, 10), nullptr);
  EXPECT_EQ(buffer[0], '?');
}

TEST(LineReading, ZeroBytesStayPartOfTheLine) {
  TheFakeInternet().response = std::string("a\0b\nc", 5);
  FakeFile file(1);
  EXPECT_EQ(StringLines(file), (Texts{std::string("a\0b", 3), "c"}));
}

TEST(LineReading, LinesAndBlocksShareTheBuffer) {
  TheFakeInternet().response = "line\nbinary";
  FakeFile file(1);
  CQNString line;
  file.ReadString(line);
  char bytes[6];
  EXPECT_EQ(file.Read(bytes, 6), 6u);
  EXPECT_EQ(std::string(bytes, 6), "binary");
}

TEST(LineReading, ALineWithoutEndArrivesInPiecesOf64MiB) {
  TheFakeInternet().endless_response = 'x';
  FakeFile file(1);
  file.SetReadBufferSize(1 << 20);
  CQNString line;
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(file.ReadString(line), 1);
    EXPECT_EQ(line.GetLength(), 64 << 20);
    EXPECT_LE(line.GetAllocLength(), 128 << 20);
  }
}

TEST(LineReading, CarriageReturnsWithoutEndDoNotHoldTheCall) {
  TheFakeInternet().endless_response = '\r';
  FakeFile file(1);
  file.SetReadBufferSize(1 << 20);
  CQNString line("old");
  EXPECT_EQ(file.ReadString(line), 1);
  EXPECT_EQ(TextOf(line), "");
  char buffer[4] = "old";
  EXPECT_EQ(file.ReadString(buffer, 4), buffer);
  EXPECT_STREQ(buffer, "");
}

TEST(LineReading, AFailureLeavesWhatWasReadOfTheLine) {
  TheFakeInternet().response = std::string(4096, 'x') + "y\n";
  FakeFile file(1);
  char piece[100];
  file.ReadString(piece, 100);
  TheFakeInternet().read_error = 10054;
  CQNString line;
  EXPECT_EQ(ThrownBy([&] { file.ReadString(line); }), (Thrown{10054, kTestContext}));
  EXPECT_EQ(TextOf(line), std::string(TextOf(line).size(), 'x'));
}

}  // namespace
