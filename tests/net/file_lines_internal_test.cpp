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

// What reading must give, from the whole text: carriage returns do not count, and a piece ends with
// its line feed or when it is full.
Texts PiecesOf(std::string text, std::size_t longest) {
  std::erase(text, '\r');
  Texts pieces;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
    const std::size_t length = std::min(end, longest);
    pieces.push_back(text.substr(0, length));
    text.erase(0, length);
  }
  return pieces;
}

Texts LinesOf(const std::string& text) {
  Texts lines = PiecesOf(text, std::string::npos);
  for (std::string& line : lines) {
    if (line.back() == '\n') line.pop_back();
  }
  return lines;
}

struct Reading {
  unsigned int buffer;      // size of the read buffer
  unsigned int read_limit;  // bytes that a read of the platform hands out
};

Texts ReadLines(const std::string& text, const Reading& how, unsigned int maximum) {
  TheFakeInternet() = FakeInternet();
  TheFakeInternet().response = text;
  TheFakeInternet().read_limit = how.read_limit;
  FakeFile file(1);
  file.SetReadBufferSize(how.buffer);
  return maximum == 0 ? StringLines(file) : BufferLines(file, maximum);
}

TEST(LineReading, EveryShortTextThroughEverySmallBuffer) {
  Texts texts = {""};
  for (std::size_t i = 0; i < texts.size() && texts[i].size() < 6; ++i) {
    for (const char ch : {'a', '\r', '\n'}) texts.push_back(texts[i] + ch);
  }
  ASSERT_EQ(texts.size(), 1093u);  // 1 + 3 + 9 + ... + 729
  for (const std::string& text : texts) {
    for (unsigned int buffer = 1; buffer <= 7; ++buffer) {
      for (const unsigned int limit : {1u, 2u, 100u}) {
        const Reading how = {buffer, limit};
        ASSERT_EQ(ReadLines(text, how, 0), LinesOf(text)) << buffer << " " << limit;
        ASSERT_EQ(ReadLines(text, how, 2), PiecesOf(text, 1)) << buffer << " " << limit;
        ASSERT_EQ(ReadLines(text, how, 3), PiecesOf(text, 2)) << buffer << " " << limit;
        ASSERT_EQ(ReadLines(text, how, 9), PiecesOf(text, 8)) << buffer << " " << limit;
      }
    }
  }
}

TEST(LineReading, LongLinesThroughEveryBufferUpTo600Bytes) {
  // Around 127 bytes, which strings are read in, and around 256.
  std::string text = std::string(126, 'a') + "\r\n" + std::string(127, 'b') + "\r\n\n";
  text += std::string(128, 'c') + "\r\r\n" + std::string(257, '\xC4') + "\n\r\n";
  for (unsigned int buffer = 1; buffer <= 600; ++buffer) {
    for (const unsigned int limit : {1u, 13u, 10000u}) {
      const Reading how = {buffer, limit};
      ASSERT_EQ(ReadLines(text, how, 0), LinesOf(text)) << buffer << " " << limit;
      for (const unsigned int maximum : {16u, 128u, 300u}) {
        ASSERT_EQ(ReadLines(text, how, maximum), PiecesOf(text, maximum - 1)) << buffer;
      }
    }
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
