// SPDX-License-Identifier: MIT
// How a file becomes lines: blank lines, zero bytes, and the buffer of 409,600 bytes.
#include <gtest/gtest.h>

#include "tests/io/csv_rows.h"

namespace io_test {
namespace {

constexpr std::size_t kBuffer = 409600;

// count lines of size bytes each with their line feed, numbered.
std::string NumberedLines(std::size_t count, std::size_t size) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    std::string line = std::to_string(i);
    line.resize(size - 1, '.');
    text += line + '\n';
  }
  return text;
}

TEST(CsvLines, CarriageReturnsBeforeLineFeedsAreNoText) {
  CsvFile file("a,b\r\nc,d\r\n");
  EXPECT_EQ(Header(file.Reader()), (Row{"a", "b"}));
  EXPECT_EQ(RestOfRows(file.Reader()), (std::vector<Row>{{"c", "d"}}));
}

TEST(CsvLines, BlankLinesArePassedOver) {
  CsvFile file("\n\n  \n\t\na\n\n \t \nb\n\n");
  EXPECT_EQ(Header(file.Reader()), (Row{"a"}));
  EXPECT_EQ(RestOfRows(file.Reader()), (std::vector<Row>{{"b"}}));
}

TEST(CsvLines, BlankLineWithCarriageReturnIsARowOfOneEmptyField) {
  CsvFile file("a,b\r\n\r\nc,d\r\n");
  EXPECT_EQ(RestOfRows(file.Reader()), (std::vector<Row>{{""}, {"c", "d"}}));
}

TEST(CsvLines, HeaderMayBeAnEmptyLineWithCarriageReturn) {
  CsvFile file("\r\na\r\n");
  EXPECT_TRUE(file.Opened());
  EXPECT_EQ(Header(file.Reader()), (Row{""}));
}

TEST(CsvLines, ZeroBytesEndLinesAndAreSkippedBetweenThem) {
  CsvFile file(std::string("h\0\0\0a,b\0c\n\0d", 12));
  EXPECT_EQ(Header(file.Reader()), (Row{"h"}));
  EXPECT_EQ(RestOfRows(file.Reader()), (std::vector<Row>{{"a", "b"}, {"c"}, {"d"}}));
}

TEST(CsvLines, LastLineNeedsNoLineFeed) {
  CsvFile file("h\na");
  EXPECT_EQ(RestOfRows(file.Reader()), (std::vector<Row>{{"a"}}));
}

TEST(CsvLines, SmallFileIsReadWhole) {
  // The largest file that has a buffer of its own: 409,600 bytes, in one line.
  CsvFile one_line{std::string(kBuffer, 'x')};
  EXPECT_TRUE(one_line.Opened());
  EXPECT_EQ(Header(one_line.Reader()), (Row{std::string(kBuffer, 'x')}));
}

TEST(CsvLines, LinesRunAcrossBufferFills) {
  constexpr std::size_t kCount = 30000;
  for (const std::size_t size : {67u, 100u, 4097u}) {
    CsvFile file(NumberedLines(size > 1000 ? 1000 : kCount, size));
    const std::vector<Row> rows = RestOfRows(file.Reader());
    ASSERT_EQ(rows.size(), (size > 1000 ? 1000 : kCount) - 1);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      ASSERT_EQ(rows[i].size(), 1u);
      ASSERT_EQ(rows[i][0].size(), size - 1);
      ASSERT_EQ(rows[i][0].substr(0, rows[i][0].find('.')), std::to_string(i + 1));
    }
  }
}

TEST(CsvLines, LongestLineOfALargeFile) {
  const std::string line(kBuffer - 1, 'x');
  CsvFile file("h\n" + line + "\n" + line + "\nlast\n");
  EXPECT_EQ(RestOfRows(file.Reader()), (std::vector<Row>{{line}, {line}, {"last"}}));
  EXPECT_STREQ(file.Reader().GetLastError(), "");
}

