// SPDX-License-Identifier: MIT
// The reader as a whole: opening, messages, going back, copies.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/io/csv_rows.h"

namespace io_test {
namespace {

constexpr int kFileNotFound = 2;
constexpr int kPathNotFound = 3;
constexpr int kAccessDenied = 5;

TEST(CsvReader, NewReaderHasNoFileNoFieldsAndNoMessage) {
  CQNCSVFileReader reader;
  std::vector<CQNString> fields(2, "left over");
  EXPECT_FALSE(reader.GetFields(fields));
  EXPECT_TRUE(fields.empty());
  EXPECT_STREQ(reader.GetLastError(), "");
}

TEST(CsvReader, ReadingWithoutAFileFailsWithItsMessage) {
  CQNCSVFileReader reader;
  std::vector<CQNString> row(2, "left over");
  EXPECT_FALSE(reader.NextRow(row));
  EXPECT_TRUE(row.empty());
  EXPECT_EQ(Message(reader), kNotOpen);

  CQNCSVFileReader another;
  EXPECT_FALSE(another.GoToFirstRow());
  EXPECT_EQ(Message(another), kNotOpen);
}

TEST(CsvReader, HeaderAndRows) {
  CsvFile file("a,b\n1,2\n3,4\n");
  EXPECT_TRUE(file.Opened());
  EXPECT_EQ(Header(file.Reader()), (Row{"a", "b"}));
  EXPECT_EQ(RestOfRows(file.Reader()), (std::vector<Row>{{"1", "2"}, {"3", "4"}}));
  EXPECT_STREQ(file.Reader().GetLastError(), "");
}

TEST(CsvReader, RowsMayHaveAnyNumberOfFields) {
  CsvFile file("a,b\n1\n1,2,3\n");
  EXPECT_EQ(RestOfRows(file.Reader()), (std::vector<Row>{{"1"}, {"1", "2", "3"}}));
}

TEST(CsvReader, EmptyFileFailsWithItsMessage) {
  for (const char* contents : {"", "\n", " \n\t\n"}) {
    CsvFile file(contents);
    EXPECT_FALSE(file.Opened());
    EXPECT_EQ(Message(file.Reader()), kNoHeader);
  }
}

TEST(CsvReader, FileWithoutHeaderStaysOpen) {
  CsvFile file("\n\n");
  EXPECT_FALSE(file.Opened());
  EXPECT_TRUE(RestOfRows(file.Reader()).empty());
  EXPECT_EQ(Message(file.Reader()), kNoHeader);  // not "no file opened"
}

TEST(CsvReader, MissingFileFailsWithPathAndErrorCode) {
  const std::string path = TempFile::NewPath();
  CQNCSVFileReader reader;
  EXPECT_FALSE(reader.Open(path.c_str()));
  EXPECT_EQ(Message(reader), OpenFailed(path, kFileNotFound));
}

TEST(CsvReader, FolderAsPathFailsWithPathAndErrorCode) {
  const std::string path = (std::filesystem::temp_directory_path() / ".").string();
  CQNCSVFileReader reader;
  EXPECT_FALSE(reader.Open(path.c_str()));
  EXPECT_EQ(Message(reader), OpenFailed(path, kAccessDenied));
}

TEST(CsvReader, EmptyOrNullPathFails) {
  for (const char* path : {"", static_cast<const char*>(nullptr)}) {
    CQNCSVFileReader reader;
    EXPECT_FALSE(reader.Open(path));
    const std::u16string message = Message(reader);
    EXPECT_TRUE(message == OpenFailed("", kFileNotFound) ||
                message == OpenFailed("", kPathNotFound));
  }
}

TEST(CsvReader, FailedOpenLeavesNothingOfTheEarlierFile) {
  CsvFile file("a,b\n1,2\n");
  EXPECT_FALSE(file.Reader().Open(TempFile::NewPath().c_str()));
  EXPECT_TRUE(Header(file.Reader()).empty());
  EXPECT_TRUE(RestOfRows(file.Reader()).empty());
  EXPECT_EQ(Message(file.Reader()), kNotOpen);
}

TEST(CsvReader, OpenReplacesTheEarlierFileAndItsMessage) {
  TempFile second("\xEF\xBB\xBFx\n9\n");
  TempFile third("\xE5\x90\x8D\n");
  CsvFile file("");
  EXPECT_TRUE(file.Reader().Open(second.path()));
  EXPECT_STREQ(file.Reader().GetLastError(), "");
  EXPECT_EQ(Header(file.Reader()), (Row{"x"}));
  // The mark of one file does not make the next one UTF-8.
  EXPECT_TRUE(file.Reader().Open(third.path()));
  EXPECT_EQ(Header(file.Reader()), (Row{"\xE5\x90\x8D"}));
}

TEST(CsvReader, GoToFirstRowStartsOverAtAnyTime) {
  for (const char* mark : {"", "\xEF\xBB\xBF"}) {
    CsvFile file(std::string(mark) + "a,b\n1,2\n3,4\n");
    const std::vector<Row> rows = {{"1", "2"}, {"3", "4"}};
    std::vector<CQNString> row;
    for (int read_before = 0; read_before < 5; ++read_before) {
      for (int i = 0; i < read_before; ++i) file.Reader().NextRow(row);
      ASSERT_TRUE(file.Reader().GoToFirstRow());
      EXPECT_EQ(Header(file.Reader()), (Row{"a", "b"}));
      EXPECT_EQ(RestOfRows(file.Reader()), rows);
      ASSERT_TRUE(file.Reader().GoToFirstRow());
    }
  }
}

TEST(CsvReader, GoToFirstRowStartsOverInAFileLargerThanTheBuffer) {
  std::string text = "h\n";
  for (int i = 0; i < 100000; ++i) text += std::to_string(i) + ",some text\n";
  CsvFile file(text);
  const std::vector<Row> rows = RestOfRows(file.Reader());
  ASSERT_EQ(rows.size(), 100000u);
  ASSERT_TRUE(file.Reader().GoToFirstRow());
  EXPECT_EQ(RestOfRows(file.Reader()), rows);
}

TEST(CsvReader, GoToFirstRowDropsTheMessage) {
  CsvFile file("h\n" + std::string(500000, 'x') + "\n");
  RestOfRows(file.Reader());
  EXPECT_EQ(Message(file.Reader()), kTooLong);
  EXPECT_TRUE(file.Reader().GoToFirstRow());
  EXPECT_STREQ(file.Reader().GetLastError(), "");
}

TEST(CsvReader, EndOfDataLeavesAnEarlierMessage) {
  CsvFile file("h\n");
  CQNCSVFileReader& reader = file.Reader();
  EXPECT_TRUE(RestOfRows(reader).empty());
  EXPECT_STREQ(reader.GetLastError(), "");
}

TEST(CsvReader, CopiesAreOneReader) {
  TempFile file("a\n1\n2\n3\n");
  CQNCSVFileReader outlives;
  std::vector<CQNString> row;
  {
    CQNCSVFileReader reader;
    ASSERT_TRUE(reader.Open(file.path()));
    const CQNCSVFileReader copy(reader);
    outlives = copy;
    outlives = static_cast<const CQNCSVFileReader&>(outlives);
    EXPECT_EQ(Header(copy), (Row{"a"}));
    ASSERT_TRUE(reader.NextRow(row));
  }
  EXPECT_EQ(RestOfRows(outlives), (std::vector<Row>{{"2"}, {"3"}}));
}

TEST(CsvReader, IsOnePointerWide) { EXPECT_EQ(sizeof(CQNCSVFileReader), sizeof(void*)); }

}  // namespace
}  // namespace io_test