TEST(CsvLines, LineOfTheBufferSizeFailsWithItsMessage) {
  for (const std::size_t length : {kBuffer, kBuffer + 1, 2 * kBuffer}) {
    CsvFile file("h\na\n" + std::string(length, 'x') + "\nb\n");
    EXPECT_EQ(RestOfRows(file.Reader()), (std::vector<Row>{{"a"}}));
    EXPECT_EQ(Message(file.Reader()), kTooLong);
    // Reading goes on from the same state: it stays there.
    EXPECT_TRUE(RestOfRows(file.Reader()).empty());
    EXPECT_EQ(Message(file.Reader()), kTooLong);
  }
}

// Up to 409,600 bytes a file is read whole, and its line may be as long; a larger one is read
// through a buffer, where the line feed has to fit as well.
TEST(CsvLines, AFileOfOneLineIsReadUpToTheBufferSize) {
  const struct {
    std::size_t length;
    const char* end;
    bool read;
  } cases[] = {{kBuffer - 1, "", true},      {kBuffer, "", true},       {kBuffer + 1, "", false},
               {kBuffer - 2, "\n", true},    {kBuffer - 1, "\n", true}, {kBuffer, "\n", false},
               {kBuffer - 1, "\nb\n", true}, {kBuffer, "\nb\n", false}};
  for (const auto& c : cases) {
    const std::string line(c.length, 'x');
    CsvFile file(line + c.end);
    EXPECT_EQ(file.Opened(), c.read) << c.length << c.end;
    EXPECT_EQ(Header(file.Reader()), c.read ? Row{line} : Row{}) << c.length << c.end;
    EXPECT_EQ(Message(file.Reader()), c.read ? u"" : kTooLong) << c.length << c.end;
  }
}

TEST(CsvLines, HeaderOfTheBufferSizeKeepsTheLengthMessage) {
  CsvFile file(std::string(kBuffer + 1, 'x'));
  EXPECT_FALSE(file.Opened());
  EXPECT_EQ(Message(file.Reader()), kTooLong);
}

TEST(CsvLines, LeadingBlanksDoNotCountForTheLongestLine) {
  const std::string line(kBuffer - 1, 'x');
  CsvFile file("h\n" + std::string(1000000, ' ') + line + "\nlast\n");
  EXPECT_EQ(RestOfRows(file.Reader()), (std::vector<Row>{{line}, {"last"}}));
}

// Lines of 100 bytes fill the buffer exactly, so the last one ends with the second fill.
TEST(CsvLines, LastLineWithoutLineFeedThatEndsWithABufferFillIsNotReturned) {
  std::string text = NumberedLines(2 * kBuffer / 100, 100);
  text.back() = '.';
  CsvFile file(text);
  const std::vector<Row> rows = RestOfRows(file.Reader());
  EXPECT_EQ(rows.size(), 2 * kBuffer / 100 - 2);
  EXPECT_STREQ(file.Reader().GetLastError(), "");
}

TEST(CsvLines, LastLineWithLineFeedThatEndsWithABufferFillIsReturned) {
  CsvFile file(NumberedLines(2 * kBuffer / 100, 100));
  EXPECT_EQ(RestOfRows(file.Reader()).size(), 2 * kBuffer / 100 - 1);
}

// After the false at the end the unread line stands at the start of the buffer with zeros behind
// it, and a call more goes on from there.
TEST(CsvLines, CallAfterTheEndGoesOnFromTheSameState) {
  std::string text = NumberedLines(2 * kBuffer / 100, 100);
  text.back() = '.';
  CsvFile file(text);
  RestOfRows(file.Reader());
  const std::vector<Row> more = RestOfRows(file.Reader());
  ASSERT_EQ(more.size(), 1u);
  EXPECT_EQ(more[0][0].substr(0, 5), "8191.");
}

TEST(CsvLines, MegabytesOfBlankLinesArePassedOver) {
  CsvFile file("h\n" + std::string(3000000, '\n') + "a\n" + std::string(1000000, '\0') + "b");
  EXPECT_EQ(RestOfRows(file.Reader()), (std::vector<Row>{{"a"}, {"b"}}));
}

TEST(CsvLines, ManyLinesEndedByZeroBytes) {
  std::string text = "h\n";
  for (int i = 0; i < 200000; ++i) text.append("a\0", 2);
  CsvFile file(text);
  EXPECT_EQ(RestOfRows(file.Reader()).size(), 200000u);
}

}  // namespace
}  // namespace io_test
